// SPDX-License-Identifier: MIT
// Sixteen 16-bit lanes in one 256-bit register: the operations of the eight, by the same names.
#ifndef PXM_VECTOR_AVX2_LANES_INL
#define PXM_VECTOR_AVX2_LANES_INL

#include <immintrin.h>

#include "vector/sse/lanes.inl"

PXM_LEVEL_BEGIN

struct I16x16 {
  static constexpr int lanes = 16;
  __m256i v;
};

template <>
PXM_INLINE I16x16 broadcast<I16x16>(int value) {
  return {_mm256_set1_epi16(static_cast<short>(value))};
}

PXM_INLINE I16x16 operator+(I16x16 a, I16x16 b) {
  return {_mm256_add_epi16(a.v, b.v)};
}
PXM_INLINE I16x16 operator-(I16x16 a, I16x16 b) {
  return {_mm256_sub_epi16(a.v, b.v)};
}
PXM_INLINE I16x16 operator&(I16x16 a, I16x16 b) {
  return {_mm256_and_si256(a.v, b.v)};
}
PXM_INLINE I16x16 operator|(I16x16 a, I16x16 b) {
  return {_mm256_or_si256(a.v, b.v)};
}
PXM_INLINE I16x16 operator^(I16x16 a, I16x16 b) {
  return {_mm256_xor_si256(a.v, b.v)};
}
PXM_INLINE I16x16 average(I16x16 a, I16x16 b) {
  return {_mm256_avg_epu16(a.v, b.v)};
}
PXM_INLINE I16x16 LaneMulHi(I16x16 a, I16x16 b) {
  return {_mm256_mulhi_epi16(a.v, b.v)};
}

PXM_INLINE I16x16 LaneMulHiU(I16x16 a, I16x16 b) {
  return {_mm256_mulhi_epu16(a.v, b.v)};
}

template <int n>
PXM_INLINE I16x16 shiftLeft(I16x16 a) {
  return {_mm256_slli_epi16(a.v, n)};
}
template <int n>
PXM_INLINE I16x16 shiftRight(I16x16 a) {
  return {_mm256_srai_epi16(a.v, n)};
}
template <int n>
PXM_INLINE I16x16 shiftRightLogical(I16x16 a) {
  return {_mm256_srli_epi16(a.v, n)};
}

// In each half those of a and then those of b.
template <int factor>
PXM_INLINE I16x16 addNeighbours(I16x16 a, I16x16 b) {
  const __m256i factors = _mm256_set1_epi16(factor);
  return {_mm256_packs_epi32(_mm256_madd_epi16(a.v, factors), _mm256_madd_epi16(b.v, factors))};
}

template <>
PXM_INLINE I16x16 loadLanes<I16x16>(const void* p) {
  return {_mm256_load_si256(static_cast<const __m256i*>(p))};
}

PXM_INLINE I16x16 loadHalves(const uint8_t* low, const uint8_t* high) {
  return {_mm256_set_m128i(loadBytes<16>(high), loadBytes<16>(low))};
}

PXM_INLINE I16x16 load16Lanes(const uint8_t* p) {
  return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))};
}
template <>
PXM_INLINE I16x16 loadPixels<I16x16>(const uint8_t* p) {
  return load16Lanes(p);
}
PXM_INLINE void storePixels(uint8_t* p, I16x16 pixels) {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), pixels.v);
}

PXM_INLINE I16x8 lowHalf(I16x16 a) {
  return {_mm256_castsi256_si128(a.v)};
}
PXM_INLINE I16x8 highHalf(I16x16 a) {
  return {_mm256_extracti128_si256(a.v, 1)};
}

// Within each half.
PXM_INLINE I16x16 packUnsigned(I16x16 a, I16x16 b) {
  return {_mm256_packus_epi16(a.v, b.v)};
}
PXM_INLINE I16x16 interleaveLowLanes(I16x16 a, I16x16 b) {
  return {_mm256_unpacklo_epi16(a.v, b.v)};
}
PXM_INLINE I16x16 interleaveHighLanes(I16x16 a, I16x16 b) {
  return {_mm256_unpackhi_epi16(a.v, b.v)};
}
PXM_INLINE I16x16 subtractBytes(I16x16 a, I16x16 b) {  // to 0 at the least
  return {_mm256_subs_epu8(a.v, b.v)};
}
PXM_INLINE I16x16 interleaveLowBytes(I16x16 a, I16x16 b) {
  return {_mm256_unpacklo_epi8(a.v, b.v)};
}
PXM_INLINE I16x16 interleaveHighBytes(I16x16 a, I16x16 b) {
  return {_mm256_unpackhi_epi8(a.v, b.v)};
}

PXM_LEVEL_END

#endif
