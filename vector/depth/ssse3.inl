// SPDX-License-Identifier: MIT
// Depth conversion with byte shuffles.
#ifndef PXM_VECTOR_DEPTH_SSSE3_INL
#define PXM_VECTOR_DEPTH_SSSE3_INL

#include <tmmintrin.h>

#include "vector/depth/row.inl"

PXM_LEVEL_BEGIN

// The twelve bytes of four pixels in three 32-bit lanes of four; one lane is a gap.
template <int gap>
PXM_INLINE __m128i twelvePlaces() {
  constexpr int first = 0x05030201, second = 0x0A090706, third = 0x0F0E0D0B, none = -1;
  return _mm_setr_epi32(gap == 0 ? none : first,
                        gap == 0   ? first
                        : gap == 1 ? none
                                   : second,
                        gap == 3   ? third
                        : gap == 2 ? none
                                   : second,
                        gap == 3 ? none : third);
}
template <int gap>
PXM_INLINE __m128i twelveBytes(__m128i spread) {
  return _mm_shuffle_epi8(spread, twelvePlaces<gap>());
}

// The last bytes of a, `from` on, and then the first of b.
template <int from>
PXM_INLINE __m128i joined(__m128i a, __m128i b) {
  return _mm_alignr_epi8(b, a, from);
}

PXM_INLINE void expandSixteen(const uint8_t* source, uint8_t* out) {
  const SpreadPixels left = spreadEight(source), right = spreadEight(source + 16);
  const __m128i a = twelveBytes<0>(left.first), b = twelveBytes<1>(left.second);
  const __m128i c = twelveBytes<2>(right.first), d = twelveBytes<3>(right.second);
  storeBytes<16>(out, joined<4>(a, b));
  storeBytes<16>(out + 16, joined<8>(b, c));
  storeBytes<16>(out + 32, joined<12>(c, d));
}

PXM_INLINE void expandEight(const uint8_t* source, uint8_t* out) {
  const SpreadPixels eight = spreadEight(source);
  const __m128i a = twelveBytes<0>(eight.first), b = twelveBytes<1>(eight.second);
  storeBytes<16>(out, joined<4>(a, b));
  storeBytes<8>(out + 16, upperBytes(b));
}

// Four pixels: the words of byte 0 below byte 1 in the low half, byte 2 as high bytes of words in
// the high half. The first pixel's byte 0 is byte `from`.
template <int from>
PXM_INLINE __m128i splitPlaces() {
  return _mm_setr_epi8(from, from + 1, from + 3, from + 4, from + 6, from + 7, from + 9, from + 10,
                       -1, from + 2, -1, from + 5, -1, from + 8, -1, from + 11);
}

PXM_INLINE I16x8 multiplyAddBytes(I16x8 a, int low, int high) {
  return {_mm_maddubs_epi16(a.v, _mm_set1_epi16(static_cast<short>(high << 8 | low)))};
}

// 64 times byte 1 plus byte 0 holds both fields, three places too high.
template <class L>
PXM_INLINE L packedFields(L low, L high) {
  using F = DepthFields;
  constexpr int factor = 1 << (F::greenAt + outerInByte - greenInByte);
  static_assert(factor == 64);
  const L fields = low & broadcast<L>(topOfByte<F::greenBits> << 8 | 0xFF);
  return shiftRightLogical<outerInByte>(multiplyAddBytes(fields, 1, factor)) |
         movedField<F::outerBits, 8 + outerInByte, F::highAt>(high);
}

PXM_INLINE void packEight(const uint8_t* source, uint8_t* out) {
  const __m128i a = _mm_shuffle_epi8(loadBytes<16>(source), splitPlaces<0>());
  const __m128i b = _mm_shuffle_epi8(loadBytes<16>(source + 8), splitPlaces<4>());
  storePixels<8>(out,
                 packedFields(I16x8{_mm_unpacklo_epi64(a, b)}, I16x8{_mm_unpackhi_epi64(a, b)}));
}

// The columns x to width - 1 of a row.
PXM_INLINE void expandFrom(ptrdiff_t x, const uint8_t* source, uint8_t* out, int width) {
  x = inBlocks<16>(x, width, [=](ptrdiff_t i) { expandSixteen(source + 2 * i, out + 3 * i); });
  x = inBlocks<8>(x, width, [=](ptrdiff_t i) { expandEight(source + 2 * i, out + 3 * i); });
  expandColumns(source, out, x, width);
}

PXM_INLINE void packFrom(ptrdiff_t x, const uint8_t* source, uint8_t* out, int width) {
  const auto eight = [=](ptrdiff_t i) { packEight(source + 3 * i, out + 2 * i); };
  x = inBlocks<16>(x, width, [=](ptrdiff_t i) {
    eight(i);
    eight(i + 8);
  });
  if (x > 0) x = inBlocks<8>(x, width, eight);
  packColumns(source, out, x, width);
}

#ifndef __AVX2__
PXM_INLINE void expandRow(const uint8_t* source, uint8_t* out, int width) {
  expandFrom(0, source, out, width);
}

PXM_INLINE void packRow(const uint8_t* source, uint8_t* out, int width) {
  packFrom(0, source, out, width);
}
#endif

PXM_LEVEL_END

#endif
