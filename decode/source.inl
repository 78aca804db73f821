// SPDX-License-Identifier: MIT
// Where samples come from. An image knows pointers and pitches and hands out rows; a row knows
// samples: luma of a column, the chroma of the group that starts at a column, and the chroma of the
// tail, the last columns when the width is no multiple of the group.
#ifndef PXM_DECODE_SOURCE_INL
#define PXM_DECODE_SOURCE_INL

#include "decode/arithmetic.inl"
#include "frame/rows.inl"
#include "frame/signatures.h"

PXM_LEVEL_BEGIN

// Rows of luma, `rowCount` of them, that share one row of each chroma plane; one chroma sample for
// 1 << chromaShift columns.
template <int rows, int shift>
struct PlanarRows {
  static constexpr int rowCount = rows;
  static constexpr int chromaShift = shift;
  Bytes luma[rows];
  Bytes cb, cr;

  PXM_INLINE int y(int row, ptrdiff_t x) const { return luma[row][x]; }
  PXM_INLINE Chroma chroma(ptrdiff_t x) const { return {cb[x >> shift], cr[x >> shift]}; }
  PXM_INLINE Chroma tailChroma(ptrdiff_t x) const { return chroma(x); }
};

// Four columns a sample. The tail takes the chroma of the last whole group: the planes hold no
// sample for it.
struct PlanarRow411 : PlanarRows<1, 2> {
  PXM_INLINE Chroma tailChroma(ptrdiff_t x) const { return chroma(x - 4); }
};

// Y, Cb, Cr of each pixel.
struct InterleavedRow444 {
  static constexpr int rowCount = 1;
  static constexpr int chromaShift = 0;
  Bytes samples;

  PXM_INLINE int y(int, ptrdiff_t x) const { return samples[3 * x]; }
  PXM_INLINE Chroma chroma(ptrdiff_t x) const { return {samples[3 * x + 1], samples[3 * x + 2]}; }
  PXM_INLINE Chroma tailChroma(ptrdiff_t x) const { return chroma(x); }
};

// Y, Cb, Y, Cr of two pixels. The last pixel of an odd width has one chroma byte of its own.
struct InterleavedRow422 {
  static constexpr int rowCount = 1;
  static constexpr int chromaShift = 1;
  Bytes samples;

  PXM_INLINE int y(int, ptrdiff_t x) const { return samples[2 * x]; }
  PXM_INLINE Chroma chroma(ptrdiff_t x) const { return {samples[2 * x + 1], samples[2 * x + 3]}; }
};

// Required: under dither that byte serves as Cb and as Cr.
struct InterleavedRow422OwnByte : InterleavedRow422 {
  PXM_INLINE Chroma tailChroma(ptrdiff_t x) const {
    return {samples[2 * x + 1], samples[2 * x + 1]};
  }
};

// Required: without dither Cr is that of the pair before, the byte before the pixel's luma.
struct InterleavedRow422LastCr : InterleavedRow422 {
  PXM_INLINE Chroma tailChroma(ptrdiff_t x) const {
    return {samples[2 * x + 1], samples[2 * x - 1]};
  }
};

struct PlanarImage444 {
  using Arguments = PlanesOnePitchToPixels;
  using Row = PlanarRows<1, 0>;
  Bytes luma, cb, cr;
  ptrdiff_t pitch;

  PXM_INLINE explicit PlanarImage444(const Arguments& a)
      : luma(a.src[0]), cb(a.src[1]), cr(a.src[2]), pitch(a.srcStep) {}
  PXM_INLINE Row row(int n) const {
    return {{rowAt(luma, n, pitch)}, rowAt(cb, n, pitch), rowAt(cr, n, pitch)};
  }
};

// One image; `RowOf` says what its bytes are.
template <class RowOf>
struct InterleavedImage {
  using Arguments = BytesToPixels;
  using Row = RowOf;
  Bytes image;
  ptrdiff_t pitch;

  PXM_INLINE explicit InterleavedImage(const Arguments& a) : image(a.src), pitch(a.srcStep) {}
  PXM_INLINE Row row(int n) const { return {rowAt(image, n, pitch)}; }
};

using InterleavedImage444 = InterleavedImage<InterleavedRow444>;
using InterleavedImage422OwnByte = InterleavedImage<InterleavedRow422OwnByte>;
using InterleavedImage422LastCr = InterleavedImage<InterleavedRow422LastCr>;

// Three planes with a pitch each.
struct PlanarImage {
  using Arguments = PlanesToPixels;
  Bytes luma, cb, cr;
  int lumaPitch, cbPitch, crPitch;

  PXM_INLINE explicit PlanarImage(const Arguments& a)
      : luma(a.src[0]),
        cb(a.src[1]),
        cr(a.src[2]),
        lumaPitch(a.srcStep[0]),
        cbPitch(a.srcStep[1]),
        crPitch(a.srcStep[2]) {}
};

struct PlanarImage422 : PlanarImage {
  using PlanarImage::PlanarImage;
  using Row = PlanarRows<1, 1>;
  PXM_INLINE Row row(int n) const {
    return {{wrappedRowAt(luma, n, lumaPitch)},
            wrappedRowAt(cb, n, cbPitch),
            wrappedRowAt(cr, n, crPitch)};
  }
};

struct PlanarImage411 : PlanarImage {
  using PlanarImage::PlanarImage;
  using Row = PlanarRow411;
  PXM_INLINE Row row(int n) const {
    return {{{rowAt(luma, n, lumaPitch)}, rowAt(cb, n, cbPitch), rowAt(cr, n, crPitch)}};
  }
};

// Two rows of luma to a row of chroma; the last row of an odd height has one for itself. The lower
// row of a pair is one pitch on, in full width.
struct PlanarImage420 : PlanarImage {
  using PlanarImage::PlanarImage;
  using Pair = PlanarRows<2, 1>;
  using LastRow = PlanarRows<1, 1>;
  PXM_INLINE Pair pair(int n) const {
    const Bytes upper = wrappedRowAt(luma, n, lumaPitch);
    return {{upper, upper + lumaPitch},
            wrappedRowAt(cb, n >> 1, cbPitch),
            wrappedRowAt(cr, n >> 1, crPitch)};
  }
  PXM_INLINE LastRow lastRow(int n) const {
    return {{wrappedRowAt(luma, n, lumaPitch)},
            wrappedRowAt(cb, n >> 1, cbPitch),
            wrappedRowAt(cr, n >> 1, crPitch)};
  }
};

PXM_LEVEL_END

#endif
