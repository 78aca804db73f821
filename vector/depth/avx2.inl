// SPDX-License-Identifier: MIT
// Depth conversion in 256-bit registers: the byte shuffles of the 128-bit kernels, with half of the
// pixels in each half. The remainder is theirs.
#ifndef PXM_VECTOR_DEPTH_AVX2_INL
#define PXM_VECTOR_DEPTH_AVX2_INL

#include "vector/avx2/lanes.inl"
#include "vector/depth/ssse3.inl"

PXM_LEVEL_BEGIN

PXM_INLINE __m256i inBothHalves(__m128i a) {
  return _mm256_broadcastsi128_si256(a);
}
PXM_INLINE void storeHalves(uint8_t* low, uint8_t* high, __m256i bytes) {
  asm("" : "+x"(bytes));  // Clang would join two stores into one, by way of a slower shuffle
  storeBytes<16>(low, _mm256_castsi256_si128(bytes));
  storeBytes<16>(high, _mm256_extracti128_si256(bytes, 1));
}

struct WideSpreadPixels {
  __m256i first, second;
};

PXM_INLINE WideSpreadPixels spreadHalves(const uint8_t* low, const uint8_t* high) {
  const I16x16 words = loadHalves(low, high);
  const auto [lowBytes, highBytes] = spreadWords(words);
  return {_mm256_unpacklo_epi16(lowBytes.v, highBytes.v),
          _mm256_unpackhi_epi16(lowBytes.v, highBytes.v)};
}

template <int gap>
PXM_INLINE __m256i twelveBytes(__m256i spread) {
  return _mm256_shuffle_epi8(spread, inBothHalves(twelvePlaces<gap>()));
}

PXM_INLINE I16x16 multiplyAddBytes(I16x16 a, int low, int high) {
  return {_mm256_maddubs_epi16(a.v, _mm256_set1_epi16(static_cast<short>(high << 8 | low)))};
}

// Sixteen pixels in each half.
PXM_INLINE void expandThirtyTwo(const uint8_t* source, uint8_t* out) {
  const WideSpreadPixels left = spreadHalves(source, source + 32);
  const WideSpreadPixels right = spreadHalves(source + 16, source + 48);
  const __m256i a = twelveBytes<0>(left.first), b = twelveBytes<1>(left.second);
  const __m256i c = twelveBytes<2>(right.first), d = twelveBytes<3>(right.second);
  storeHalves(out, out + 48, _mm256_alignr_epi8(b, a, 4));
  storeHalves(out + 16, out + 64, _mm256_alignr_epi8(c, b, 8));
  storeHalves(out + 32, out + 80, _mm256_alignr_epi8(d, c, 12));
}

// Eight pixels in each half.
PXM_INLINE void packSixteen(const uint8_t* source, uint8_t* out) {
  const __m256i a =
      _mm256_shuffle_epi8(loadHalves(source, source + 24).v, inBothHalves(splitPlaces<0>()));
  const __m256i b =
      _mm256_shuffle_epi8(loadHalves(source + 8, source + 32).v, inBothHalves(splitPlaces<4>()));
  storePixels(
      out, packedFields(I16x16{_mm256_unpacklo_epi64(a, b)}, I16x16{_mm256_unpackhi_epi64(a, b)}));
}

PXM_INLINE void expandRow(const uint8_t* source, uint8_t* out, int width) {
  const ptrdiff_t x =
      inBlocks<32>(0, width, [=](ptrdiff_t i) { expandThirtyTwo(source + 2 * i, out + 3 * i); });
  expandFrom(x, source, out, width);
}

PXM_INLINE void packRow(const uint8_t* source, uint8_t* out, int width) {
  const ptrdiff_t x =
      inBlocks<16>(0, width, [=](ptrdiff_t i) { packSixteen(source + 3 * i, out + 2 * i); });
  packFrom(x, source, out, width);
}

PXM_LEVEL_END

#endif
