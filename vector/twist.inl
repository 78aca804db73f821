// SPDX-License-Identifier: MIT
// The colour twist in lanes, four pixels at a time, channel by channel. Each lane does what a pixel
// by itself would do: three products, three additions in their order, the constant last, each
// rounded to nearest, and nothing on values that are no pixel's, so that exception flags are the
// pixels' too.
#ifndef PXM_VECTOR_TWIST_INL
#define PXM_VECTOR_TWIST_INL

#include <immintrin.h>

#include "frame/rows.inl"
#include "frame/signatures.h"
#include "twist/mxcsr.inl"

PXM_TEXT_BEGIN

// The matrix by columns, each number in four lanes. Column 3 is the constants.
struct TwistColumns {
  __m128 at[4][3];
  PXM_INLINE explicit TwistColumns(const float (*twist)[4]) {
    for (int c = 0; c < 4; ++c)
      for (int r = 0; r < 3; ++r) at[c][r] = _mm_set1_ps(twist[r][c]);
  }
};

// The samples of four pixels.
struct FourPixels {
  __m128 channel[3];
};

// To the nearest integers, halves to even, at most 127. The limit comes ahead of the conversion,
// because 2^31 and more would come out as INT32_MIN; NaN becomes 127. What is below -128 is left to
// the saturating packs.
PXM_INLINE __m128i rounded(__m128 a) {
  return _mm_cvtps_epi32(_mm_min_ps(a, _mm_set1_ps(127.0f)));
}

template <int row>
PXM_INLINE __m128i twisted(const FourPixels& s, const TwistColumns& columns) {
  const __m128 a0 = _mm_mul_ps(s.channel[0], columns.at[0][row]);
  const __m128 a1 = _mm_mul_ps(s.channel[1], columns.at[1][row]);
  const __m128 a2 = _mm_mul_ps(s.channel[2], columns.at[2][row]);
  return rounded(_mm_add_ps(_mm_add_ps(_mm_add_ps(a0, a1), a2), columns.at[3][row]));
}

// Four pixels, each in the low three bytes of a 32-bit lane, whose fourth byte may hold anything.
PXM_INLINE FourPixels samplesOf(__m128i pixels) {
  return {{_mm_cvtepi32_ps(_mm_srai_epi32(_mm_slli_epi32(pixels, 24), 24)),
           _mm_cvtepi32_ps(_mm_srai_epi32(_mm_slli_epi32(pixels, 16), 24)),
           _mm_cvtepi32_ps(_mm_srai_epi32(_mm_slli_epi32(pixels, 8), 24))}};
}

PXM_INLINE __m128i twistedPixels(__m128i pixels, const TwistColumns& columns) {
  const FourPixels s = samplesOf(pixels);
  const __m128i first = twisted<0>(s, columns), second = twisted<1>(s, columns),
                third = twisted<2>(s, columns);
  // Bytes: four of each channel, then those of the third once more.
  const __m128i bytes =
      _mm_packs_epi16(_mm_packs_epi32(first, second), _mm_packs_epi32(third, third));
  const __m128i mixed = inTurn(bytes, upperBytes(bytes));
  return inTurn(mixed, upperBytes(mixed));
}

// A pixel's three bytes, and no more, from and to any address.
PXM_INLINE int loadPixel(const int8_t* p) {
  uint16_t low;
  memcpy(&low, p, sizeof low);
  return low | static_cast<uint8_t>(p[2]) << 16;
}
PXM_INLINE void storePixel(int8_t* p, uint64_t pixel) {
  const uint16_t low = static_cast<uint16_t>(pixel);
  memcpy(p, &low, sizeof low);
  p[2] = static_cast<int8_t>(pixel >> 16);
}

PXM_INLINE uint64_t lowPixels(__m128i pixels) {
  return static_cast<uint64_t>(_mm_cvtsi128_si64(pixels));
}

// Required: where there are upper halves a kernel ends by clearing them, although it uses none.
PXM_INLINE void clearUpperHalves() {
#ifdef __AVX__
  _mm256_zeroupper();
#endif
}

// Interleaved pixels of three bytes, or of four, of which the fourth is not written.
template <int pixelBytes>
struct TwistRow {
  PXM_KERNEL static void run(const TwistImage& a) {
    const TwistColumns columns(a.twist);
    for (int y = 0; y < a.height; ++y) {
      Signed source = rowAt(a.src, y, a.srcStep);
      int8_t* out = rowAt(a.dst, y, a.dstStep);
      int left = a.width;
      for (; left > 4; left -= 4, source += 4 * pixelBytes, out += 4 * pixelBytes) {
        const __m128i pixels = twistedPixels(loadFour(source), columns);
        storeTwo(out, lowPixels(pixels));
        storeTwo(out + 2 * pixelBytes, lowPixels(upperBytes(pixels)));
      }
      lastPixels(source, out, left, columns);
    }
    clearUpperHalves();
  }

