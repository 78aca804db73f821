// SPDX-License-Identifier: MIT
// Eight 16-bit lanes in one 128-bit register, and the operations that the chains use. Compiled with
// VEX flags the same source is the three-operand form.
#ifndef PXM_VECTOR_SSE_LANES_INL
#define PXM_VECTOR_SSE_LANES_INL

#include <emmintrin.h>
#include <stdint.h>
#include <string.h>

#include "vector/lane.inl"

PXM_LEVEL_BEGIN

struct I16x8 {
  static constexpr int lanes = 8;
  __m128i v;
};

template <>
PXM_INLINE I16x8 broadcast<I16x8>(int value) {
  return {_mm_set1_epi16(static_cast<short>(value))};
}

// Additions and subtractions wrap.
PXM_INLINE I16x8 operator+(I16x8 a, I16x8 b) {
  return {_mm_add_epi16(a.v, b.v)};
}
PXM_INLINE I16x8 operator-(I16x8 a, I16x8 b) {
  return {_mm_sub_epi16(a.v, b.v)};
}
PXM_INLINE I16x8 operator&(I16x8 a, I16x8 b) {
  return {_mm_and_si128(a.v, b.v)};
}
PXM_INLINE I16x8 operator|(I16x8 a, I16x8 b) {
  return {_mm_or_si128(a.v, b.v)};
}
PXM_INLINE I16x8 operator^(I16x8 a, I16x8 b) {
  return {_mm_xor_si128(a.v, b.v)};
}
// Half the sum of unsigned lanes, which may exceed 16 bits; an odd sum is rounded up.
PXM_INLINE I16x8 average(I16x8 a, I16x8 b) {
  return {_mm_avg_epu16(a.v, b.v)};
}
// The upper 16 bits of the 32-bit product, floor(a * b / 65536): of signed and of unsigned lanes.
PXM_INLINE I16x8 LaneMulHi(I16x8 a, I16x8 b) {
  return {_mm_mulhi_epi16(a.v, b.v)};
}
PXM_INLINE I16x8 LaneMulHiU(I16x8 a, I16x8 b) {
  return {_mm_mulhi_epu16(a.v, b.v)};
}
template <int n>
PXM_INLINE I16x8 shiftLeft(I16x8 a) {
  return {_mm_slli_epi16(a.v, n)};
}
template <int n>
PXM_INLINE I16x8 shiftRight(I16x8 a) {  // arithmetic
  return {_mm_srai_epi16(a.v, n)};
}
template <int n>
PXM_INLINE I16x8 shiftRightLogical(I16x8 a) {
  return {_mm_srli_epi16(a.v, n)};
}

// The sums of neighbouring lanes, those of a and then those of b, `factor` times as large; they
// must fit a signed lane.
template <int factor>
PXM_INLINE I16x8 addNeighbours(I16x8 a, I16x8 b) {
  const __m128i factors = _mm_set1_epi16(factor);
  return {_mm_packs_epi32(_mm_madd_epi16(a.v, factors), _mm_madd_epi16(b.v, factors))};
}

// The lanes of a and then those of b as bytes, with unsigned saturation.
PXM_INLINE I16x8 packUnsigned(I16x8 a, I16x8 b) {
  return {_mm_packus_epi16(a.v, b.v)};
}

// n bytes from any address, in the low bytes of a register; the others are zero.
template <int n>
PXM_INLINE __m128i loadBytes(const uint8_t* p) {
  if constexpr (n == 16) return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
  if constexpr (n == 8) return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
  if constexpr (n <= 4) {
    uint32_t bits = 0;
    memcpy(&bits, p, n);
    return _mm_cvtsi32_si128(static_cast<int>(bits));
  }
}

// The low eight bytes as the high bytes of lanes whose low bytes are zero.
PXM_INLINE I16x8 inHighBytes(__m128i bytes) {
  return {_mm_unpacklo_epi8(_mm_setzero_si128(), bytes)};
}

