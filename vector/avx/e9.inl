// SPDX-License-Identifier: MIT
// e9: AVX processors. The lanes of the SSE line in three-operand form, which the flags give.
#include "vector/sse/lanes.inl"
