// SPDX-License-Identifier: MIT
// Luma and chroma of 32 columns to bytes. Operations on neighbours stay within the halves of a
// register; what they put in another order is put right once, as bytes.
#ifndef PXM_VECTOR_AVX2_STORE_INL
#define PXM_VECTOR_AVX2_STORE_INL

#include "vector/avx2/lanes.inl"
#include "vector/sse/store.inl"

PXM_LEVEL_BEGIN

PXM_INLINE __m256i lumaInOrder(I16x16 a, I16x16 b) {
  return _mm256_permute4x64_epi64(packUnsigned(a, b).v, 0xD8);
}

// Sums of sixteen pairs of columns stand as 0 to 3, 8 to 11, 4 to 7, 12 to 15.
PXM_INLINE ChromaBytes chromaOfPairs(I16x16 first, I16x16 second) {
  const __m256i bytes = _mm256_permutevar8x32_epi32(packUnsigned(first, second).v,
                                                    _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
  return {_mm256_castsi256_si128(bytes), _mm256_extracti128_si256(bytes, 1)};
}

// Sums of eight groups of four stand in twos, 0 and 1, 4 and 5, and again, then 2 and 3, 6 and 7.
PXM_INLINE ChromaBytes chromaOfFours(I16x16 first, I16x16 second) {
  const __m256i bytes = packUnsigned(first, second).v;
  const __m128i low = _mm256_castsi256_si128(bytes), high = _mm256_extracti128_si256(bytes, 1);
  return {_mm_unpacklo_epi16(low, high), _mm_unpackhi_epi16(low, high)};
}

PXM_INLINE void storeLuma(uint8_t* p, __m256i luma) {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), luma);
}

PXM_INLINE void storeInterleaved(uint8_t* p, __m256i luma, const ChromaBytes& chroma) {
  const __m128i left = interleaveLowBytes(chroma.first, chroma.second);
  const __m128i right = interleaveHighBytes(chroma.first, chroma.second);
  const __m128i low = _mm256_castsi256_si128(luma), high = _mm256_extracti128_si256(luma, 1);
  storeBytes<16>(p, interleaveLowBytes(low, left));
  storeBytes<16>(p + 16, interleaveHighBytes(low, left));
  storeBytes<16>(p + 32, interleaveLowBytes(high, right));
  storeBytes<16>(p + 48, interleaveHighBytes(high, right));
}

PXM_LEVEL_END

#endif