// Each of the low eight bytes twice.
PXM_INLINE __m128i duplicateBytes(__m128i bytes) {
  return _mm_unpacklo_epi8(bytes, bytes);
}

template <>
PXM_INLINE I16x8 loadLanes<I16x8>(const void* p) {
  return {_mm_load_si128(static_cast<const __m128i*>(p))};
}

template <>
PXM_INLINE I16x8 loadPixels<I16x8>(const uint8_t* p) {
  return {loadBytes<16>(p)};
}

// The upper eight bytes as the lower.
PXM_INLINE __m128i upperBytes(__m128i bytes) {
  return _mm_unpackhi_epi64(bytes, bytes);
}

// Sixteen pixels of three bytes as three planes. One round interleaves bytes i and i + 24 of 48;
// after four, the first of which is done by the loads, the bytes of a plane are neighbours.
struct Planes16 {
  __m128i first, second, third;

  PXM_INLINE void deinterleave() {
    const __m128i a = _mm_unpacklo_epi8(first, upperBytes(second));
    const __m128i b = _mm_unpacklo_epi8(upperBytes(first), third);
    third = _mm_unpacklo_epi8(second, upperBytes(third));
    first = a;
    second = b;
  }
};

PXM_INLINE __m128i loadInterleaved(const uint8_t* p, const uint8_t* q) {
  return _mm_unpacklo_epi8(loadBytes<8>(p), loadBytes<8>(q));
}

PXM_INLINE Planes16 planesOfSixteen(const uint8_t* p) {
  Planes16 planes = {loadInterleaved(p, p + 24), loadInterleaved(p + 8, p + 32),
                     loadInterleaved(p + 16, p + 40)};
  planes.deinterleave();
  planes.deinterleave();
  planes.deinterleave();
  return planes;
}

// The upper eight bytes as inHighBytes takes the lower.
PXM_INLINE I16x8 upperInHighBytes(__m128i bytes) {
  return {_mm_unpackhi_epi8(_mm_setzero_si128(), bytes)};
}

// The low n bytes to any address.
template <int n>
PXM_INLINE void storeBytes(uint8_t* p, __m128i bytes) {
  if constexpr (n == 16) _mm_storeu_si128(reinterpret_cast<__m128i*>(p), bytes);
  if constexpr (n == 8) _mm_storel_epi64(reinterpret_cast<__m128i*>(p), bytes);
  if constexpr (n <= 4) {
    const int bits = _mm_cvtsi128_si32(bytes);
    memcpy(p, &bits, n);
  }
}

// The first n pixels to any address.
template <int n>
PXM_INLINE void storePixels(uint8_t* p, I16x8 pixels) {
  storeBytes<2 * n>(p, pixels.v);
}

// Bytes of a and b interleaved: of their lower and of their upper halves.
PXM_INLINE __m128i interleaveLowBytes(__m128i a, __m128i b) {
  return _mm_unpacklo_epi8(a, b);
}
PXM_INLINE __m128i interleaveHighBytes(__m128i a, __m128i b) {
  return _mm_unpackhi_epi8(a, b);
}

// The same of lanes, by the names that registers of any width share.
PXM_INLINE I16x8 interleaveLowLanes(I16x8 a, I16x8 b) {
  return {_mm_unpacklo_epi16(a.v, b.v)};
}
PXM_INLINE I16x8 interleaveHighLanes(I16x8 a, I16x8 b) {
  return {_mm_unpackhi_epi16(a.v, b.v)};
}
PXM_INLINE I16x8 subtractBytes(I16x8 a, I16x8 b) {  // to 0 at the least
  return {_mm_subs_epu8(a.v, b.v)};
}
PXM_INLINE I16x8 interleaveLowBytes(I16x8 a, I16x8 b) {
  return {interleaveLowBytes(a.v, b.v)};
}
PXM_INLINE I16x8 interleaveHighBytes(I16x8 a, I16x8 b) {
  return {interleaveHighBytes(a.v, b.v)};
}

PXM_LEVEL_END

#endif
