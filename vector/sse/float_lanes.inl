// SPDX-License-Identifier: MIT
// Eight floats in two 128-bit registers, and the samples of eight pixels to and from them.
#ifndef PXM_VECTOR_SSE_FLOAT_LANES_INL
#define PXM_VECTOR_SSE_FLOAT_LANES_INL

#include <emmintrin.h>
#include <stdint.h>
#include <string.h>

#include "frame/level.h"

PXM_LEVEL_BEGIN

struct F32x4x2 {
  __m128 low, high;
  PXM_INLINE static F32x4x2 broadcast(float value) {
    const __m128 v = _mm_set1_ps(value);
    return {v, v};
  }
};
struct I32x4x2 {
  __m128i low, high;
};

PXM_INLINE F32x4x2 operator+(F32x4x2 a, F32x4x2 b) {
  return {_mm_add_ps(a.low, b.low), _mm_add_ps(a.high, b.high)};
}
PXM_INLINE F32x4x2 operator*(F32x4x2 a, F32x4x2 b) {
  return {_mm_mul_ps(a.low, b.low), _mm_mul_ps(a.high, b.high)};
}
// b where either is not a number.
PXM_INLINE F32x4x2 minimum(F32x4x2 a, F32x4x2 b) {
  return {_mm_min_ps(a.low, b.low), _mm_min_ps(a.high, b.high)};
}
PXM_INLINE I32x4x2 nearestIntegers(F32x4x2 a) {
  return {_mm_cvtps_epi32(a.low), _mm_cvtps_epi32(a.high)};
}
PXM_INLINE F32x4x2 toFloats(I32x4x2 a) {
  return {_mm_cvtepi32_ps(a.low), _mm_cvtepi32_ps(a.high)};
}

// A byte of each 32-bit lane as a signed integer, 3 being the highest.
template <int byte>
PXM_INLINE I32x4x2 signedByte(I32x4x2 a) {
  return {_mm_srai_epi32(_mm_slli_epi32(a.low, 24 - 8 * byte), 24),
          _mm_srai_epi32(_mm_slli_epi32(a.high, 24 - 8 * byte), 24)};
}

template <class Floats>
struct ThreeChannels {
  Floats channel[3];
};

// Results by channels, eight bytes each.
struct ChannelWords {
  uint64_t first, second, third;
};

// Results of eight pixels in memory, in pieces of as many bytes as may be stored at once where the
// bytes between pixels may not.
struct PixelPieces {
  alignas(32) uint16_t firstSecond[8];
  uint8_t third[16];

  PXM_INLINE void storeOne(int8_t* out, int i) const {
    memcpy(out, firstSecond + i, 2);
    memcpy(out + 2, third + i, 1);
  }
  // Pixels i and i + 1, i being even.
  template <int i, int pixelBytes>
  PXM_INLINE void storeTwo(int8_t* out) const {
    uint16_t thirds;
    memcpy(&thirds, third + i, 2);
    memcpy(out, firstSecond + i, 2);
    out[2] = static_cast<int8_t>(thirds);
    memcpy(out + pixelBytes, firstSecond + i + 1, 2);
    out[pixelBytes + 2] = static_cast<int8_t>(thirds >> 8);
  }
  template <int pixelBytes>
  PXM_INLINE void storeEight(int8_t* out) const {
    storeTwo<0, pixelBytes>(out);
    storeTwo<2, pixelBytes>(out + 2 * pixelBytes);
    storeTwo<4, pixelBytes>(out + 4 * pixelBytes);
    storeTwo<6, pixelBytes>(out + 6 * pixelBytes);
  }
};

// Results of eight pixels: the first channel and the second, and in the low half the third.
struct ChannelBytes {
  __m128i firstSecond, third;

  PXM_INLINE __m128i second() const { return _mm_unpackhi_epi64(firstSecond, firstSecond); }

