// SPDX-License-Identifier: MIT
// Luma and chroma of sixteen columns, or of 32 where four share their chroma, to bytes.
#ifndef PXM_VECTOR_SSE_STORE_INL
#define PXM_VECTOR_SSE_STORE_INL

#include "vector/sse/lanes.inl"

PXM_LEVEL_BEGIN

// Samples of the first kind and of the second, in the low bytes.
struct ChromaBytes {
  __m128i first, second;
};

// Luma of neighbouring registers as bytes in the order of columns.
PXM_INLINE __m128i lumaInOrder(I16x8 a, I16x8 b) {
  return packUnsigned(a, b).v;
}

// Chroma of pairs of columns, or of fours, whose parts `addNeighbours` made.
PXM_INLINE ChromaBytes chromaOfPairs(I16x8 first, I16x8 second) {
  const __m128i bytes = packUnsigned(first, second).v;
  return {bytes, upperBytes(bytes)};
}
PXM_INLINE ChromaBytes chromaOfFours(I16x8 first, I16x8 second) {
  return chromaOfPairs(first, second);
}

PXM_INLINE void storeLuma(uint8_t* p, __m128i luma) {
  storeBytes<16>(p, luma);
}

// Luma, and chroma of pairs of columns, interleaved.
PXM_INLINE void storeInterleaved(uint8_t* p, __m128i luma, const ChromaBytes& chroma) {
  const __m128i pairs = interleaveLowBytes(chroma.first, chroma.second);
  storeBytes<16>(p, interleaveLowBytes(luma, pairs));
  storeBytes<16>(p + 16, interleaveHighBytes(luma, pairs));
}

PXM_LEVEL_END

#endif
