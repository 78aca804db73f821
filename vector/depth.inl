// SPDX-License-Identifier: MIT
// Depth conversion in lanes. Bits only move, so every way gives the bytes of the plain loop, which
// takes rows that are too narrow for a block and what blocks leave over.
#ifndef PXM_VECTOR_DEPTH_INL
#define PXM_VECTOR_DEPTH_INL

#include "depth/depth.inl"

PXM_TEXT_BEGIN

// Pixels, each in a 32-bit lane, as 0, byte 0, byte 1, byte 2.
struct SpreadPixels {
  __m128i first, second;  // four each
};

PXM_INLINE SpreadPixels spreadPixels(I16x8 words) {
  const I16x8 low = shiftLeft<11>(words);
  const I16x8 high =
      (shiftRightLogical<3>(words) & all<I16x8>(0xFC)) | (words & all<I16x8>(0xF800));
  return {_mm_unpacklo_epi16(low.v, high.v), _mm_unpackhi_epi16(low.v, high.v)};
}

PXM_INLINE SpreadPixels spreadEight(const uint8_t* source) {
  return spreadPixels({loadBytes<16>(source)});
}

// Blocks of n columns from column x on, as many as the row has room for.
template <int n, class Block>
PXM_INLINE ptrdiff_t inBlocks(ptrdiff_t x, int width, Block block) {
  for (; x + n <= width; x += n) block(x);
  return x;
}

PXM_TEXT_END

#endif
