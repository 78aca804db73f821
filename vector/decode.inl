// SPDX-License-Identifier: MIT
// Rows of pixels, block by block: which samples reach which lanes, then chain and packer. What no
// block covers is the scalar code's.
#ifndef PXM_VECTOR_DECODE_INL
#define PXM_VECTOR_DECODE_INL

#include "decode/columns.inl"
#include "vector/forms.inl"
#include "vector/packers.inl"
#include "vector/sse/columns.inl"
#include "vector/walk.inl"

PXM_TEXT_BEGIN

// What n columns of planes load: luma of one row or two, and chroma of each column or of pairs of
// columns. (Flat, as the others are: GCC keeps nested arrays in memory.)
template <class L, class Chroma>
struct PlanarSamples {
  PairedBytes<L> upper, lower;
  Chroma cb, cr;
};

template <class L, int n, int rows>
PXM_INLINE PairedBytes<L> lastLuma(const Bytes (&luma)[rows], ptrdiff_t x) {
  return Loads<L>::template columns<n>(luma[rows - 1] + x);
}
template <class L, int n, int rows>
PXM_INLINE PlanarSamples<L, PairedBytes<L>> samplesOf(const PlanarRows<rows, 0>& source,
                                                      ptrdiff_t x) {
  return {Loads<L>::template columns<n>(source.luma[0] + x), lastLuma<L, n>(source.luma, x),
          Loads<L>::template columns<n>(source.cb + x),
          Loads<L>::template columns<n>(source.cr + x)};
}
template <class L, int n, int rows, int shift>
PXM_INLINE PlanarSamples<L, L> samplesOf(const PlanarRows<rows, shift>& source, ptrdiff_t x) {
  return {Loads<L>::template columns<n>(source.luma[0] + x), lastLuma<L, n>(source.luma, x),
          Loads<L>::template chroma<n, shift>(source.cb + (x >> shift)),
          Loads<L>::template chroma<n, shift>(source.cr + (x >> shift))};
}
template <class L, int n>
PXM_INLINE InterleavedSamples<L> samplesOf(const PackedRow422& source, ptrdiff_t x) {
  return Loads<L>::template interleaved<n>(source.samples + 2 * x);
}
template <class L, int n>
PXM_INLINE SplitPlanes<L> samplesOf(const PackedRow444& source, ptrdiff_t x) {
  return Loads<L>::template planes<n>(source.samples + 3 * x);
}

template <int row, class L, class Chroma>
PXM_INLINE PairedBytes<L> lumaOf(const PlanarSamples<L, Chroma>& samples) {
  return row == 0 ? samples.upper : samples.lower;
}
template <int row, class L>
PXM_INLINE PairedBytes<L> lumaOf(const InterleavedSamples<L>& samples) {
  return samples.luma;
}
template <int row, class L>
PXM_INLINE SplitBytes<L> lumaOf(const SplitPlanes<L>& planes) {
  return planes.first;
}

// The terms of chroma, of each column or of pairs of columns.
template <class Chain, class Samples>
PXM_INLINE auto termsOfColumns(const Samples& cb, const Samples& cr) {
  const auto u = cb.centred().template scaled<8>(), v = cr.centred().template scaled<8>();
  return ByParity{Chain::chroma(u.even, v.even), Chain::chroma(u.odd, v.odd)};
}
template <class Chain, class L>
PXM_INLINE ByParity<LaneTerms<L>> termsOf(const PlanarSamples<L, PairedBytes<L>>& samples) {
  return termsOfColumns<Chain>(samples.cb, samples.cr);
}
template <class Chain, class L>
PXM_INLINE ByParity<LaneTerms<L>> termsOf(const SplitPlanes<L>& planes) {
  return termsOfColumns<Chain>(planes.second, planes.third);
}
template <class Chain, class L>
PXM_INLINE LaneTerms<L> termsOf(const PlanarSamples<L, L>& samples) {
  const L centre = all<L>(0x8000);
  return Chain::chroma(samples.cb ^ centre, samples.cr ^ centre);
}
template <class Chain, class L>
PXM_INLINE LaneTerms<L> termsOf(const InterleavedSamples<L>& samples) {
  const ByParity<L> chroma = samples.chroma.centred().template scaled<8>();
  return Chain::chroma(chroma.even, chroma.odd);
}

// Samples of planes with the terms at hand.
template <class L>
struct SamplesAndTerms {
  PairedBytes<L> upper, lower;
  L red, green, blue;
};
template <class Chain, class L>
PXM_INLINE SamplesAndTerms<L> withTerms(const PlanarSamples<L, L>& samples) {
  const LaneTerms<L> terms = termsOf<Chain>(samples);
  return {samples.upper, samples.lower, terms.red, terms.green, terms.blue};
}
template <int row, class L>
PXM_INLINE PairedBytes<L> lumaOf(const SamplesAndTerms<L>& samples) {
  return row == 0 ? samples.upper : samples.lower;
}
template <class Chain, class L>
PXM_INLINE LaneTerms<L> termsOf(const SamplesAndTerms<L>& samples) {
  return {samples.red, samples.green, samples.blue};
}

