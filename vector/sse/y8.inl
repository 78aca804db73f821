// SPDX-License-Identifier: MIT
// y8: SSE4.1 processors. Kernels use SSE2 lanes alone, depth conversions byte shuffles.
#include "vector/sse/lanes.inl"
