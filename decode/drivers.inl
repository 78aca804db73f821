// SPDX-License-Identifier: MIT
// The drivers of the decoding kernels, one for each way in which chroma belongs to rows. A driver
// knows rows and pitches; what a row is made of is its Row type.
#ifndef PXM_DECODE_DRIVERS_INL
#define PXM_DECODE_DRIVERS_INL

#include "decode/columns.inl"
#include "decode/pack.inl"

PXM_TEXT_BEGIN

// Every row on its own, and no row special.
template <class Image, class Row>
struct DecodeRows {
  using Arguments = typename Image::Arguments;
  PXM_KERNEL static void run(const Arguments& a, int dstPitch, int isBgr) {
    convert(a, dstPitch, isBgr);
  }

  PXM_INLINE static void convert(const Arguments& a, int dstPitch, int isBgr) {
    const Image source(a);
    const PixelImage destination(a.dst, dstPitch);
    const typename Row::Packer packer(isBgr);
    for (int y = 0; y < a.height; ++y)
      walk(Row{source.row(y), {destination.row(y)}, packer}, a.width);
  }
};

// The same, but for an image one pixel wide. Required: three bytes a row, red, green and blue, that
// form no packed pixel whatever the format, and a pitch in pixels that counts bytes.
template <class Image, class Row>
struct DecodeRowsOrThreeBytes {
  using Arguments = typename Image::Arguments;
  PXM_INLINE static void run(const Arguments& a, int dstPitch, int isBgr) {
    if (a.width == 1)
      threeBytesARow(a, dstPitch);
    else
      DecodeRows<Image, Row>::run(a, dstPitch, isBgr);
  }

  PXM_KERNEL static void threeBytesARow(const Arguments& a, int dstPitch) {
    const Image source(a);
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
};

// The same, but for an image one pixel wide. Required: variants with blocks leave it as it is.
template <class Image, class Row>
struct DecodeRowsOfTwoAndMore {
  using Arguments = typename Image::Arguments;
  PXM_INLINE static void run(const Arguments& a, int dstPitch, int isBgr) {
    if (hasBlocks && a.width == 1) return;
    DecodeRows<Image, Row>::run(a, dstPitch, isBgr);
  }
};

// Required: under dither the variants with blocks go on for two columns behind an odd corner. They
// are ordinary pixels, made from what follows in memory.
template <class Packer>
PXM_INLINE int columnsBehindTheLastRow(int width) {
  return hasBlocks && Packer::dithers && (width & 1) ? 2 : 0;
}

// Pairs of rows to a row of chroma, and the last row of an odd height.
template <class PairRow, class LastRow>
struct DecodePairs {
  using Arguments = PlanesToPixels;
  PXM_KERNEL static void run(const Arguments& a, int dstPitch, int isBgr) {
    convert(a, dstPitch, isBgr);
  }

  PXM_INLINE static void convert(const Arguments& a, int dstPitch, int isBgr) {
    const PlanarImage420 source(a);
    const PixelImage destination(a.dst, dstPitch);
    const typename PairRow::Packer packer(isBgr);
    const int paired = a.height & ~1;
    for (int y = 0; y < paired; y += 2) {
      const PixelRow upper = destination.wrappedRow(y);
      walk(PairRow{source.pair(y), {upper, destination.below(upper)}, packer}, a.width);
    }
    if (paired < a.height)
      walk(LastRow{source.lastRow(paired), {destination.wrappedRow(paired)}, packer}, a.width,
           columnsBehindTheLastRow<typename PairRow::Packer>(a.width));
  }
};

// Required: an image one pixel wide or high is left as it is.
template <class PairRow, class LastRow>
struct DecodePairsOfTwoAndMore {
  using Arguments = PlanesToPixels;
  PXM_INLINE static void run(const Arguments& a, int dstPitch, int isBgr) {
    if (a.width == 1 || a.height == 1) return;
    DecodePairs<PairRow, LastRow>::run(a, dstPitch, isBgr);
  }
};

// 4:1:1. The pitch of the destination is in bytes here, and may be odd.
template <class Row>
struct DecodeRows411 {
  using Arguments = PlanesToPixels;
  PXM_KERNEL static void run(const Arguments& a, int dstPitch, int isBgr) {
    const PlanarImage411 source(a);
    uint8_t* const first = reinterpret_cast<uint8_t*>(a.dst);
    const typename Row::Packer packer(isBgr);
    for (int y = 0; y < a.height; ++y)
      walk(Row{source.row(y), {{rowAt(first, y, dstPitch), y}}, packer}, a.width);
  }
};

PXM_TEXT_END

#endif
