// SPDX-License-Identifier: MIT
// Whole images, one type for each way in which chroma belongs to rows: they know rows and pitches.
// Source rows step in full width.
#ifndef PXM_ENCODE_IMAGE_INL
#define PXM_ENCODE_IMAGE_INL

#include "encode/level_row.inl"

PXM_LEVEL_BEGIN

PXM_INLINE const uint8_t* bytesOf(const uint16_t* pixels) {
  return reinterpret_cast<const uint8_t*>(pixels);
}

template <EncodedRow R>
PXM_INLINE void convertRow(const R& row, int width) {
  row.convert(width);
}

// Every row on its own.
template <class Target>
struct EveryRow {
  using Arguments = typename Target::Arguments;
  template <class Pixels, template <int> class GroupOf, Tail tail>
  PXM_INLINE static void encode(const Arguments& a) {
    const Target target(a);
    for (int y = 0; y < a.height; ++y)
      convertRow(
          Row<Pixels, typename Target::Row, GroupOf, tail>{target.row(y),
                                                           {rowAt(bytesOf(a.src), y, a.srcStep)}},
          a.width);
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
template <class LowerRow, class LastRow>
struct RowPairs {
  template <class Pixels, template <int> class GroupOf, Tail tail>
  PXM_INLINE static void encode(const PixelsToPlanes& a) {
    const TargetPairs target(a);
    const ptrdiff_t pairPitch = 2 * ptrdiff_t{a.srcStep};
    const int pairs = a.height >> 1;
    for (int n = 0; n < pairs; ++n) {
      const uint8_t* const upper = rowAt(bytesOf(a.src), n, pairPitch);
      convertRow(
          Row<Pixels, PlanarTarget<2, 1>, GroupOf, tail>{
              target.pair(n), {upper, upper + LowerRow::offset(a.srcStep)}},
          a.width);
    }
    if (a.height & 1)
      LastRow::encode(rowAt(bytesOf(a.src), pairs, pairPitch), target.lumaRow(2 * pairs), a.width);
  }
};

template <class Pixels>
using YCbCrPairs = RowPairs<LowerRowByPixels, LastRowLuma<Pixels>>;
template <class LowerRow>
using YuvPairs = RowPairs<LowerRow, LastRowUntouched>;

PXM_LEVEL_END

#endif
