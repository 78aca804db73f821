// SPDX-License-Identifier: MIT
// Rows of pixels, iteration by iteration: samples to lanes, then chain and packer. What blocks do
// not cover is scalar.
#ifndef PXM_VECTOR_DECODE_ROW_INL
#define PXM_VECTOR_DECODE_ROW_INL

#include "decode/row.inl"
#include "vector/decode/pack.inl"
#include "vector/decode/plan.inl"
#include "vector/decode/source.inl"
#include "vector/lanes.inl"
#include "vector/scratch.inl"

PXM_LEVEL_BEGIN

// A pixel by itself.
template <class Form, class Packer>
PXM_SHARED uint16_t packedPixel(Packer packer, Chroma chroma, int y, int row, ptrdiff_t column) {
  return packer.pack(decodePixel<Form>(y, chroma), row, column);
}

// How a row is done quickly: with a loop for each channel order and software pipelining; columns of
// a remainder come with those before them, and a single one by itself.
struct Quick {
  static constexpr bool isPipelined = true;
  static constexpr bool reloadsColumns = !isSmall;
  static constexpr bool hasSingleColumns = true;
  template <class Iteration>
  PXM_INLINE static void withOrder(bool isBgr, Iteration iteration) {
    if (isBgr)
      iteration(FixedOrder<true>());
    else
      iteration(FixedOrder<false>());
  }
};

// How it is done in little code.
struct Small {
  static constexpr bool isPipelined = false;
  static constexpr bool reloadsColumns = false;
  static constexpr bool hasSingleColumns = false;
  template <class Iteration>
  PXM_INLINE static void withOrder(bool isBgr, Iteration iteration) {
    iteration(MaskedOrder{isBgr});
  }
};

// The rows that share a row of chroma. `step` columns are worked on in an iteration, whatever the
// blocks of the plan: these only say which columns are not scalar, and in which order two rows are
// stored. Chains that are bit-exact with their form take all columns.
template <class SourceRows, class Form, class Packer, class TailForm, class Style = Quick>
struct SimdRow : ScalarRow<SourceRows, Form, Packer, TailForm> {
  using Scalar = ScalarRow<SourceRows, Form, Packer, TailForm>;
  using Scalar::rowCount;
  using L = WideLanes;
  using Chosen = ChainOf<Form>;
  using Chain = typename Chosen::Chain;
  static constexpr BlockPlan plan = PlanOf<SourceRows, Form>::plan;
  static constexpr int step = 2 * L::lanes;

  PXM_INLINE void convert(int width, int overrun = 0) const {
    if constexpr (Chosen::isExact) {
      const ptrdiff_t columns = ptrdiff_t{width} + overrun;
      const int single = Style::hasSingleColumns && (columns & (step - 1)) == 1;
      inIterations(columns - single);
      if (single) lastColumn(columns - 1);
    } else {
      const int columns = VectorColumns(plan, width);
      inIterations(columns + Chosen::columnsTooMany(width));
      this->columns(columns, ptrdiff_t{width} + overrun);
    }
  }

 private:
  // The remainder goes through the same loop, to a scratch block. Its samples are taken together
  // with columns before it, where there are as many and the block keeps the phase of the dither, or
  // else from a scratch block as well. That is loaded before the loop, so that its bytes are stored
  // by the time when they are read as wholes.
  PXM_INLINE void inIterations(ptrdiff_t columns) const {
    const ptrdiff_t whole = columns & -step;
    const int remainder = static_cast<int>(columns & (step - 1));
    SourceScratch<SourceRows, step> samples;
    uint8_t pixels[rowCount][2 * step];
    SourceRows last = this->source;
    int skipped = 0;
    if (remainder != 0) {
      if (Style::reloadsColumns && whole != 0 && columns % 4 == 0) {
        last = from(last, columns - step);
        skipped = step - remainder;
      } else {
        samples.load(last, whole, remainder);
      }
    }
    Scalar row = *this;
    ptrdiff_t end = whole;
    for (bool isLast = false;; isLast = true) {
      iterations(row, end);
      if (isLast || remainder == 0) break;
      row.source = last;
      for (int r = 0; r < rowCount; ++r) row.out[r].pixels = pixels[r];
      end = step;
    }
    if (remainder != 0) storeRemainder(pixels, skipped, whole, remainder);
  }