 private:
  // Reads one byte of the pixel that follows, and for pixels of four bytes the fourths.
  PXM_INLINE static __m128i loadFour(Signed p) {
    if constexpr (pixelBytes == 4) return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    return _mm_unpacklo_epi64(_mm_unpacklo_epi32(loadOne(p), loadOne(p + 3)),
                              _mm_unpacklo_epi32(loadOne(p + 6), loadOne(p + 9)));
  }
  PXM_INLINE static __m128i loadOne(Signed p) {
    return loadBytes<4>(reinterpret_cast<const uint8_t*>(p));
  }

  PXM_INLINE static void storeTwo(int8_t* out, uint64_t pixels) {
    storePixel(out, pixels);
    storePixel(out + pixelBytes, pixels >> 32);
  }

  // One to four. Lanes that are left over repeat the last pixel.
  PXM_INLINE static void lastPixels(Signed source, int8_t* out, int count,
                                    const TwistColumns& columns) {
    const int first = loadPixel(source);
    const int second = count > 1 ? loadPixel(source + pixelBytes) : first;
    const int third = count > 2 ? loadPixel(source + 2 * pixelBytes) : second;
    const int fourth = count > 3 ? loadPixel(source + 3 * pixelBytes) : third;
    const __m128i pixels = twistedPixels(_mm_setr_epi32(first, second, third, fourth), columns);
    const uint64_t low = lowPixels(pixels), high = lowPixels(upperBytes(pixels));
    storePixel(out, low);
    if (count > 1) storePixel(out + pixelBytes, low >> 32);
    if (count > 2) storePixel(out + 2 * pixelBytes, high);
    if (count > 3) storePixel(out + 3 * pixelBytes, high >> 32);
  }
};
// In place (TwistRowC3I, TwistRowAC4I) source and destination are one.
using TwistRowC3 = TwistRow<3>;
using TwistRowAC4 = TwistRow<4>;

// Three planes with one pitch.
struct TwistPixelsP3 {
  PXM_KERNEL static void run(const TwistPlanes& a) {
    const TwistColumns columns(a.twist);
    const Signed source[3] = {a.src[0], a.src[1], a.src[2]};
    int8_t* const out[3] = {a.dst[0], a.dst[1], a.dst[2]};
    for (int y = 0; y < a.height; ++y) {
      ptrdiff_t from = ptrdiff_t{y} * a.srcStep, to = ptrdiff_t{y} * a.dstStep;
      int left = a.width;
      for (; left >= 8; left -= 8, from += 8, to += 8) eight(source, from, out, to, columns);
      for (; left > 0; --left, ++from, ++to) TwistPixelP3(source, from, out, to, columns);
    }
    clearUpperHalves();
  }

 private:
  using Sources = const Signed (&)[3];
  using Outs = int8_t* const (&)[3];

  // Signed bytes that stand twice, of the low half and of the high half.
  PXM_INLINE static __m128 lowFloats(__m128i pairs) {
    return _mm_cvtepi32_ps(_mm_srai_epi32(_mm_unpacklo_epi16(pairs, pairs), 24));
  }
  PXM_INLINE static __m128 highFloats(__m128i pairs) {
    return _mm_cvtepi32_ps(_mm_srai_epi32(_mm_unpackhi_epi16(pairs, pairs), 24));
  }

  PXM_INLINE static void eight(Sources source, ptrdiff_t from, Outs out, ptrdiff_t to,
                               const TwistColumns& columns) {
    FourPixels low, high;
    for (int c = 0; c < 3; ++c) {
      const __m128i pairs =
          doubled(loadBytes<8>(reinterpret_cast<const uint8_t*>(source[c] + from)));
      low.channel[c] = lowFloats(pairs);
      high.channel[c] = highFloats(pairs);
    }
    const __m128i first = _mm_packs_epi32(twisted<0>(low, columns), twisted<0>(high, columns));
    const __m128i second = _mm_packs_epi32(twisted<1>(low, columns), twisted<1>(high, columns));
    const __m128i third = _mm_packs_epi32(twisted<2>(low, columns), twisted<2>(high, columns));
    const __m128i firstTwo = _mm_packs_epi16(first, second);
    store(out[0] + to, firstTwo);
    store(out[1] + to, upperBytes(firstTwo));
    store(out[2] + to, _mm_packs_epi16(third, third));
  }
  PXM_INLINE static void store(int8_t* p, __m128i bytes) {
    storeBytes<8>(reinterpret_cast<uint8_t*>(p), bytes);
  }

  PXM_INLINE static void TwistPixelP3(Sources source, ptrdiff_t from, Outs out, ptrdiff_t to,
                                      const TwistColumns& columns) {
    const int pixel = static_cast<uint8_t>(source[0][from]) |
                      static_cast<uint8_t>(source[1][from]) << 8 |
                      static_cast<uint8_t>(source[2][from]) << 16;
    const int result = _mm_cvtsi128_si32(twistedPixels(_mm_set1_epi32(pixel), columns));
    for (int c = 0; c < 3; ++c) out[c][to] = static_cast<int8_t>(result >> 8 * c);
  }
};

PXM_TEXT_END

#endif
