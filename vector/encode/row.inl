// SPDX-License-Identifier: MIT
// Rows of pixels, iteration by iteration: which pixels reach which lanes, and where their samples
// go. What blocks do not cover is scalar.
#ifndef PXM_VECTOR_ENCODE_ROW_INL
#define PXM_VECTOR_ENCODE_ROW_INL

#include "encode/row.inl"
#include "vector/encode/plan.inl"
#include "vector/encode/target.inl"
#include "vector/lanes.inl"
#include "vector/scratch.inl"

PXM_LEVEL_BEGIN

// The rows that share a row of chroma. An iteration samples two registers of columns, or, where
// registers are narrow and four columns share their chroma, four: their sums fill a register.
template <class Pixels, class TargetRow, template <int> class GroupOf, Tail tail>
struct SimdRow : ScalarRow<Pixels, TargetRow, GroupOf, tail> {
  using Scalar = ScalarRow<Pixels, TargetRow, GroupOf, tail>;
  using Scalar::columns, Scalar::rowCount;
  using L = WideLanes;
  using Form = typename LaneFormOf<Pixels, typename Scalar::Group>::Type;
  using Parts = LaneParts<L>;
  static constexpr BlockPlan plan = EncodePlan<typename Scalar::Group, TargetRow>::plan;
  static constexpr int sampled = 2 * L::lanes;
  static constexpr int step = columns == 4 && sampled == 16 ? 2 * sampled : sampled;

  PXM_INLINE void convert(int width) const {
    const int blocks = VectorColumns(plan, width);
    inIterations(blocks);
    this->groups(blocks, width);
  }

 private:
  // The remainder goes through the same loop, to a scratch block. Its pixels are taken together
  // with columns before it, where there are as many, or else from a scratch block as well.
  PXM_INLINE void inIterations(int end) const {
    const ptrdiff_t whole = end & -step;
    const int remainder = end & (step - 1);
    TargetScratch<TargetRow, step> samples;
    uint8_t pixels[rowCount][2 * step];
    Scalar last = *this;
    int skipped = 0;
    if (whole != 0) {
      skipped = step - remainder;
      for (int r = 0; r < rowCount; ++r) last.source[r] += 2 * ptrdiff_t{end - step};
    } else if (remainder != 0) {
      for (int r = 0; r < rowCount; ++r) {
        copyBytes(pixels[r], this->source[r], 2 * remainder);
        last.source[r] = pixels[r];
      }
    }
    samples.take(last.target);
    Scalar row = *this;
    ptrdiff_t stop = whole;
    for (bool isLast = false;; isLast = true) {
      for (ptrdiff_t x = 0; x < stop; x += step) iteration(row, x);
      if (isLast || remainder == 0) break;
      row = last;
      stop = step;
    }
    if (remainder != 0) samples.give(this->target, whole, remainder, skipped);
  }

  // Of the columns that are sampled at once: luma as bytes, and parts of chroma for pairs of
  // columns.
  struct Luma {
    decltype(lumaInOrder(L(), L())) of[rowCount];
  };
  struct Sampled {
    Luma luma;
    Parts pairs;
  };

  PXM_INLINE static void iteration(const Scalar& row, ptrdiff_t x) {
    const Sampled left = sample(row, x);
    if constexpr (columns == 2) {
      const auto c = chroma(left.pairs);
      store<step>(row.target, x, left.luma, chromaOfPairs(c.first, c.second));
    } else if constexpr (step == sampled) {
      const auto c = chroma(Form::neighbours(left.pairs, left.pairs));
      store<step>(row.target, x, left.luma, chromaOfFours(c.first, c.second));
    } else {
      const Sampled right = sample(row, x + sampled);
      const auto c = chroma(Form::neighbours(left.pairs, right.pairs));
      storeLuma(row.target.y[0] + x, left.luma.of[0]);
      storeLuma(row.target.y[0] + x + sampled, right.luma.of[0]);
      storeChroma<step>(row.target, x, chromaOfFours(c.first, c.second));
    }
  }

  PXM_INLINE static auto chroma(const Parts& sums) {
    return Form::template chroma<rowCount * columns>(sums);
  }

  PXM_INLINE static Sampled sample(const Scalar& row, ptrdiff_t x) {
    L left[rowCount], right[rowCount];
    const Parts a = parts(row, x, left);
    const Parts b = parts(row, x + L::lanes, right);
    Sampled s = {{}, Form::neighbours(a, b)};
    for (int r = 0; r < rowCount; ++r) s.luma.of[r] = lumaInOrder(left[r], right[r]);
    return s;
  }

  // What the columns of a register give to luma, row by row, and to chroma.
  PXM_INLINE static Parts parts(const Scalar& row, ptrdiff_t x, L (&luma)[rowCount]) {
    const auto upper = Form::pixels(loadPixels<L>(row.source[0] + 2 * x));
    luma[0] = upper.luma;
    if constexpr (rowCount == 1) {
      return Form::columns(upper);
    } else {
      const auto lower = Form::pixels(loadPixels<L>(row.source[1] + 2 * x));
      luma[1] = lower.luma;
      return Form::columns(upper, lower);
    }
  }
};

PXM_LEVEL_END

#endif
