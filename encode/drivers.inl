// SPDX-License-Identifier: MIT
// The drivers of the encoding kernels: they know rows and pitches. Source rows step in full width.
#ifndef PXM_ENCODE_DRIVERS_INL
#define PXM_ENCODE_DRIVERS_INL

#include "encode/groups.inl"

PXM_TEXT_BEGIN

PXM_INLINE const uint8_t* bytesOf(const uint16_t* pixels) {
  return reinterpret_cast<const uint8_t*>(pixels);
}

// Every row on its own.
template <class Image, class Row>
struct EncodeRows {
  using Arguments = typename Image::Arguments;
  PXM_KERNEL static void run(const Arguments& a) {
    const Image target(a);
    for (int y = 0; y < a.height; ++y)
      walk(Row{target.row(y), {rowAt(bytesOf(a.src), y, a.srcStep)}}, a.width);
  }
};

// How far the lower row of a pair lies below the upper one.
struct LowerRowByPixels {
  // Required: counted in pixels, so that an odd pitch loses its low bit here, and only here.
  PXM_INLINE static ptrdiff_t offset(int srcStep) { return ptrdiff_t{srcStep >> 1} * 2; }
};
struct LowerRowByBytes {
  PXM_INLINE static ptrdiff_t offset(int srcStep) { return srcStep; }
};

// What becomes of the last row of an odd height: its luma, or nothing.
template <class Pixels>
struct LastRowLuma {
  PXM_INLINE static void encode(const uint8_t* source, uint8_t* y, int width) {
    for (ptrdiff_t x = 0; x < width; ++x) y[x] = EncodeLuma(Pixels::unpack(load16(source, x)));
  }
};
struct LastRowUntouched {
  PXM_INLINE static void encode(const uint8_t*, uint8_t*, int) {}
};

// Pairs of rows to a row of chroma. From pair to pair the source steps by exactly twice its pitch.
template <class PairRow, class LowerRow, class LastRow>
struct EncodePairs {
  using Arguments = PixelsToPlanes;
  PXM_KERNEL static void run(const Arguments& a) {
    const TargetPairs target(a);
    const ptrdiff_t pairPitch = 2 * ptrdiff_t{a.srcStep};
    const int pairs = a.height >> 1;
    for (int n = 0; n < pairs; ++n) {
      const uint8_t* const upper = rowAt(bytesOf(a.src), n, pairPitch);
      walk(PairRow{target.pair(n), {upper, upper + LowerRow::offset(a.srcStep)}}, a.width);
    }
    if (a.height & 1)
      LastRow::encode(rowAt(bytesOf(a.src), pairs, pairPitch), target.lumaRow(2 * pairs), a.width);
  }
};

// The kernel of the other order of chroma planes.
template <class Kernel>
struct PlanesExchanged {
  using Arguments = PixelsToPlanes;
  PXM_INLINE static void run(const Arguments& a) {
    uint8_t* const planes[3] = {a.dst[0], a.dst[2], a.dst[1]};
    const int pitches[3] = {a.dstStep[0], a.dstStep[2], a.dstStep[1]};
    Kernel::run({a.src, a.srcStep, planes, pitches, a.width, a.height});
  }
};

PXM_TEXT_END

#endif
