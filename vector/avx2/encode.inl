// SPDX-License-Identifier: MIT
// Thirty-two columns of an encoder in registers of sixteen lanes. Operations on neighbours stay
// within the halves of a register; what they put in another order is put right once, as bytes.
#ifndef PXM_VECTOR_AVX2_ENCODE_INL
#define PXM_VECTOR_AVX2_ENCODE_INL

#include "encode/targets.inl"
#include "vector/avx2/lanes.inl"

PXM_TEXT_BEGIN

// Lanes of a and then those of b as bytes, clamped to 0 to 255.
PXM_INLINE __m256i bytesInOrder(I16x16 a, I16x16 b) {
  return _mm256_permute4x64_epi64(_mm256_packus_epi16(a.v, b.v), 0xD8);
}

// Sums of sixteen pairs of columns stand as 0 to 3, 8 to 11, 4 to 7, 12 to 15: chroma samples of
// the first kind in the low half, in order, and of the second in the high half.
PXM_INLINE __m256i chromaOfPairs(I16x16 first, I16x16 second) {
  return _mm256_permutevar8x32_epi32(_mm256_packus_epi16(first.v, second.v),
                                     _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
}

// Sums of eight groups of four stand in twos, 0 and 1, 4 and 5, and again, then 2 and 3, 6 and 7:
// eight samples of the first kind in the low bytes of a half, and of the second.
PXM_INLINE __m256i chromaOfFours(I16x16 first, I16x16 second) {
  const __m256i bytes = _mm256_packus_epi16(first.v, second.v);
  const __m128i low = _mm256_castsi256_si128(bytes), high = _mm256_extracti128_si256(bytes, 1);
  return _mm256_set_m128i(_mm_unpackhi_epi16(low, high), _mm_unpacklo_epi16(low, high));
}

template <int rows, int shift>
PXM_INLINE void storeThirtyTwo(const PlanarTarget<rows, shift>& target, ptrdiff_t x,
                               const __m256i (&luma)[rows], __m256i chroma) {
  for (int row = 0; row < rows; ++row)
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(target.y[row] + x), luma[row]);
  storeBytes<(32 >> shift)>(target.first + (x >> shift), _mm256_castsi256_si128(chroma));
  storeBytes<(32 >> shift)>(target.second + (x >> shift), _mm256_extracti128_si256(chroma, 1));
}

PXM_INLINE void storeThirtyTwo(const PackedTarget422& target, ptrdiff_t x, const __m256i (&luma)[1],
                               __m256i chroma) {
  const __m128i first = _mm256_castsi256_si128(chroma);
  const __m128i second = _mm256_extracti128_si256(chroma, 1);
  const __m128i left = inTurn(first, second), right = upperInTurn(first, second);
  const __m128i low = _mm256_castsi256_si128(luma[0]);
  const __m128i high = _mm256_extracti128_si256(luma[0], 1);
  uint8_t* const out = target.bytes + 2 * x;
  storeBytes<16>(out, inTurn(low, left));
  storeBytes<16>(out + 16, upperInTurn(low, left));
  storeBytes<16>(out + 32, inTurn(high, right));
  storeBytes<16>(out + 48, upperInTurn(high, right));
}

// What sixteen columns give to their luma and to chroma.
template <class Row>
PXM_INLINE auto sixteenColumns(const Row& row, ptrdiff_t x, I16x16 (&luma)[Row::rowCount]) {
  using Form = typename Row::Form;
  const auto upper = Form::pixels(load16Lanes(row.source[0] + 2 * x));
  luma[0] = upper.luma;
  if constexpr (Row::rowCount == 1) {
    return Form::columns(upper);
  } else {
    const auto lower = Form::pixels(load16Lanes(row.source[1] + 2 * x));
    luma[1] = lower.luma;
    return Form::columns(upper, lower);
  }
}

template <class Row>
PXM_INLINE void thirtyTwoColumns(const Row& row, ptrdiff_t x) {
  using Form = typename Row::Form;
  constexpr int rows = Row::rowCount, groupSize = rows * Row::columns;
  I16x16 left[rows], right[rows];
  const auto a = sixteenColumns(row, x, left);
  const auto b = sixteenColumns(row, x + 16, right);
  const auto pairs = Form::neighbours(a, b);
  __m256i luma[rows], chroma;
  for (int r = 0; r < rows; ++r) luma[r] = bytesInOrder(left[r], right[r]);
  if constexpr (Row::columns == 2) {
    const auto c = Form::template chroma<groupSize>(pairs);
    chroma = chromaOfPairs(c.first, c.second);
  } else {
    const auto c = Form::template chroma<groupSize>(Form::neighbours(pairs, pairs));
    chroma = chromaOfFours(c.first, c.second);
  }
  storeThirtyTwo(row.target, x, luma, chroma);
}

PXM_TEXT_END

#endif
