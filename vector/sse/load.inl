// SPDX-License-Identifier: MIT
// Samples of sixteen columns to registers of eight lanes, and their pixels to memory.
#ifndef PXM_VECTOR_SSE_LOAD_INL
#define PXM_VECTOR_SSE_LOAD_INL

#include <stddef.h>

#include "vector/decode/pack.inl"
#include "vector/decode/samples.inl"
#include "vector/sse/lanes.inl"

PXM_LEVEL_BEGIN

template <>
struct Loads<I16x8> {
  // A sample for each column.
  PXM_INLINE static PairedBytes<I16x8> columns(const uint8_t* p) { return {{loadBytes<16>(p)}}; }

  // A sample for each pair of columns, or for each four, in the high bytes of lanes.
  template <int shift>
  PXM_INLINE static I16x8 chroma(const uint8_t* p) {
    const __m128i bytes = loadBytes<(16 >> shift)>(p);
    return inHighBytes(shift == 1 ? bytes : duplicateBytes(bytes));
  }

  PXM_INLINE static InterleavedSamples<I16x8> interleaved(const uint8_t* p) {
    const I16x8 a = {loadBytes<16>(p)}, b = {loadBytes<16>(p + 16)};
    const I16x8 low = broadcast<I16x8>(0xFF);
    return {{packUnsigned(a & low, b & low)},
            {packUnsigned(shiftRightLogical<8>(a), shiftRightLogical<8>(b))}};
  }

  // Pixels 0 and 2, 1 and 3 come interleaved, then four pixels of each parity, then all eight; a
  // plane's two parities end in halves of different registers.
  PXM_INLINE static SplitPlanes<I16x8> planes(const uint8_t* p) {
    const __m128i a = interleaveLowBytes(twoPixels(p), twoPixels(p + 6));
    const __m128i b = interleaveLowBytes(twoPixels(p + 12), twoPixels(p + 18));
    const __m128i c = interleaveLowBytes(twoPixels(p + 24), twoPixels(p + 30));
    const __m128i d = interleaveLowBytes(twoPixels(p + 36), twoLastPixels(p + 42));
    const __m128i left = _mm_unpacklo_epi16(a, b), leftRest = _mm_unpackhi_epi16(a, b);
    const __m128i right = _mm_unpacklo_epi16(c, d), rightRest = _mm_unpackhi_epi16(c, d);
    const __m128i firstSecond = _mm_unpacklo_epi32(left, right);          // even columns of both
    const __m128i thirdFirst = _mm_unpackhi_epi32(left, right);           // even, odd
    const __m128i secondThird = _mm_unpacklo_epi32(leftRest, rightRest);  // odd
    return {halves<0, 1>(firstSecond, thirdFirst), halves<1, 0>(firstSecond, secondThird),
            halves<0, 1>(thirdFirst, secondThird)};
  }

 private:
  // Two pixels of three bytes, and two bytes after them. The last two of a block come without
  // those.
  PXM_INLINE static __m128i twoPixels(const uint8_t* p) { return loadBytes<8>(p); }
  PXM_INLINE static __m128i twoLastPixels(const uint8_t* p) {
    return _mm_srli_epi64(loadBytes<8>(p - 2), 16);
  }
  // A half of each register: the lower or the upper.
  template <int ofA, int ofB>
  PXM_INLINE static SplitBytes<I16x8> halves(__m128i a, __m128i b) {
    return {{_mm_castpd_si128(
        _mm_shuffle_pd(_mm_castsi128_pd(a), _mm_castsi128_pd(b), ofA | ofB << 1))}};
  }
};

PXM_INLINE void storeRow(uint8_t* out, const PackedColumns<I16x8>& pixels) {
  storePixels<8>(out, pixels.first);
  storePixels<8>(out + 16, pixels.second);
}

// Two rows, in the order of blocks of so many columns, upper row first.
template <int inBlocksOf>
PXM_INLINE void storeRows(uint8_t* upper, const PackedColumns<I16x8>& upperPixels, uint8_t* lower,
                          const PackedColumns<I16x8>& lowerPixels) {
  if constexpr (inBlocksOf == 8) {
    storePixels<8>(upper, upperPixels.first);
    storePixels<8>(lower, lowerPixels.first);
    storePixels<8>(upper + 16, upperPixels.second);
    storePixels<8>(lower + 16, lowerPixels.second);
  } else {
    storeRow(upper, upperPixels);
    storeRow(lower, lowerPixels);
  }
}

PXM_LEVEL_END

#endif
