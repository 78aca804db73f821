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

// The rows that share a row of chroma. Blocks of a family cover its columns as its cut tells.
template <class SourceRows, class Form, class Packer, class RestForm>
struct Blocks : Columns<SourceRows, Form, Packer, RestForm> {
  using Scalar = Columns<SourceRows, Form, Packer, RestForm>;
  using Chain = typename ChainOf<Form>::Type;
  static constexpr Cut cut = cutOf<SourceRows, Chain>;
  static constexpr bool repeatsLastBlock = ChainOf<Form>::repeatsLastBlock;

  template <int n>
  PXM_INLINE void block(ptrdiff_t x) const {
    const LaneChroma c = chromaLanes<n>(this->source, x);
    const LaneTerms<I16x8> terms = Chain::chroma(c.cb, c.cr);
    for (int row = 0; row < Scalar::rowCount; ++row) {
      const typename LanePackerOf<Packer>::Type packer(this->packer, this->out[row].number);
      const I16x8 luma = Chain::luma(lumaLanes<n>(this->source, row, x));
      storePixels<n>(this->out[row].pixels + 2 * x, packer.pack(join(luma, terms)));
    }
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
  using Chain = typename ChainOf<Form>::Type;
  static constexpr Cut cut = cutByEight;

  template <int n>
  PXM_INLINE void block(ptrdiff_t x) const {
    const Planes8 p = planesOfEight(this->source.samples + 3 * x);
    const typename LanePackerOf<Packer>::Type packer(this->packer, this->out[0].number);
    const LaneTerms<I16x8> terms = Chain::chroma(p.second, p.third);
    storePixels<n>(this->out[0].pixels + 2 * x, packer.pack(join(Chain::luma(p.first), terms)));
  }
};

PXM_TEXT_END

#endif
