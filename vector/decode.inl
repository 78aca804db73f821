// SPDX-License-Identifier: MIT
// Rows of pixels, block by block: which samples reach which lanes, then chain and packer. What no
// block covers is the scalar code's.
#ifndef PXM_VECTOR_DECODE_INL
#define PXM_VECTOR_DECODE_INL

#include "decode/columns.inl"
#include "vector/forms.inl"
#include "vector/packers.inl"
#include "vector/walk.inl"

PXM_TEXT_BEGIN

// Chroma in lanes, samples in the high bytes, one for each pixel of the block.
struct LaneChroma {
  I16x8 cb, cr;
};

template <int n, int rows, int shift>
PXM_INLINE I16x8 lumaLanes(const PlanarRows<rows, shift>& source, int row, ptrdiff_t x) {
  return inHighBytes(loadBytes<n>(source.luma[row] + x));
}

// Pixels of a group share their sample.
template <int shift>
PXM_INLINE __m128i spread(__m128i bytes) {
  if constexpr (shift == 0) return bytes;
  if constexpr (shift == 1) return doubled(bytes);
  if constexpr (shift == 2) return doubled(doubled(bytes));
}

template <int n, int rows, int shift>
PXM_INLINE LaneChroma chromaLanes(const PlanarRows<rows, shift>& source, ptrdiff_t x) {
  constexpr int count = n >> shift;
  return {inHighBytes(spread<shift>(loadBytes<count>(source.cb + (x >> shift)))),
          inHighBytes(spread<shift>(loadBytes<count>(source.cr + (x >> shift))))};
}

// Words of luma below chroma: Cb in the even ones, Cr in the odd ones.
template <int n>
PXM_INLINE I16x8 lumaLanes(const PackedRow422& source, int, ptrdiff_t x) {
  return shiftLeft<8>(I16x8{loadBytes<2 * n>(source.samples + 2 * x)});
}

template <int n>
PXM_INLINE LaneChroma chromaLanes(const PackedRow422& source, ptrdiff_t x) {
  const I16x8 words = I16x8{loadBytes<2 * n>(source.samples + 2 * x)} & all<I16x8>(0xFF00);
  return {evenWordsDoubled(words), oddWordsDoubled(words)};
}

// How many columns are worked on at once: two registers.
template <class Columns>
constexpr int columnsAtOnce = hasWideLanes&& Columns::rowCount == 1 ? 32 : 16;

// One register of pixels, in the order of the packer. It is packed as two alike.
template <class Packer>
PXM_INLINE I16x8 packOne(const Packer& packer, int row, I16x8 luma, const LaneTerms<I16x8>& terms) {
  const LaneRow<Packer, I16x8> lanes(row);
  return packer.isBgr() ? packTwo<true>(lanes, luma, terms, lanes, luma, terms).first
                        : packTwo<false>(lanes, luma, terms, lanes, luma, terms).first;
}

template <class SourceRows>
constexpr bool sharesInPairs = false;
template <int rows>
constexpr bool sharesInPairs<PlanarRows<rows, 1>> = true;

// The rows that share a row of chroma. Blocks of a family cover its columns as its cut tells.
template <class SourceRows, class Form, class Packer, class RestForm>
struct Blocks : Columns<SourceRows, Form, Packer, RestForm> {
  using Scalar = Columns<SourceRows, Form, Packer, RestForm>;
  using Chain = typename ChainOf<Form>::Type;
  static constexpr Cut cut = cutOf<SourceRows, Chain>;
  static constexpr bool repeatsLastBlock = ChainOf<Form>::repeatsLastBlock;
  static constexpr int widest = columnsAtOnce<Scalar>;

  template <int n>
  PXM_INLINE void block(ptrdiff_t x) const {
    const LaneChroma c = chromaLanes<n>(this->source, x);
    pixels<n>(x, Chain::chroma(c.cb, c.cr));
  }

  // Two blocks of eight. Where pairs of pixels share a sample, eight samples serve both, and their
  // terms are doubled instead of them.
  PXM_INLINE void widestBlock(ptrdiff_t x) const {
    if constexpr (hasWideLanes) {
      wideColumns(*this, x);
    } else if constexpr (sharesInPairs<SourceRows>) {
      const LaneTerms<I16x8> t =
          Chain::chroma(inHighBytes(loadBytes<8>(this->source.cb + (x >> 1))),
                        inHighBytes(loadBytes<8>(this->source.cr + (x >> 1))));
      twoBlocks(x,
                LaneTerms<I16x8>{lowLanesDoubled(t.red), lowLanesDoubled(t.green),
                                 lowLanesDoubled(t.blue)},
                LaneTerms<I16x8>{highLanesDoubled(t.red), highLanesDoubled(t.green),
                                 highLanesDoubled(t.blue)});
    } else {
      const LaneChroma a = chromaLanes<8>(this->source, x), b = chromaLanes<8>(this->source, x + 8);
      twoBlocks(x, Chain::chroma(a.cb, a.cr), Chain::chroma(b.cb, b.cr));
    }
  }