  PXM_INLINE ChannelWords words() const {
    return {lowWord(firstSecond), lowWord(second()), lowWord(third)};
  }
  PXM_INLINE void storePlanes(int8_t* out0, int8_t* out1, int8_t* out2) const {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(out0), firstSecond);
    _mm_storeh_pi(reinterpret_cast<__m64*>(out1), _mm_castsi128_ps(firstSecond));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(out2), third);
  }
  PXM_INLINE void store(PixelPieces& pieces) const {
    _mm_store_si128(reinterpret_cast<__m128i*>(pieces.firstSecond),
                    _mm_unpacklo_epi8(firstSecond, second()));
    _mm_store_si128(reinterpret_cast<__m128i*>(pieces.third), third);
  }

 private:
  PXM_INLINE static uint64_t lowWord(__m128i bytes) {
    return static_cast<uint64_t>(_mm_cvtsi128_si64(bytes));
  }
};

// Saturated to -128 to 127.
PXM_INLINE ChannelBytes packSigned(I32x4x2 first, I32x4x2 second, I32x4x2 third) {
  const __m128i thirds = _mm_packs_epi32(third.low, third.high);
  return {_mm_packs_epi16(_mm_packs_epi32(first.low, first.high),
                          _mm_packs_epi32(second.low, second.high)),
          _mm_packs_epi16(thirds, thirds)};
}

PXM_INLINE __m128i sixteenBytes(const int8_t* p) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}
PXM_INLINE __m128i eightBytes(const int8_t* p) {
  return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
}
PXM_INLINE __m128i fourBytes(const int8_t* p) {
  int bits;
  memcpy(&bits, p, sizeof bits);
  return _mm_cvtsi32_si128(bits);
}

// Four pixels of four bytes in the upper three bytes of lanes. The first pixels of a row have no
// byte before them to read; after the last pixel none is read.
PXM_INLINE __m128i firstFourPixels(const int8_t* p) {
  return _mm_slli_si128(sixteenBytes(p), 1);
}
PXM_INLINE __m128i nextFourPixels(const int8_t* p) {
  return sixteenBytes(p - 1);
}

struct FloatLanesSse {
  using Floats = F32x4x2;
  using Samples = ThreeChannels<Floats>;
  using Results = ChannelBytes;

  // From the low eight bytes of each.
  PXM_INLINE static Samples fromPlanes(__m128i first, __m128i second, __m128i third) {
    return {{fromPlane(first), fromPlane(second), fromPlane(third)}};
  }

  // From pixels of three bytes, or of four, of which the last fourth is not read.
  template <int pixelBytes>
  PXM_INLINE static Samples fromPixels(const int8_t* p, bool firstOfRow) {
    const I32x4x2 lanes = inUpperBytes<pixelBytes>(p, firstOfRow);
    return {{toFloats(signedByte<1>(lanes)), toFloats(signedByte<2>(lanes)),
             toFloats(signedByte<3>(lanes))}};
  }

  PXM_INLINE static Results pack(I32x4x2 first, I32x4x2 second, I32x4x2 third) {
    return packSigned(first, second, third);
  }
  PXM_INLINE static ChannelBytes channelBytes(const Results& results) { return results; }

  PXM_INLINE static void store(PixelPieces& pieces, const Results& results) {
    results.store(pieces);
  }
  static constexpr bool storesThreeBytePixels = false;

 private:
  PXM_INLINE static Floats fromPlane(__m128i bytes) {
    const __m128i pairs = _mm_unpacklo_epi8(bytes, bytes);
    return toFloats(
        signedByte<3>({_mm_unpacklo_epi16(pairs, pairs), _mm_unpackhi_epi16(pairs, pairs)}));
  }

  template <int pixelBytes>
  PXM_INLINE static I32x4x2 inUpperBytes(const int8_t* p, bool firstOfRow) {
    if constexpr (pixelBytes == 4)
      return {firstOfRow ? firstFourPixels(p) : nextFourPixels(p), nextFourPixels(p + 16)};
    else
      return {fourLanes(_mm_slli_epi32(fourBytes(p), 8), p + 2),
              fourLanes(fourBytes(p + 11), p + 14)};
  }
  PXM_INLINE static __m128i fourLanes(__m128i first, const int8_t* others) {
    return _mm_unpacklo_epi64(_mm_unpacklo_epi32(first, fourBytes(others)),
                              _mm_unpacklo_epi32(fourBytes(others + 3), fourBytes(others + 6)));
  }
};

PXM_LEVEL_END

#endif
