// SPDX-License-Identifier: MIT
// The samples of eight pixels to and from eight floats in one 256-bit register, by way of 256-bit
// integers.
#ifndef PXM_VECTOR_AVX2_FLOAT_LANES_INL
#define PXM_VECTOR_AVX2_FLOAT_LANES_INL

#include <immintrin.h>
#include <stdint.h>

#include "vector/avx/float_lanes.inl"

PXM_LEVEL_BEGIN

// A byte of each lane as a signed integer, 3 being the highest.
template <int byte>
PXM_INLINE I32x8 signedByte(I32x8 a) {
  return {_mm256_srai_epi32(_mm256_slli_epi32(a.v, 24 - 8 * byte), 24)};
}

struct FloatLanesAvx2 {
  using Floats = F32x8;
  using Samples = ThreeChannels<Floats>;
  // In each half four bytes of the first channel, of the second, and of the third.
  using Results = __m256i;

  // From the low eight bytes of each.
  PXM_INLINE static Samples fromPlanes(__m128i first, __m128i second, __m128i third) {
    return {{fromPlane(first), fromPlane(second), fromPlane(third)}};
  }

  // From pixels of three bytes, or of four, of which the last fourth is not read.
  template <int pixelBytes>
  PXM_INLINE static Samples fromPixels(const int8_t* p, bool firstOfRow) {
    const I32x8 lanes = inUpperBytes<pixelBytes>(p, firstOfRow);
    return {{toFloats(signedByte<1>(lanes)), toFloats(signedByte<2>(lanes)),
             toFloats(signedByte<3>(lanes))}};
  }

  // Saturated to -128 to 127.
  PXM_INLINE static Results pack(I32x8 first, I32x8 second, I32x8 third) {
    return _mm256_packs_epi16(_mm256_packs_epi32(first.v, second.v),
                              _mm256_packs_epi32(third.v, third.v));
  }
  PXM_INLINE static ChannelBytes channelBytes(Results results) {
    const __m256i bytes = byChannels(results);
    return {_mm256_castsi256_si128(bytes), _mm256_extracti128_si256(bytes, 1)};
  }

  PXM_INLINE static void store(PixelPieces& pieces, Results results) {
    const __m256i order = _mm256_setr_epi8(0, 8, 1, 9, 2, 10, 3, 11, 4, 12, 5, 13, 6, 14, 7, 15, 0,
                                           1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    _mm256_store_si256(reinterpret_cast<__m256i*>(&pieces),
                       _mm256_shuffle_epi8(byChannels(results), order));
  }

  // Twelve bytes in each half, then eight in the low half and sixteen in the high one.
  static constexpr bool storesThreeBytePixels = true;
  PXM_INLINE static void storeThreeBytePixels(int8_t* out, Results results) {
    const __m256i order = _mm256_broadcastsi128_si256(
        _mm_setr_epi8(0, 4, 8, 1, 5, 9, 2, 6, 10, 3, 7, 11, -1, -1, -1, -1));
    const __m256i pixels = _mm256_permutevar8x32_epi32(_mm256_shuffle_epi8(results, order),
                                                       _mm256_setr_epi32(0, 1, 3, 3, 2, 4, 5, 6));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(out), _mm256_castsi256_si128(pixels));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 8), _mm256_extracti128_si256(pixels, 1));
  }

 private:
  PXM_INLINE static Floats fromPlane(__m128i bytes) {
    return toFloats({_mm256_cvtepi8_epi32(bytes)});
  }

  template <int pixelBytes>
  PXM_INLINE static I32x8 inUpperBytes(const int8_t* p, bool firstOfRow) {
    if constexpr (pixelBytes == 4) {
      if (firstOfRow) return {_mm256_set_m128i(nextFourPixels(p + 16), firstFourPixels(p))};
      return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p - 1))};
    } else {
      const __m256i order =
          _mm256_setr_epi8(-1, 0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1, 4, 5, 6, -1, 7,
                           8, 9, -1, 10, 11, 12, -1, 13, 14, 15);
      return {_mm256_shuffle_epi8(_mm256_set_m128i(sixteenBytes(p + 8), sixteenBytes(p)), order)};
    }
  }

  // Eight bytes of the first channel and of the second, and in the high half of the third.
  PXM_INLINE static __m256i byChannels(Results results) {
    return _mm256_permutevar8x32_epi32(results, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
  }
};

PXM_LEVEL_END

#endif
