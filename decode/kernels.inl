// SPDX-License-Identifier: MIT
// The decoding kernels, each an instance of the driver of its chroma format. A driver knows rows
// and pitches; what a row is made of is what the unit means by Walked: source, form and packer.
#ifndef PXM_DECODE_KERNELS_INL
#define PXM_DECODE_KERNELS_INL

#include "decode/columns.inl"
#include "decode/dither.inl"
#include "decode/pack.inl"

PXM_TEXT_BEGIN

// 4:4:4: every row on its own, and no pixel special. dstPitch in pixels.
template <class Row>
struct Decode444 {
  using Arguments = typename Row::Source::Arguments;
  PXM_KERNEL static void run(const Arguments& a, int dstPitch, int isBgr) {
    const typename Row::Source source(a);
    const Pixels destination(a.dst, dstPitch);
    const typename Row::Packer packer(isBgr);
    for (int y = 0; y < a.height; ++y)
      walk(Row{source.row(y), destination.row(y), packer}, a.width);
  }
};

using YCbCrP3To444 = Decode444<Walked<Planar444, DecodeStaged, PackPlain<444>>>;
using YCbCrP3To555 = Decode444<Walked<Planar444, DecodeStaged, PackPlain<555>>>;
using YCbCrP3To565 = Decode444<Walked<Planar444, DecodeStaged, PackPlain<565>>>;
using YCbCrP3To444Dither = Decode444<Walked<Planar444, DecodeStaged, PackDither<444>>>;
using YCbCrP3To555Dither = Decode444<Walked<Planar444, DecodeStaged, PackDither<555>>>;
using YCbCrP3To565Dither = Decode444<Walked<Planar444, DecodeStaged, PackDither<565>>>;

// Required: interleaved samples take the wide form when packed plainly, and only then.
using YCbCrRowTo444 = Walked<Packed444, DecodeWide, PackPlain<444>>;
using YCbCrRowTo555 = Walked<Packed444, DecodeWide, PackPlain<555>>;
using YCbCrRowTo565 = Walked<Packed444, DecodeWide, PackPlain<565>>;
using YCbCrC3To444 = Decode444<YCbCrRowTo444>;
using YCbCrC3To555 = Decode444<YCbCrRowTo555>;
using YCbCrC3To565 = Decode444<YCbCrRowTo565>;
using YCbCrC3To444Dither = Decode444<Walked<Packed444, DecodeStaged, PackDither<444>>>;
using YCbCrC3To555Dither = Decode444<Walked<Packed444, DecodeStaged, PackDither<555>>>;
using YCbCrC3To565Dither = Decode444<Walked<Packed444, DecodeStaged, PackDither<565>>>;

PXM_TEXT_END

#endif
