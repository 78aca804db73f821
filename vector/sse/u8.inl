// SPDX-License-Identifier: MIT
// u8: SSSE3 processors. Decoding uses SSE2 lanes alone.
#include "vector/sse/lanes.inl"
