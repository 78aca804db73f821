// SPDX-License-Identifier: MIT
// u8: SSSE3 processors. Kernels use SSE2 lanes alone, depth conversions byte shuffles.
#include "vector/sse/lanes.inl"
