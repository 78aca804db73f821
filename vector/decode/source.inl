// SPDX-License-Identifier: MIT
// Samples of neighbouring columns in SIMD: even columns in one register, odd columns in another.
// Both share the chroma of a pair, and neither splitting nor joining crosses a register's halves.
#ifndef PXM_VECTOR_DECODE_SOURCE_INL
#define PXM_VECTOR_DECODE_SOURCE_INL

#include "decode/source.inl"
#include "vector/decode/arithmetic.inl"
#include "vector/decode/samples.inl"
#include "vector/scratch.inl"

PXM_LEVEL_BEGIN

// What the columns of an iteration load from planes: luma of one row or two, and chroma of each
// column or of pairs of columns. (Flat, as the others are: GCC keeps nested arrays in memory.)
template <class L, class Chroma>
struct PlanarSamples {
  PairedBytes<L> upper, lower;
  Chroma cb, cr;
};

template <class L, int rows>
PXM_INLINE PairedBytes<L> lastLuma(const Bytes (&luma)[rows], ptrdiff_t x) {
  return Loads<L>::columns(luma[rows - 1] + x);
}
template <class L, int rows>
PXM_INLINE PlanarSamples<L, PairedBytes<L>> samplesOf(const PlanarRows<rows, 0>& source,
                                                      ptrdiff_t x) {
  return {Loads<L>::columns(source.luma[0] + x), lastLuma<L>(source.luma, x),
          Loads<L>::columns(source.cb + x), Loads<L>::columns(source.cr + x)};
}
template <class L, int rows, int shift>
PXM_INLINE PlanarSamples<L, L> samplesOf(const PlanarRows<rows, shift>& source, ptrdiff_t x) {
  return {Loads<L>::columns(source.luma[0] + x), lastLuma<L>(source.luma, x),
          Loads<L>::template chroma<shift>(source.cb + (x >> shift)),
          Loads<L>::template chroma<shift>(source.cr + (x >> shift))};
}
template <class L>
PXM_INLINE InterleavedSamples<L> samplesOf(const InterleavedRow422& source, ptrdiff_t x) {
  return Loads<L>::interleaved(source.samples + 2 * x);
}
template <class L>
PXM_INLINE SplitPlanes<L> samplesOf(const InterleavedRow444& source, ptrdiff_t x) {
  return Loads<L>::planes(source.samples + 3 * x);
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
  const auto u = cb.biasRemoved().template scaled<8>(), v = cr.biasRemoved().template scaled<8>();
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
  const L bias = broadcast<L>(greyChroma << 8);
  return Chain::chroma(samples.cb ^ bias, samples.cr ^ bias);
}
template <class Chain, class L>
PXM_INLINE LaneTerms<L> termsOf(const InterleavedSamples<L>& samples) {
  const ByParity<L> chroma = samples.chroma.biasRemoved().template scaled<8>();
  return Chain::chroma(chroma.even, chroma.odd);
}

// Samples of planes with the terms at hand.
template <class L>
struct SamplesAndTerms {
  PairedBytes<L> upper, lower;
  L red, green, blue;
};
// (By value: what a reference names GCC keeps in memory.)
template <class Chain, class L>
PXM_INLINE SamplesAndTerms<L> withTerms(PlanarSamples<L, L> samples) {
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

// Software pipelining: the samples of the next iteration are loaded before the arithmetic of the
// present one. Three planes of full size are at hand soon enough.
template <class SourceRows>
constexpr bool isPipelined = true;
template <>
constexpr bool isPipelined<PlanarRows<1, 0>> = false;

// The same rows from column x on, which starts a group.
template <int rows, int shift>
PXM_INLINE PlanarRows<rows, shift> from(PlanarRows<rows, shift> source, ptrdiff_t x) {
  for (Bytes& luma : source.luma) luma += x;
  source.cb += x >> shift;
  source.cr += x >> shift;
  return source;
}
PXM_INLINE PlanarRow411 from(const PlanarRow411& source, ptrdiff_t x) {
  return {from(static_cast<const PlanarRows<1, 2>&>(source), x)};
}
PXM_INLINE InterleavedRow444 from(const InterleavedRow444& source, ptrdiff_t x) {
  return {source.samples + 3 * x};
}
template <class Row422>
PXM_INLINE Row422 from(const Row422& source, ptrdiff_t x) {
  return {{source.samples + 2 * x}};
}

// A scratch block for the samples of n columns, fewer than `step`. In `rows`, it makes the pointers
// of a source its own.
template <class SourceRows, int step>
struct SourceScratch;

template <int rows, int shift, int step>
struct SourceScratch<PlanarRows<rows, shift>, step> {
  uint8_t luma[rows][step], cb[step >> shift], cr[step >> shift];

  PXM_INLINE void load(PlanarRows<rows, shift>& source, ptrdiff_t x, int n) {
    const int samples = (n + (1 << shift) - 1) >> shift;
    for (int r = 0; r < rows; ++r) {
      copyBytes(luma[r], source.luma[r] + x, n);
      source.luma[r] = luma[r];
    }
    copyBytes(cb, source.cb + (x >> shift), samples);
    copyBytes(cr, source.cr + (x >> shift), samples);
    source.cb = cb;
    source.cr = cr;
  }
};
template <int step>
struct SourceScratch<PlanarRow411, step> : SourceScratch<PlanarRows<1, 2>, step> {};

template <int step>
struct SourceScratch<InterleavedRow444, step> {
  uint8_t bytes[3 * step];
  PXM_INLINE void load(InterleavedRow444& source, ptrdiff_t x, int n) {
    copyBytes(bytes, source.samples + 3 * x, 3 * n);
    source.samples = bytes;
  }
};

template <int step>
struct SourceScratch<InterleavedRow422LastCr, step> {
  uint8_t bytes[2 * step];
  PXM_INLINE void load(InterleavedRow422& source, ptrdiff_t x, int n) {
    copyBytes(bytes, source.samples + 2 * x, 2 * n);
    source.samples = bytes;
  }
};
// The Cr of an odd last pixel is its Cb.
template <int step>
struct SourceScratch<InterleavedRow422OwnByte, step>
    : SourceScratch<InterleavedRow422LastCr, step> {
  PXM_INLINE void load(InterleavedRow422& source, ptrdiff_t x, int n) {
    SourceScratch<InterleavedRow422LastCr, step>::load(source, x, n);
    this->bytes[2 * n + 1] = this->bytes[2 * n - 1];
  }
};

PXM_LEVEL_END

#endif
