// SPDX-License-Identifier: MIT
// Whole images, one type for each way in which chroma belongs to rows. An image knows rows and
// pitches; what becomes of a row is its row type's matter.
#ifndef PXM_DECODE_IMAGE_INL
#define PXM_DECODE_IMAGE_INL

#include "decode/level_row.inl"

PXM_LEVEL_BEGIN

template <DecodedRow R, class... Sizes>
PXM_INLINE void convertRow(const R& row, Sizes... sizes) {
  row.convert(sizes...);
}

// Every row on its own, and no row special.
template <class Source>
struct EveryRow {
  using Arguments = typename Source::Arguments;
  template <class Form, class Packer>
  PXM_INLINE static void decode(const Arguments& a, int dstPitch, int isBgr) {
    const Source source(a);
    const PixelImage target(a.dst, dstPitch);
    const Packer packer(isBgr);
    for (int y = 0; y < a.height; ++y)
      convertRow(Row<typename Source::Row, Form, Packer>{source.row(y), {target.row(y)}, packer},
                 a.width);
  }
};

// A row of pixels as three bytes each, that form no packed pixel whatever the format.
template <class Source>
PXM_SHARED void threeBytesARow(const typename Source::Arguments& a, int dstPitch) {
  const Source source(a);
  uint8_t* const first = reinterpret_cast<uint8_t*>(a.dst);
  for (int y = 0; y < a.height; ++y) {
    const Bytes pixel = source.row(y).samples;
    const Channels c = decodePixel<DecodeFolded>(pixel[0], {pixel[1], pixel[1]});
    uint8_t* const out = rowAt(first, y, dstPitch);
    out[0] = static_cast<uint8_t>(c.red);
    out[1] = static_cast<uint8_t>(c.green);
    out[2] = static_cast<uint8_t>(c.blue);
  }
}

// The same, but for an image one pixel wide. Required: three bytes a row, red, green and blue,
// and a pitch in pixels that counts bytes.
template <class Source>
struct EveryRowOrThreeBytes {
  using Arguments = typename Source::Arguments;
  template <class Form, class Packer>
  PXM_INLINE static void decode(const Arguments& a, int dstPitch, int isBgr) {
    if (a.width == 1)
      threeBytesARow<Source>(a, dstPitch);
    else
      EveryRow<Source>::template decode<Form, Packer>(a, dstPitch, isBgr);
  }
};

// The same, but for an image one pixel wide. Required: SIMD kernels leave it as it is.
template <class Source>
struct EveryRowOfTwoAndMore {
  using Arguments = typename Source::Arguments;
  template <class Form, class Packer>
  PXM_INLINE static void decode(const Arguments& a, int dstPitch, int isBgr) {
    if (isSimd && a.width == 1) return;
    EveryRow<Source>::template decode<Form, Packer>(a, dstPitch, isBgr);
  }
};

// Required: under dither the SIMD kernels write two columns past an odd corner. They are ordinary
// pixels, made from what follows in memory.
template <class Packer>
PXM_INLINE int columnsPastTheLastRow(int width) {
  return isSimd && Packer::dithers && (width & 1) ? 2 : 0;
}

// Pairs of rows to a row of chroma, and the last row of an odd height.
template <class PairRow, class LastRow, class Packer>
PXM_INLINE void decodePairs(const PlanesToPixels& a, int dstPitch, int isBgr) {
  const PlanarImage420 source(a);
  const PixelImage target(a.dst, dstPitch);
  const Packer packer(isBgr);
  const int paired = a.height & ~1;
  for (int y = 0; y < paired; y += 2) {
    const PixelRow upper = target.wrappedRow(y);
    convertRow(PairRow{source.pair(y), {upper, target.below(upper)}, packer}, a.width);
  }
  if (paired < a.height)
    convertRow(LastRow{source.lastRow(paired), {target.wrappedRow(paired)}, packer}, a.width,
               columnsPastTheLastRow<Packer>(a.width));
}

// The same in less code: the last row is a pair of twice the same, which takes twice the time.
template <class PairRow, class Packer>
PXM_INLINE void decodeAllAsPairs(const PlanesToPixels& a, int dstPitch, int isBgr) {
  const PlanarImage420 source(a);
  const PixelImage target(a.dst, dstPitch);
  const Packer packer(isBgr);
  for (int y = 0; y < a.height; y += 2) {
    const bool isLast = y + 1 == a.height;
    PlanarRows<2, 1> rows = source.pair(y);
    const PixelRow upper = target.wrappedRow(y);
    if (isLast) rows.luma[1] = rows.luma[0];
    convertRow(PairRow{rows, {upper, isLast ? upper : target.below(upper)}, packer}, a.width,
               isLast ? columnsPastTheLastRow<Packer>(a.width) : 0);
  }
}

struct RowPairs {
  template <class Form, class Packer>
  PXM_INLINE static void decode(const PlanesToPixels& a, int dstPitch, int isBgr) {
    if constexpr (isSmall)
      decodeAllAsPairs<Row<PlanarRows<2, 1>, Form, Packer>, Packer>(a, dstPitch, isBgr);
    else
      decodePairs<Row<PlanarRows<2, 1>, Form, Packer>, LastRow<PlanarRows<1, 1>, Form, Packer>,
                  Packer>(a, dstPitch, isBgr);
  }
};

// The same for plain YUV. Required: whole groups round red and blue, an odd last column and an odd
// last row do not; an image one pixel wide or high is left as it is.
struct RowPairsOfTwoAndMore {
  template <class Form, class Packer>
  PXM_INLINE static void decode(const PlanesToPixels& a, int dstPitch, int isBgr) {
    if (a.width == 1 || a.height == 1) return;
    decodePairs<Row<PlanarRows<2, 1>, Form, Packer, DecodeYuvPlain>,
                ScalarRow<PlanarRows<1, 1>, DecodeYuvPlain, Packer>, Packer>(a, dstPitch, isBgr);
  }
};

// 4:1:1, to BGR alone. The pitch of the destination is in bytes here, and may be odd.
struct EveryRow411 {
  template <class Form, class Packer>
  PXM_INLINE static void decode(const PlanesToPixels& a, int dstPitch, int) {
    const PlanarImage411 source(a);
    uint8_t* const first = reinterpret_cast<uint8_t*>(a.dst);
    const Packer packer(1);
    for (int y = 0; y < a.height; ++y)
      convertRow(
          Row<PlanarRow411, Form, Packer>{source.row(y), {{rowAt(first, y, dstPitch), y}}, packer},
          a.width);
  }
};

PXM_LEVEL_END

#endif
