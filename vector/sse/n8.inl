// SPDX-License-Identifier: MIT
// n8: SSSE3 processors with an in-order pipeline. Decoding uses SSE2 lanes alone.
#include "vector/sse/lanes.inl"
