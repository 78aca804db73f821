// SPDX-License-Identifier: MIT
// The encoding kernels: which driver, which pixels, which matrix, and what becomes of leftovers.
#ifndef PXM_ENCODE_KERNELS_INL
#define PXM_ENCODE_KERNELS_INL

#include "encode/drivers.inl"

PXM_TEXT_BEGIN

// YCbCr 4:2:0: every pixel gets its luma.
template <class Pixels>
using ToYCbCr420 = EncodePairs<Encoded<Pixels, PlanarTarget<2, 1>, YCbCrGroup, Rest::Luma>,
                               LowerRowByPixels, LastRowLuma<Pixels>>;
using Bgr555ToYCbCr420P3 = ToYCbCr420<UnpackBgr555>;
using Bgr565ToYCbCr420P3 = ToYCbCr420<UnpackBgr565>;
using Bgr555ToYCrCb420P3 = PlanesExchanged<Bgr555ToYCbCr420P3>;
using Bgr565ToYCrCb420P3 = PlanesExchanged<Bgr565ToYCbCr420P3>;

// YCbCr 4:2:2.
template <class Pixels>
using ToYCbCr422P3 =
    EncodeRows<TargetRows<1>, Encoded<Pixels, PlanarTarget<1, 1>, YCbCrGroup, Rest::Luma>>;
using Bgr555ToYCbCr422P3 = ToYCbCr422P3<UnpackBgr555>;
using Bgr565ToYCbCr422P3 = ToYCbCr422P3<UnpackBgr565>;

// Required: interleaved, the odd last pixel has a Cb of its own and no Cr.
template <class Pixels>
using ToYCbCr422C2 =
    EncodeRows<PackedTargetImage, Encoded<Pixels, PackedTarget422, YCbCrGroup, Rest::LumaAndCb>>;
using Bgr555ToYCbCr422C2 = ToYCbCr422C2<UnpackBgr555>;
using Bgr565ToYCbCr422C2 = ToYCbCr422C2<UnpackBgr565>;

// YCbCr 4:1:1: leftover columns are not touched. Required: but for those of BGR555 in the variants
// with blocks, which get their luma.
template <class Pixels, Rest rest>
using ToYCbCr411P3 =
    EncodeRows<TargetRows<2>, Encoded<Pixels, PlanarTarget<1, 2>, YCbCrGroup, rest>>;
using Bgr555ToYCbCr411P3 = ToYCbCr411P3<UnpackBgr555, hasBlocks ? Rest::Luma : Rest::Untouched>;
using Bgr565ToYCbCr411P3 = ToYCbCr411P3<UnpackBgr565, Rest::Untouched>;

// YUV: leftover columns and rows are not touched. Required: from RGB565 the lower row of a pair is
// one exact pitch down.
template <class Pixels>
using BgrToYuv420 = EncodePairs<Encoded<Pixels, PlanarTarget<2, 1>, YuvGroupOfBgr, Rest::Untouched>,
                                LowerRowByPixels, LastRowUntouched>;
using Bgr555ToYUV420P3 = BgrToYuv420<UnpackBgr555>;
using Bgr565ToYUV420P3 = BgrToYuv420<UnpackBgr565>;
using Rgb565ToYUV420P3 =
    EncodePairs<Encoded<UnpackRgb565, PlanarTarget<2, 1>, YuvGroupOfRgb, Rest::Untouched>,
                LowerRowByBytes, LastRowUntouched>;
using Rgb565ToYUV422P3 =
    EncodeRows<WrappedTargetRows<1>,
               Encoded<UnpackRgb565, PlanarTarget<1, 1>, YuvGroupOfRgb, Rest::Untouched>>;

PXM_TEXT_END

#endif
