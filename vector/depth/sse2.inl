// SPDX-License-Identifier: MIT
// Depth conversion by SSE2 alone.
#ifndef PXM_VECTOR_DEPTH_SSE2_INL
#define PXM_VECTOR_DEPTH_SSE2_INL

#include "vector/depth/row.inl"

PXM_LEVEL_BEGIN

// Four pixels. The first store also writes zeros over the third pixel's first two bytes, the next
// one puts it right.
PXM_INLINE void storeFour(uint8_t* out, __m128i spread) {
  const __m128i even = _mm_and_si128(_mm_srli_epi64(spread, 8), _mm_set1_epi64x(0xFFFFFF));
  const __m128i odd = _mm_and_si128(_mm_srli_epi64(spread, 16), _mm_set1_epi64x(0xFFFFFF000000));
  const __m128i pairs = _mm_or_si128(even, odd);
  const __m128i upper = upperBytes(pairs);
  storeBytes<8>(out, pairs);
  storeBytes<4>(out + 6, upper);
  storeBytes<2>(out + 10, _mm_srli_epi64(upper, 32));
}

PXM_INLINE void expandRow(const uint8_t* source, uint8_t* out, int width) {
  ptrdiff_t x = inBlocks<8>(0, width, [=](ptrdiff_t i) {
    const SpreadPixels eight = spreadEight(source + 2 * i);
    storeFour(out + 3 * i, eight.first);
    storeFour(out + 3 * i + 12, eight.second);
  });
  if (x + 4 <= width) {
    storeFour(out + 3 * x, spreadPixels({loadBytes<8>(source + 2 * x)}).first);
    x += 4;
  }
  expandColumns(source, out, x, width);
}

// Words of byte 0 below byte 1, and byte 2 in the high bytes.
PXM_INLINE I16x8 packedWords(I16x8 low, I16x8 high) {
  using F = DepthFields;
  return movedField<F::outerBits, outerInByte, 0>(low) |
         movedField<F::greenBits, 8 + greenInByte, F::greenAt>(low) |
         movedField<F::outerBits, 8 + outerInByte, F::highAt>(high);
}

PXM_INLINE void packRow(const uint8_t* source, uint8_t* out, int width) {
  const ptrdiff_t x = inBlocks<16>(0, width, [=](ptrdiff_t i) {
    const Planes16 p = planesOfSixteen(source + 3 * i);
    storePixels<8>(out + 2 * i,
                   packedWords({interleaveLowBytes(p.first, p.second)}, inHighBytes(p.third)));
    storePixels<8>(out + 2 * i + 16, packedWords({interleaveHighBytes(p.first, p.second)},
                                                 upperInHighBytes(p.third)));
  });
  packColumns(source, out, x, width);
}

PXM_LEVEL_END

#endif
