// SPDX-License-Identifier: MIT
// The nine argument lists of the conversions. Families that take the same list share it; a family's
// PARAMETERS are what an export declares, its ARGUMENTS the same values as one record.
#ifndef PXM_FRAME_SIGNATURES_H
#define PXM_FRAME_SIGNATURES_H

#include <stdint.h>

#include "include/pxmcc90lgc.h"

namespace pxm {

// Arguments as given: arrays of planes and of pitches stay the pointers that they are, because
// nothing is read through them before the checks have passed. Pitches in bytes.
template <class S, class SStep, class D, class DStep>
struct Arguments {
  using Src = S;
  using SrcStep = SStep;
  using Dst = D;
  using DstStep = DStep;
  Src src;
  SrcStep srcStep;
  Dst dst;
  DstStep dstStep;
  int width, height;
};

template <class S, class D>
struct TwistArguments {
  using Src = S;
  using SrcStep = int;
  using Dst = D;
  using DstStep = int;
  Src src;
  int srcStep;
  Dst dst;
  int dstStep;
  int width, height;
  const float (*twist)[4];
};

template <class SrcDst>
struct TwistInPlaceArguments {
  SrcDst srcDst;
  int srcDstStep;
  int width, height;
  const float (*twist)[4];
};

using Bytes = const uint8_t*;
using BytePlanes = const uint8_t* const*;
using Signed = const int8_t*;
using SignedPlanes = const int8_t* const*;

using PlanesToPixels = Arguments<BytePlanes, const int*, uint16_t*, int>;
using PlanesOnePitchToPixels = Arguments<BytePlanes, int, uint16_t*, int>;
using BytesToPixels = Arguments<Bytes, int, uint16_t*, int>;
using PixelsToPlanes = Arguments<const uint16_t*, int, uint8_t* const*, const int*>;
using PixelsToBytes = Arguments<const uint16_t*, int, uint8_t*, int>;
using TwistImage = TwistArguments<Signed, int8_t*>;
using TwistImageInPlace = TwistInPlaceArguments<int8_t*>;
using TwistPlanes = TwistArguments<SignedPlanes, int8_t* const*>;
using TwistPlanesInPlace = TwistInPlaceArguments<int8_t* const*>;

}  // namespace pxm

// clang-format off
#define PXM_PARAMETERS_PlanesToPixels \
  (const uint8_t* src[3], int srcStep[3], uint16_t* dst, int dstStep, pxmSize roiSize)
#define PXM_PARAMETERS_PlanesOnePitchToPixels \
  (const uint8_t* src[3], int srcStep, uint16_t* dst, int dstStep, pxmSize roiSize)
#define PXM_PARAMETERS_BytesToPixels \
  (const uint8_t* src, int srcStep, uint16_t* dst, int dstStep, pxmSize roiSize)
#define PXM_PARAMETERS_PixelsToPlanes \
  (const uint16_t* src, int srcStep, uint8_t* dst[3], int dstStep[3], pxmSize roiSize)
#define PXM_PARAMETERS_PixelsToBytes \
  (const uint16_t* src, int srcStep, uint8_t* dst, int dstStep, pxmSize roiSize)
#define PXM_PARAMETERS_TwistImage \
  (const int8_t* src, int srcStep, int8_t* dst, int dstStep, pxmSize roiSize, const float twist[3][4])
#define PXM_PARAMETERS_TwistImageInPlace \
  (int8_t* srcDst, int srcDstStep, pxmSize roiSize, const float twist[3][4])
#define PXM_PARAMETERS_TwistPlanes \
  (const int8_t* src[3], int srcStep, int8_t* dst[3], int dstStep, pxmSize roiSize, const float twist[3][4])
#define PXM_PARAMETERS_TwistPlanesInPlace \
  (int8_t* srcDst[3], int srcDstStep, pxmSize roiSize, const float twist[3][4])

#define PXM_ARGUMENTS_IMAGES \
  {.src = src, .srcStep = srcStep, .dst = dst, .dstStep = dstStep, \
   .width = roiSize.width, .height = roiSize.height}
#define PXM_ARGUMENTS_PlanesToPixels PXM_ARGUMENTS_IMAGES
#define PXM_ARGUMENTS_PlanesOnePitchToPixels PXM_ARGUMENTS_IMAGES
#define PXM_ARGUMENTS_BytesToPixels PXM_ARGUMENTS_IMAGES
#define PXM_ARGUMENTS_PixelsToPlanes PXM_ARGUMENTS_IMAGES
#define PXM_ARGUMENTS_PixelsToBytes PXM_ARGUMENTS_IMAGES

#define PXM_ARGUMENTS_TWIST \
  {.src = src, .srcStep = srcStep, .dst = dst, .dstStep = dstStep, \
   .width = roiSize.width, .height = roiSize.height, .twist = twist}
#define PXM_ARGUMENTS_TwistImage PXM_ARGUMENTS_TWIST
#define PXM_ARGUMENTS_TwistPlanes PXM_ARGUMENTS_TWIST

#define PXM_ARGUMENTS_TWIST_IN_PLACE \
  {.srcDst = srcDst, .srcDstStep = srcDstStep, \
   .width = roiSize.width, .height = roiSize.height, .twist = twist}
#define PXM_ARGUMENTS_TwistImageInPlace PXM_ARGUMENTS_TWIST_IN_PLACE
#define PXM_ARGUMENTS_TwistPlanesInPlace PXM_ARGUMENTS_TWIST_IN_PLACE

// PXM_LIST_<family>: the argument list of each family of conversions.
#define PXM_LIST_DecodePlanar         PlanesToPixels
#define PXM_LIST_DecodePlanarOnePitch PlanesOnePitchToPixels
#define PXM_LIST_DecodeInterleaved         BytesToPixels
#define PXM_LIST_Decode411            PlanesToPixels
#define PXM_LIST_Encode411            PixelsToPlanes
#define PXM_LIST_Encode420            PixelsToPlanes
#define PXM_LIST_EncodeYuv420         PixelsToPlanes
#define PXM_LIST_Encode422Planar      PixelsToPlanes
#define PXM_LIST_Encode422Interleaved      PixelsToBytes
#define PXM_LIST_EncodeRgbToYuv420    PixelsToPlanes
#define PXM_LIST_EncodeRgbToYuv422    PixelsToPlanes
#define PXM_LIST_Depth565To888        PixelsToBytes
#define PXM_LIST_Depth888To565        BytesToPixels
#define PXM_LIST_TwistInterleaved          TwistImage
#define PXM_LIST_TwistInterleavedInPlace   TwistImageInPlace
#define PXM_LIST_TwistPlanar          TwistPlanes
#define PXM_LIST_TwistPlanarInPlace   TwistPlanesInPlace
// clang-format on

#define PXM_OF_LIST_TOKENS(what, list) PXM_##what##_##list
#define PXM_OF_LIST(what, list) PXM_OF_LIST_TOKENS(what, list)

// The images of a kernel, from a record of arguments: as an export takes them, in registers.
#define PXM_KERNEL_IMAGES(arguments)                                                              \
  arguments::Src src, arguments::SrcStep srcStep, arguments::Dst dst, arguments::DstStep dstStep, \
      pxmSize roiSize

#define PARAMETERS(family) PXM_OF_LIST(PARAMETERS, PXM_LIST_##family)
#define ARGUMENTS(family) PXM_OF_LIST(ARGUMENTS, PXM_LIST_##family)

#endif