  PXM_INLINE void twoBlocks(ptrdiff_t x, const LaneTerms<I16x8>& a,
                            const LaneTerms<I16x8>& b) const {
    if (this->packer.isBgr())
      sixteenPixels<true>(x, a, b);
    else
      sixteenPixels<false>(x, a, b);
  }

  // Stores are in the order of blocks of eight.
  template <bool isBgr>
  PXM_INLINE void sixteenPixels(ptrdiff_t x, const LaneTerms<I16x8>& a,
                                const LaneTerms<I16x8>& b) const {
    const TwoOfPixels<I16x8> upper = sixteenOfRow<isBgr>(0, x, a, b);
    uint8_t* const out = this->out[0].pixels + 2 * x;
    if constexpr (Scalar::rowCount == 1) {
      storePixels<8>(out, upper.first);
      storePixels<8>(out + 16, upper.second);
    } else {
      const TwoOfPixels<I16x8> lower = sixteenOfRow<isBgr>(1, x, a, b);
      uint8_t* const below = this->out[1].pixels + 2 * x;
      storePixels<8>(out, upper.first);
      storePixels<8>(below, lower.first);
      storePixels<8>(out + 16, upper.second);
      storePixels<8>(below + 16, lower.second);
    }
  }

  template <bool isBgr>
  PXM_INLINE TwoOfPixels<I16x8> sixteenOfRow(int row, ptrdiff_t x, const LaneTerms<I16x8>& a,
                                             const LaneTerms<I16x8>& b) const {
    const LaneRow<Packer, I16x8> lanes(this->out[row].number);
    return packTwo<isBgr>(lanes, Chain::luma(lumaLanes<8>(this->source, row, x)), a, lanes,
                          Chain::luma(lumaLanes<8>(this->source, row, x + 8)), b);
  }

  // The rows of one block, upper first.
  template <int n>
  PXM_INLINE void pixels(ptrdiff_t x, const LaneTerms<I16x8>& terms) const {
    pixelsOfRow<n>(0, x, terms);
    if constexpr (Scalar::rowCount == 2) pixelsOfRow<n>(1, x, terms);
  }

  template <int n>
  PXM_INLINE void pixelsOfRow(int row, ptrdiff_t x, const LaneTerms<I16x8>& terms) const {
    storePixels<n>(this->out[row].pixels + 2 * x,
                   packOne(this->packer, this->out[row].number,
                           Chain::luma(lumaLanes<n>(this->source, row, x)), terms));
  }

  // Required: where the last whole block is one of four columns, one of two follows it, beyond the
  // region. Its samples are what follows in memory.
  PXM_INLINE void oneBlockTooMany(ptrdiff_t x, int width) const {
    if ((width & 6) == 4) block<2>(x);
  }
};

// Interleaved 4:4:4: all three samples of a pixel come out of one regrouping.
template <class Form, class Packer, class RestForm>
struct Blocks<PackedRow444, Form, Packer, RestForm>
    : Columns<PackedRow444, Form, Packer, RestForm> {
  using Scalar = Columns<PackedRow444, Form, Packer, RestForm>;
  using Chain = typename ChainOf<Form>::Type;
  static constexpr Cut cut = cutByEight;
  static constexpr bool repeatsLastBlock = false;
  static constexpr int widest = columnsAtOnce<Scalar>;

  template <int n>
  PXM_INLINE void block(ptrdiff_t x) const {
    const Planes8 p = planesOfEight(this->source.samples + 3 * x);
    storePixels<8>(this->out[0].pixels + 2 * x,
                   packOne(this->packer, this->out[0].number, Chain::luma(p.first),
                           Chain::chroma(p.second, p.third)));
  }

  PXM_INLINE void widestBlock(ptrdiff_t x) const {
    if constexpr (hasWideLanes)
      wideColumns(*this, x);
    else if (this->packer.isBgr())
      sixteenPixels<true>(x);
    else
      sixteenPixels<false>(x);
  }

  template <bool isBgr>
  PXM_INLINE void sixteenPixels(ptrdiff_t x) const {
    const Planes16 p = planesOfSixteen(this->source.samples + 3 * x);
    const LaneRow<Packer, I16x8> lanes(this->out[0].number);
    const TwoOfPixels<I16x8> words =
        packTwo<isBgr>(lanes, Chain::luma(inHighBytes(p.first)),
                       Chain::chroma(inHighBytes(p.second), inHighBytes(p.third)), lanes,
                       Chain::luma(upperInHighBytes(p.first)),
                       Chain::chroma(upperInHighBytes(p.second), upperInHighBytes(p.third)));
    uint8_t* const out = this->out[0].pixels + 2 * x;
    storePixels<8>(out, words.first);
    storePixels<8>(out + 16, words.second);
  }
};

PXM_TEXT_END

#endif
