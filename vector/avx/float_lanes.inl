// SPDX-License-Identifier: MIT
// Eight floats in one 256-bit register, and the samples of eight pixels to and from them by way of
// 128-bit integers.
#ifndef PXM_VECTOR_AVX_FLOAT_LANES_INL
#define PXM_VECTOR_AVX_FLOAT_LANES_INL

#include <immintrin.h>
#include <stdint.h>

#include "vector/sse/float_lanes.inl"

PXM_LEVEL_BEGIN

struct F32x8 {
  __m256 v;
  PXM_INLINE static F32x8 broadcast(float value) { return {_mm256_set1_ps(value)}; }
};
struct I32x8 {
  __m256i v;
};

PXM_INLINE F32x8 operator+(F32x8 a, F32x8 b) {
  return {_mm256_add_ps(a.v, b.v)};
}
PXM_INLINE F32x8 operator*(F32x8 a, F32x8 b) {
  return {_mm256_mul_ps(a.v, b.v)};
}
// b where either is not a number.
PXM_INLINE F32x8 minimum(F32x8 a, F32x8 b) {
  return {_mm256_min_ps(a.v, b.v)};
}
PXM_INLINE I32x8 nearestIntegers(F32x8 a) {
  return {_mm256_cvtps_epi32(a.v)};
}
PXM_INLINE F32x8 toFloats(I32x8 a) {
  return {_mm256_cvtepi32_ps(a.v)};
}

struct FloatLanesAvx {
  using Floats = F32x8;
  using Samples = ThreeChannels<Floats>;
  using Results = ChannelBytes;

  // From the low eight bytes of each.
  PXM_INLINE static Samples fromPlanes(__m128i first, __m128i second, __m128i third) {
    return {{fromPlane(first), fromPlane(second), fromPlane(third)}};
  }

  // From pixels of three bytes, or of four, of which the last fourth is not read.
  template <int pixelBytes>
  PXM_INLINE static Samples fromPixels(const int8_t* p, bool) {
    constexpr int highHalf = 7 * pixelBytes - 13;  // so that it ends with the last pixel's third
    const __m128i low = sixteenBytes(p), high = sixteenBytes(p + highHalf);
    return {{fromBytes<0, pixelBytes>(low, high), fromBytes<1, pixelBytes>(low, high),
             fromBytes<2, pixelBytes>(low, high)}};
  }

  PXM_INLINE static Results pack(I32x8 first, I32x8 second, I32x8 third) {
    return packSigned(halves(first), halves(second), halves(third));
  }
  PXM_INLINE static ChannelBytes channelBytes(const Results& results) { return results; }

  PXM_INLINE static void store(PixelPieces& pieces, const Results& results) {
    results.store(pieces);
  }

  static constexpr bool storesThreeBytePixels = true;
  PXM_INLINE static void storeThreeBytePixels(int8_t* out, const Results& results) {
    const __m128i low = _mm_or_si128(
        _mm_shuffle_epi8(results.firstSecond,
                         _mm_setr_epi8(0, 8, -1, 1, 9, -1, 2, 10, -1, 3, 11, -1, 4, 12, -1, 5)),
        _mm_shuffle_epi8(results.third,
                         _mm_setr_epi8(-1, -1, 0, -1, -1, 1, -1, -1, 2, -1, -1, 3, -1, -1, 4, -1)));
    const __m128i high = _mm_or_si128(
        _mm_shuffle_epi8(results.firstSecond, _mm_setr_epi8(13, -1, 6, 14, -1, 7, 15, -1, -1, -1,
                                                            -1, -1, -1, -1, -1, -1)),
        _mm_shuffle_epi8(results.third, _mm_setr_epi8(-1, 5, -1, -1, 6, -1, -1, 7, -1, -1, -1, -1,
                                                      -1, -1, -1, -1)));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), low);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(out + 16), high);
  }

 private:
  PXM_INLINE static I32x8 joined(__m128i low, __m128i high) {
    return {_mm256_set_m128i(high, low)};
  }
  PXM_INLINE static Floats fromPlane(__m128i bytes) {
    return toFloats(joined(_mm_cvtepi8_epi32(bytes), _mm_cvtepi8_epi32(_mm_srli_si128(bytes, 4))));
  }

  // A channel's bytes as the highest of 32-bit lanes whose others are zero: samples times 2^24,
  // which float holds exactly. One product of floats is less than two shifts of integers.
  template <int channel, int pixelBytes>
  PXM_INLINE static Floats fromBytes(__m128i low, __m128i high) {
    return toFloats(joined(fourHighest<channel, pixelBytes>(low),
                           fourHighest<channel + 13 - 3 * pixelBytes, pixelBytes>(high))) *
           Floats::broadcast(0x1p-24f);
  }
  template <int first, int distance>
  PXM_INLINE static __m128i fourHighest(__m128i bytes) {
    return _mm_shuffle_epi8(
        bytes, _mm_setr_epi8(-1, -1, -1, first, -1, -1, -1, first + distance, -1, -1, -1,
                             first + 2 * distance, -1, -1, -1, first + 3 * distance));
  }

  PXM_INLINE static I32x4x2 halves(I32x8 a) {
    return {_mm256_castsi256_si128(a.v), _mm256_extractf128_si256(a.v, 1)};
  }
};

PXM_LEVEL_END

#endif
