// SPDX-License-Identifier: MIT
// How a level converts a row: expandRow and packRow, by the best instructions that it has.
#ifndef PXM_DEPTH_LEVEL_ROW_INL
#define PXM_DEPTH_LEVEL_ROW_INL

#if !defined(PXM_SIMD)
#include "depth/row.inl"
#elif defined(__AVX2__)
#include "vector/depth/avx2.inl"
#elif defined(__SSSE3__)
#include "vector/depth/ssse3.inl"
#else
#include "vector/depth/sse2.inl"
#endif

#endif
