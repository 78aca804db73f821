// SPDX-License-Identifier: MIT
// The 38 decoding kernels: which driver, which samples, which form, which packing. Each serves both
// colour orders of a conversion.
#ifndef PXM_DECODE_KERNELS_INL
#define PXM_DECODE_KERNELS_INL

#include "decode/dither.inl"
#include "decode/drivers.inl"
#include "decode/pack.inl"

PXM_TEXT_BEGIN

// 4:4:4 planar.
template <class Packer>
using YCbCrP3 = DecodeRows<PlanarImage444, Walked<PlanarRows<1, 0>, DecodeStaged, Packer>>;
using YCbCrP3To444 = YCbCrP3<PackPlain<444>>;
using YCbCrP3To555 = YCbCrP3<PackPlain<555>>;
using YCbCrP3To565 = YCbCrP3<PackPlain<565>>;
using YCbCrP3To444Dither = YCbCrP3<PackDither<444>>;
using YCbCrP3To555Dither = YCbCrP3<PackDither<555>>;
using YCbCrP3To565Dither = YCbCrP3<PackDither<565>>;

// 4:4:4 interleaved. Required: the wide form without dither, and only then.
using YCbCrRowTo444 = Walked<PackedRow444, DecodeWide, PackPlain<444>>;
using YCbCrRowTo555 = Walked<PackedRow444, DecodeWide, PackPlain<555>>;
using YCbCrRowTo565 = Walked<PackedRow444, DecodeWide, PackPlain<565>>;
template <class Row>
using YCbCrC3 = DecodeRows<PackedImage<PackedRow444>, Row>;
using YCbCrC3To444 = YCbCrC3<YCbCrRowTo444>;
using YCbCrC3To555 = YCbCrC3<YCbCrRowTo555>;
using YCbCrC3To565 = YCbCrC3<YCbCrRowTo565>;
using YCbCrC3To444Dither = YCbCrC3<Walked<PackedRow444, DecodeStaged, PackDither<444>>>;
using YCbCrC3To555Dither = YCbCrC3<Walked<PackedRow444, DecodeStaged, PackDither<555>>>;
using YCbCrC3To565Dither = YCbCrC3<Walked<PackedRow444, DecodeStaged, PackDither<565>>>;

// 4:2:2 planar.
template <class Packer>
using YCbCr422P3 =
    DecodeRowsOfTwoAndMore<PlanarImage422, Walked<PlanarRows<1, 1>, DecodeStaged, Packer>>;
using YCbCr422P3To444 = YCbCr422P3<PackPlain<444>>;
using YCbCr422P3To555 = YCbCr422P3<PackPlain<555>>;
using YCbCr422P3To565 = YCbCr422P3<PackPlain<565>>;

template <class Packer>
using YCbCr422P3Dither = DecodeRows<PlanarImage422, Walked<PlanarRows<1, 1>, DecodeStaged, Packer>>;
using YCbCr422P3To444Dither = YCbCr422P3Dither<PackDither<444>>;
using YCbCr422P3To555Dither = YCbCr422P3Dither<PackDither<555>>;
using YCbCr422P3To565Dither = YCbCr422P3Dither<PackDither<565>>;

// 4:2:2 interleaved. Required: the folded form without dither, the odd last pixel's Cr from the
// pair before it, and a path of its own at width 1.
using YCbCr422RowTo444 = Walked<PackedRow422LastCr, DecodeFolded, PackPlain<444>>;
using YCbCr422RowTo555 = Walked<PackedRow422LastCr, DecodeFolded, PackPlain<555>>;
using YCbCr422RowTo565 = Walked<PackedRow422LastCr, DecodeFolded, PackPlain<565>>;
template <class Row>
using YCbCr422C2 = DecodeRowsOrThreeBytes<PackedImage<PackedRow422LastCr>, Row>;
using YCbCr422C2To444 = YCbCr422C2<YCbCr422RowTo444>;
using YCbCr422C2To555 = YCbCr422C2<YCbCr422RowTo555>;
using YCbCr422C2To565 = YCbCr422C2<YCbCr422RowTo565>;

template <class Packer>
using YCbCr422C2Dither =
    DecodeRows<PackedImage<PackedRow422OwnByte>, Walked<PackedRow422OwnByte, DecodeStaged, Packer>>;
using YCbCr422C2To444Dither = YCbCr422C2Dither<PackDither<444>>;
using YCbCr422C2To555Dither = YCbCr422C2Dither<PackDither<555>>;
using YCbCr422C2To565Dither = YCbCr422C2Dither<PackDither<565>>;

// 4:2:0.
template <class Packer>
using YCbCr420 = DecodePairs<Walked<PlanarRows<2, 1>, DecodeStaged, Packer>,
                             Walked<PlanarRows<1, 1>, DecodeStaged, Packer>>;
using YCbCr420To444 = YCbCr420<PackPlain<444>>;
using YCbCr420To555 = YCbCr420<PackPlain<555>>;
using YCbCr420To565 = YCbCr420<PackPlain<565>>;
using YCbCr420To444Dither = YCbCr420<PackDither<444>>;
using YCbCr420To555Dither = YCbCr420<PackDither<555>>;
using YCbCr420To565Dither = YCbCr420<PackDither<565>>;

// YUV 4:2:0. Required: without dither whole blocks round red and blue, an odd last column and an
// odd last row do not.
using Yuv420RowPairTo444 =
    Walked<PlanarRows<2, 1>, DecodeYuvRounded, PackPlain<444>, DecodeYuvPlain>;
using Yuv420RowPairTo555 =
    Walked<PlanarRows<2, 1>, DecodeYuvRounded, PackPlain<555>, DecodeYuvPlain>;
using Yuv420RowPairTo565 =
    Walked<PlanarRows<2, 1>, DecodeYuvRounded, PackPlain<565>, DecodeYuvPlain>;
template <class PairRow>
using Yuv420 =
    DecodePairsOfTwoAndMore<PairRow,
                            Columns<PlanarRows<1, 1>, DecodeYuvPlain, typename PairRow::Packer>>;
using Yuv420To444 = Yuv420<Yuv420RowPairTo444>;
using Yuv420To555 = Yuv420<Yuv420RowPairTo555>;
using Yuv420To565 = Yuv420<Yuv420RowPairTo565>;

template <class Packer>
using Yuv420Dither = DecodePairs<Walked<PlanarRows<2, 1>, DecodeYuvStaged, Packer>,
                                 Walked<PlanarRows<1, 1>, DecodeYuvStaged, Packer>>;
using Yuv420To444Dither = Yuv420Dither<PackDither<444>>;
using Yuv420To555Dither = Yuv420Dither<PackDither<555>>;
using Yuv420To565Dither = Yuv420Dither<PackDither<565>>;

// 4:1:1.
using YCbCr411To555 = DecodeRows411<Walked<PlanarRow411, DecodeRounded, PackPlain<555>>>;
using YCbCr411To565 = DecodeRows411<Walked<PlanarRow411, DecodeRounded, PackPlain<565>>>;

enum class Order { Rgb = 0, Bgr = 1 };

// The kernel that serves one colour order of a conversion: that of both, unless a variant has one
// of its own.
template <class Kernel, Order order>
struct KernelOf {
  template <class Arguments>
  PXM_INLINE static void run(const Arguments& a, int dstPitch) {
    Kernel::run(a, dstPitch, static_cast<int>(order));
  }
};

PXM_TEXT_END

#endif
