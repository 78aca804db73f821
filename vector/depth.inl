// SPDX-License-Identifier: MIT
// Depth conversion in lanes. Bits only move, so every way gives the bytes of the plain loop, which
// takes rows that are too narrow for a block and what blocks leave over.
#ifndef PXM_VECTOR_DEPTH_INL
#define PXM_VECTOR_DEPTH_INL

#include "depth/depth.inl"

PXM_TEXT_BEGIN

// The words that make a pixel in a 32-bit lane: 0 and byte 0, byte 1 and byte 2.
template <class L>
struct SpreadWords {
  L low, high;
};

template <class L>
PXM_INLINE SpreadWords<L> spreadWords(L words) {
  return {shiftLeft<11>(words),
          (shiftRightLogical<3>(words) & all<L>(0xFC)) | (words & all<L>(0xF800))};
}

// Four pixels in each register.
struct SpreadPixels {
  __m128i first, second;
};

PXM_INLINE SpreadPixels spreadPixels(I16x8 words) {
  const SpreadWords<I16x8> w = spreadWords(words);
  return {_mm_unpacklo_epi16(w.low.v, w.high.v), _mm_unpackhi_epi16(w.low.v, w.high.v)};
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
