// SPDX-License-Identifier: MIT
// m7: SSE3 processors. Kernels use SSE2 lanes alone.
#include "vector/sse/lanes.inl"
