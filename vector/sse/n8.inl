// SPDX-License-Identifier: MIT
// n8: SSSE3 processors with an in-order pipeline. Kernels use SSE2 lanes alone, depth conversions
// byte shuffles.
#include "vector/sse/lanes.inl"
