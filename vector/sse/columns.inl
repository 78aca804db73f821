// SPDX-License-Identifier: MIT
// Samples of up to sixteen columns to lanes, and their pixels to memory. Lanes that a smaller block
// does not fill hold anything.
#ifndef PXM_VECTOR_SSE_COLUMNS_INL
#define PXM_VECTOR_SSE_COLUMNS_INL

#include <stddef.h>

#include "vector/packers.inl"
#include "vector/sse/lanes.inl"

PXM_TEXT_BEGIN

// The lanes that a block of so many columns takes.
template <int columns>
struct LanesFor {
  using Type = I16x8;
};

template <>
struct Loads<I16x8> {
  // A sample for each of n columns.
  template <int n>
  PXM_INLINE static PairedBytes<I16x8> columns(const uint8_t* p) {
    return {{loadBytes<n>(p)}};
  }

  // A sample for each pair of n columns, or for each four, in the high bytes of lanes.
  template <int n, int shift>
  PXM_INLINE static I16x8 chroma(const uint8_t* p) {
    const __m128i bytes = loadBytes<(n >> shift)>(p);
    return inHighBytes(shift == 1 ? bytes : doubled(bytes));
  }

  template <int n>
  PXM_INLINE static InterleavedSamples<I16x8> interleaved(const uint8_t* p) {
    const I16x8 a = {loadBytes<(n < 8 ? 2 * n : 16)>(p)};
    const I16x8 b = n == 16 ? I16x8{loadBytes<16>(p + 2 * n - 16)} : a;
    const I16x8 low = all<I16x8>(0xFF);
    return {{narrowed(a & low, b & low)},
            {narrowed(shiftRightLogical<8>(a), shiftRightLogical<8>(b))}};
  }

  // Two pixels of three bytes, and two bytes behind them. The last two of a block come without
  // those; they may be its only ones.
  PXM_INLINE static __m128i twoPixels(const uint8_t* p) { return loadBytes<8>(p); }
  PXM_INLINE static __m128i twoLastPixels(const uint8_t* p) {
    return _mm_srli_epi64(loadBytes<8>(p - 2), 16);
  }
  PXM_INLINE static __m128i twoOnlyPixels(const uint8_t* p) {
    return _mm_unpacklo_epi32(loadBytes<4>(p), loadBytes<2>(p + 4));
  }
  // A half of each register: the lower or the upper.
  template <int ofA, int ofB>
  PXM_INLINE static SplitBytes<I16x8> halves(__m128i a, __m128i b) {
    return {{_mm_castpd_si128(
        _mm_shuffle_pd(_mm_castsi128_pd(a), _mm_castsi128_pd(b), ofA | ofB << 1))}};
  }

  // Pixels 0 and 2, 1 and 3 come side by side, then four pixels of each parity, then all eight; a
  // plane's two parities end in halves of different registers.
  template <int n>
  PXM_INLINE static SplitPlanes<I16x8> planes(const uint8_t* p) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i a = n == 2   ? inTurn(twoOnlyPixels(p), zero)
                      : n == 4 ? inTurn(twoPixels(p), twoLastPixels(p + 6))
                               : inTurn(twoPixels(p), twoPixels(p + 6));
    const __m128i b = n <= 4   ? zero
                      : n == 8 ? inTurn(twoPixels(p + 12), twoLastPixels(p + 18))
                               : inTurn(twoPixels(p + 12), twoPixels(p + 18));
    const __m128i left = _mm_unpacklo_epi16(a, b), leftRest = _mm_unpackhi_epi16(a, b);
    __m128i right = zero, rightRest = zero;
    if constexpr (n == 16) {
      const __m128i c = inTurn(twoPixels(p + 24), twoPixels(p + 30));
      const __m128i d = inTurn(twoPixels(p + 36), twoLastPixels(p + 42));
      right = _mm_unpacklo_epi16(c, d);
      rightRest = _mm_unpackhi_epi16(c, d);
    }
    const __m128i firstSecond = _mm_unpacklo_epi32(left, right);          // even columns of both
    const __m128i thirdFirst = _mm_unpackhi_epi32(left, right);           // even, odd
    const __m128i secondThird = _mm_unpacklo_epi32(leftRest, rightRest);  // odd
    return {halves<0, 1>(firstSecond, thirdFirst), halves<1, 0>(firstSecond, secondThird),
            halves<0, 1>(thirdFirst, secondThird)};
  }
};

template <int n>
PXM_INLINE void storeRow(uint8_t* out, const PackedColumns<I16x8>& pixels) {
  if constexpr (n == 16) {
    storePixels<8>(out, pixels.first);
    storePixels<8>(out + 16, pixels.second);
  } else {
    storePixels<n>(out, pixels.first);
  }
}

// Two rows, in the order of blocks of so many columns, upper row first.
template <int n, int inBlocksOf>
PXM_INLINE void storeRows(uint8_t* out, const PackedColumns<I16x8>& upper, uint8_t* below,
                          const PackedColumns<I16x8>& lower) {
  if constexpr (n > inBlocksOf) {
    storePixels<8>(out, upper.first);
    storePixels<8>(below, lower.first);
    storePixels<8>(out + 16, upper.second);
    storePixels<8>(below + 16, lower.second);
  } else {
    storeRow<n>(out, upper);
    storeRow<n>(below, lower);
  }
}

PXM_TEXT_END

#endif