  PXM_INLINE void storeRemainder(const uint8_t (&pixels)[rowCount][2 * step], int skipped,
                                 ptrdiff_t x, int n) const {
    if constexpr (rowCount == 1) {
      copyBytes(pixelsAt(*this, 0, x), pixels[0] + 2 * skipped, 2 * n);
    } else {
      constexpr BlockPlan ofBgr = planInOrder<SourceRows, Form, Packer, true>();
      constexpr BlockPlan ofRgb = planInOrder<SourceRows, Form, Packer, false>();
      const auto copy = ofBgr.main != ofRgb.main && this->packer.isBgr() ? copyPixelPairs<ofBgr>
                                                                         : copyPixelPairs<ofRgb>;
      copy(pixelsAt(*this, 0, x), pixels[0] + 2 * skipped, pixelsAt(*this, 1, x),
           pixels[1] + 2 * skipped, n);
    }
  }

  PXM_INLINE void lastColumn(ptrdiff_t x) const {
    const Chroma chroma = Scalar::group > 1 ? this->source.tailChroma(x) : this->source.chroma(x);
    for (int row = 0; row < rowCount; ++row)
      this->out[row].store(x, packedPixel<Form>(this->packer, chroma, this->source.y(row, x),
                                                this->out[row].number, x));
  }

  // Whole iterations from the first column to `end`. At the end of a pipeline the last samples are
  // loaded once more.
  PXM_INLINE static void iterations(const Scalar& row, ptrdiff_t end) {
    if (end == 0) return;
    if constexpr (Style::isPipelined && isPipelined<SourceRows>) {
      auto samples = samplesAt(row, 0);
      for (ptrdiff_t x = 0; x < end; x += step) {
        const auto next = samplesAt(row, x < end - step ? x + step : x);
        iteration(row, x, samples);
        samples = next;
      }
    } else {
      for (ptrdiff_t x = 0; x < end; x += step) iteration(row, x, samplesAt(row, x));
    }
  }

  PXM_INLINE static auto samplesAt(const Scalar& row, ptrdiff_t x) {
    const auto samples = samplesOf<L>(row.source, x);
    if constexpr (Chain::pipelinesTerms)
      return withTerms<Chain>(samples);
    else
      return samples;
  }

  template <class Samples>
  PXM_INLINE static void iteration(const Scalar& row, ptrdiff_t x, const Samples& samples) {
    Style::withOrder(row.packer.isBgr(), [&]<class Order>(const Order& order) PXM_INLINE_LAMBDA {
      const auto terms = termsOf<Chain>(samples);
      const auto luma = lumaLanes<0>(samples);
      if constexpr (rowCount == 1) {
        storeRow(pixelsAt(row, 0, x), packed(row, order, 0, luma, terms));
      } else {
        const auto lower = lumaLanes<1>(samples);
        const auto upperPixels = packed(row, order, 0, luma, terms);
        const auto lowerPixels = packed(row, order, 1, lower, terms);
        constexpr BlockPlan blocks = planInOrder<SourceRows, Form, Packer, Order::isAlwaysBgr>();
        storeRows<blocks.main>(pixelsAt(row, 0, x), upperPixels, pixelsAt(row, 1, x), lowerPixels);
      }
    });
  }

  template <int row, class Samples>
  PXM_INLINE static auto lumaLanes(const Samples& samples) {
    const auto y = lumaOf<row>(samples).template scaled<Chain::lumaScale>();
    return ByParity{Chain::luma(y.even), Chain::luma(y.odd)};
  }
  template <class Order, class Terms>
  PXM_INLINE static PackedColumns<L> packed(const Scalar& row, const Order& order, int number,
                                            const ByParity<L>& luma, const Terms& terms) {
    return packColumns(order, LaneRow<Packer, L>(row.out[number].number), luma, terms);
  }

  PXM_INLINE static uint8_t* pixelsAt(const Scalar& row, int number, ptrdiff_t x) {
    return row.out[number].pixels + 2 * x;
  }
};

PXM_LEVEL_END

#endif
