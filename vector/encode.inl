// SPDX-License-Identifier: MIT
// Rows of pixels, block by block: which pixels reach which lanes, and where their samples go. What
// no block covers is the scalar code's.
#ifndef PXM_VECTOR_ENCODE_INL
#define PXM_VECTOR_ENCODE_INL

#include "encode/groups.inl"
#include "vector/encode_forms.inl"

PXM_TEXT_BEGIN

// Of at most sixteen columns: luma samples of each row, and parts of chroma for pairs of columns.
template <int rows>
struct LaneColumns {
  LaneParts<I16x8> pairs;
  __m128i luma[rows];

  template <class Form>
  PXM_INLINE LaneColumns(Form, const LaneParts<I16x8>& a, const LaneParts<I16x8>& b,
                         const I16x8 (&left)[rows], const I16x8 (&right)[rows])
      : pairs(Form::neighbours(a, b)) {
    for (int row = 0; row < rows; ++row) luma[row] = saturatedBytes(left[row], right[row]);
  }
};

// Chroma comes as bytes, samples of the first kind in the low half and of the second in the high
// half.
template <int n, int rows, int shift>
PXM_INLINE void storeLuma(const PlanarTarget<rows, shift>& target, ptrdiff_t x,
                          const LaneColumns<rows>& c) {
  for (int row = 0; row < rows; ++row) storeBytes<n>(target.y[row] + x, c.luma[row]);
}
template <int n, int rows, int shift>
PXM_INLINE void storeChroma(const PlanarTarget<rows, shift>& target, ptrdiff_t x,
                            const LaneColumns<rows>&, __m128i chroma) {
  storeBytes<(n >> shift)>(target.first + (x >> shift), chroma);
  storeBytes<(n >> shift)>(target.second + (x >> shift), upperBytes(chroma));
}

// Interleaved, both go out together.
template <int n>
PXM_INLINE void storeLuma(const PackedTarget422&, ptrdiff_t, const LaneColumns<1>&) {}
template <int n>
PXM_INLINE void storeChroma(const PackedTarget422& target, ptrdiff_t x, const LaneColumns<1>& c,
                            __m128i chroma) {
  const __m128i pairs = inTurn(chroma, upperBytes(chroma));
  storeBytes<16>(target.bytes + 2 * x, inTurn(c.luma[0], pairs));
  if constexpr (n == 16) storeBytes<16>(target.bytes + 2 * x + 16, upperInTurn(c.luma[0], pairs));
}

// The rows that share a row of chroma.
template <class Pixels, class TargetRow, template <int> class GroupOf, Rest rest>
struct EncodedBlocks : Groups<Pixels, TargetRow, GroupOf, rest> {
  using Scalar = Groups<Pixels, TargetRow, GroupOf, rest>;
  using Form = typename LaneFormOf<Pixels, typename Scalar::Group>::Type;
  using Parts = LaneParts<I16x8>;
  static constexpr int rowCount = Scalar::rowCount;
  static constexpr Cut cut = EncodeCut<typename Scalar::Group, TargetRow>::cut;
  static constexpr bool restFitsBlocks = false;
  static constexpr bool repeatsLastBlock = false;
  static constexpr int widest = hasWideLanes ? 32 : 0;

  PXM_INLINE ptrdiff_t widestBlocks(ptrdiff_t x, ptrdiff_t end) const {
    for (; x + widest <= end; x += widest) thirtyTwoColumns(*this, x);
    return x;
  }

  // Four columns share their chroma in 4:1:1: the sums of 32 fill a register.
  template <int n>
  PXM_INLINE void block(ptrdiff_t x) const {
    if constexpr (n == 32) {
      const LaneColumns<rowCount> left = sample<16>(x), right = sample<16>(x + 16);
      storeLuma<16>(this->target, x, left);
      storeLuma<16>(this->target, x + 16, right);
      storeChroma<32>(this->target, x, right, chroma(Form::neighbours(left.pairs, right.pairs)));
    } else {
      const LaneColumns<rowCount> c = sample<n>(x);
      storeLuma<n>(this->target, x, c);
      if constexpr (Scalar::columns == 2) storeChroma<n>(this->target, x, c, chroma(c.pairs));
      if constexpr (Scalar::columns == 4)
        storeChroma<n>(this->target, x, c, chroma(Form::neighbours(c.pairs, c.pairs)));
    }
  }

 private:
  PXM_INLINE static __m128i chroma(const Parts& sums) {
    const LaneChromaPair<I16x8> c = Form::template chroma<rowCount * Scalar::columns>(sums);
    return saturatedBytes(c.first, c.second);
  }

  template <int n>
  PXM_INLINE LaneColumns<rowCount> sample(ptrdiff_t x) const {
    I16x8 left[rowCount];
    if constexpr (n == 16) {
      I16x8 right[rowCount];
      const Parts a = eightColumns<8>(x, left);
      const Parts b = eightColumns<8>(x + 8, right);
      return LaneColumns<rowCount>(Form(), a, b, left, right);
    } else {
      const Parts a = eightColumns<n>(x, left);
      return LaneColumns<rowCount>(Form(), a, a, left, left);
    }
  }

  // At most eight columns of all rows.
  template <int n>
  PXM_INLINE Parts eightColumns(ptrdiff_t x, I16x8 (&luma)[rowCount]) const {
    const auto upper = pixels<n>(0, x);
    luma[0] = upper.luma;
    if constexpr (rowCount == 1) return Form::columns(upper);
    if constexpr (rowCount == 2) {
      const auto lower = pixels<n>(1, x);
      luma[1] = lower.luma;
      return Form::columns(upper, lower);
    }
  }

  template <int n>
  PXM_INLINE auto pixels(int row, ptrdiff_t x) const {
    return Form::pixels(I16x8{loadBytes<2 * n>(this->source[row] + 2 * x)});
  }
};

PXM_TEXT_END

#endif
