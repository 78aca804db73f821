// SPDX-License-Identifier: MIT
// Depth conversion in lanes; compiled once for each vector variant, at the level that it may use.
#include PXM_VARIANT_TEXT

#if defined(PXM_WIDE_LANES)
#include "vector/avx2/depth.inl"
#elif defined(__SSSE3__)
#include "vector/ssse3/depth.inl"
#else
#include "vector/sse/depth.inl"
#endif

#include "depth/entries.inl"