// Blocks are read one ahead, so that loads, regrouping and terms that are late overlap with the
// arithmetic of the block before. Three planes of full size are at hand soon enough.
template <class SourceRows>
constexpr bool isReadAhead = true;
template <>
constexpr bool isReadAhead<PlanarRows<1, 0>> = false;

// The rows that share a row of chroma. Blocks of a family cover its columns as its cut tells; up to
// `columnsAtOnce` of them are worked on at once.
template <class SourceRows, class Form, class Packer, class RestForm,
          Cut familyCut = cutOf<SourceRows, typename ChainOf<Form>::Type>,
          int columnsAtOnce = hasWideLanes ? 32 : 16>
struct Blocks : Columns<SourceRows, Form, Packer, RestForm> {
  using Scalar = Columns<SourceRows, Form, Packer, RestForm>;
  using Chain = typename ChainOf<Form>::Type;
  static constexpr Cut cut = familyCut;
  // Two rows that overlap are written in turn, two columns at a time where no block is told.
  static constexpr bool restFitsBlocks =
      ChainOf<Form>::isTheForm && (Scalar::rowCount == 1 || isSmaller(cut, 4));
  static constexpr bool repeatsLastBlock = ChainOf<Form>::repeatsLastBlock;
  static constexpr int widest = columnsAtOnce;

  PXM_INLINE ptrdiff_t widestBlocks(ptrdiff_t x, ptrdiff_t end) const {
    if constexpr (isReadAhead<SourceRows>) {
      return blocksReadAhead(x, end);
    } else {
      for (; x + widest <= end; x += widest) block<widest>(x);
      return x;
    }
  }

  template <int n>
  PXM_INLINE void block(ptrdiff_t x) const {
    convert<n>(x, samplesAt<n>(x));
  }

  // Required: where the last whole block is one of four columns, one of two follows it, beyond the
  // region. Its samples are what follows in memory.
  PXM_INLINE void oneBlockTooMany(ptrdiff_t x, int width) const {
    if ((width & 6) == 4) block<2>(x);
  }

 private:
  template <int n>
  PXM_INLINE auto samplesAt(ptrdiff_t x) const {
    const auto samples = samplesOf<typename LanesFor<n>::Type, n>(this->source, x);
    if constexpr (Chain::termsAreLate)
      return withTerms<Chain>(samples);
    else
      return samples;
  }

  // At the end the last block is read once more.
  PXM_INLINE ptrdiff_t blocksReadAhead(ptrdiff_t x, ptrdiff_t end) const {
    if (end - x < widest) return x;
    const ptrdiff_t last = x + ((end - x) & -widest) - widest;
    auto samples = samplesAt<widest>(x);
    for (; x <= last; x += widest) {
      const auto next = samplesAt<widest>(x < last ? x + widest : last);
      convert<widest>(x, samples);
      samples = next;
    }
    return x;
  }

  // Whole turns know their colour order, smaller blocks ask for it.
  template <int n, class Samples>
  PXM_INLINE void convert(ptrdiff_t x, const Samples& samples) const {
    if constexpr (n < widest)
      convertInOrder<n>(this->packer.isBgr(), x, samples);
    else if (this->packer.isBgr())
      convertInOrder<n>(true, x, samples);
    else
      convertInOrder<n>(false, x, samples);
  }

  template <int n, class Samples>
  PXM_INLINE void convertInOrder(bool isBgr, ptrdiff_t x, const Samples& samples) const {
    const auto terms = termsOf<Chain>(samples);
    const auto luma = lumaLanes<0>(samples);
    if constexpr (Scalar::rowCount == 1) {
      storeRow<n>(pixelsAt(0, x), packed(isBgr, 0, luma, terms));
    } else {
      const auto lower = lumaLanes<1>(samples);
      const auto upperPixels = packed(isBgr, 0, luma, terms);
      const auto lowerPixels = packed(isBgr, 1, lower, terms);
      storeRows<n, cut.main>(pixelsAt(0, x), upperPixels, pixelsAt(1, x), lowerPixels);
    }
  }

  template <int row, class Samples>
  PXM_INLINE static auto lumaLanes(const Samples& samples) {
    const auto y = lumaOf<row>(samples).template scaled<Chain::lumaScale>();
    return ByParity{Chain::luma(y.even), Chain::luma(y.odd)};
  }
  template <class L, class Terms>
  PXM_INLINE PackedColumns<L> packed(bool isBgr, int row, const ByParity<L>& luma,
                                     const Terms& terms) const {
    return packColumns(isBgr, LaneRow<Packer, L>(this->out[row].number), luma, terms);
  }

  PXM_INLINE uint8_t* pixelsAt(int row, ptrdiff_t x) const { return this->out[row].pixels + 2 * x; }
};

PXM_TEXT_END

#endif
