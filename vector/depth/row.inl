// SPDX-License-Identifier: MIT
// Depth conversion in SIMD. Bits only move, so every way gives the bytes of the scalar loop, which
// takes rows that are too narrow for a block, and the tail.
#ifndef PXM_VECTOR_DEPTH_ROW_INL
#define PXM_VECTOR_DEPTH_ROW_INL

#include "depth/row.inl"
#include "vector/field.inl"
#include "vector/sse/lanes.inl"

PXM_LEVEL_BEGIN

// The words that make a pixel in a 32-bit lane: 0 and byte 0, byte 1 and byte 2.
template <class L>
struct SpreadWords {
  L low, high;
};

template <class L>
PXM_INLINE SpreadWords<L> spreadWords(L words) {
  using F = DepthFields;
  return {movedField<F::outerBits, 0, 8 + outerInByte>(words),
          movedField<F::greenBits, F::greenAt, greenInByte>(words) |
              movedField<F::outerBits, F::highAt, 8 + outerInByte>(words)};
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

// Blocks of n columns from column x on, as many as the row has headroom for.
template <int n, class Block>
PXM_INLINE ptrdiff_t inBlocks(ptrdiff_t x, int width, Block block) {
  for (const ptrdiff_t last = width - n; x <= last; x += n) block(x);
  return x;
}

PXM_LEVEL_END

#endif
