// SPDX-License-Identifier: MIT
// y8: SSE4.1 processors. Decoding uses SSE2 lanes alone.
#include "vector/sse/lanes.inl"
