// SPDX-License-Identifier: MIT
// The families of conversions: what a call is given, what it refuses and in which order, and its
// status when the kernel is done. The orders differ between neighbours on purpose.
#ifndef PXM_FRAME_FAMILIES_INL
#define PXM_FRAME_FAMILIES_INL

#include "frame/checks.inl"

PXM_TEXT_BEGIN

// Nothing to warn of: any size is converted whole.
struct AnySize {
  PXM_INLINE static pxmStatus statusAfter(int, int) { return pxmStatusOk; }
};

// Warns when a width (or height) leaves pixels over that have no whole chroma group; all that could
// be converted is written by then.
template <int columns, int rows>
struct WholeGroups {
  static_assert((columns & (columns - 1)) == 0 && (rows & (rows - 1)) == 0);
  PXM_INLINE static pxmStatus statusAfter(int width, int height) {
    return (width & (columns - 1)) || (height & (rows - 1)) ? pxmStatusSizeWarning : pxmStatusOk;
  }
};

// A pitch of 16-bit pixels as kernels count it: in pixels, rounded down, so that an odd one loses
// its low bit.
struct PitchInPixels {
  PXM_INLINE static int kernelPitch(int step) { return step >> 1; }
};

struct PitchInBytes {
  PXM_INLINE static int kernelPitch(int step) { return step; }
};

// Decoding from planes: sizes come before the planes themselves.
struct DecodePlanar : AnySize, PitchInPixels {
  using Arguments = PlanesToPixels;
  using Refusals =
      Checks<Minimum{1, 1}, Check::Src, Check::Dst, Check::Width, Check::Height, Check::SrcPlanes>;
};

struct DecodePlanarOnePitch : AnySize, PitchInPixels {
  using Arguments = PlanesOnePitchToPixels;
  using Refusals = DecodePlanar::Refusals;
};

struct DecodePacked : AnySize, PitchInPixels {
  using Arguments = BytesToPixels;
  using Refusals = Checks<Minimum{1, 1}, Check::Src, Check::Dst, Check::Width, Check::Height>;
};

// 4:1:1: planes first, and a width of at least one chroma sample.
struct Decode411 : WholeGroups<4, 1>, PitchInBytes {
  using Arguments = PlanesToPixels;
  using Refusals =
      Checks<Minimum{4, 1}, Check::Src, Check::Dst, Check::SrcPlanes, Check::Width, Check::Height>;
};

template <Minimum minimum>
using EncodePlanarRefusals =
    Checks<minimum, Check::Src, Check::Dst, Check::DstPlanes, Check::Width, Check::Height>;

struct Encode411 : WholeGroups<4, 1> {
  using Arguments = PixelsToPlanes;
  using Refusals = EncodePlanarRefusals<Minimum{4, 1}>;
};

// YCbCr and YCrCb: odd sizes are no warning here, unlike in the YUV twin below.
struct Encode420 : AnySize {
  using Arguments = PixelsToPlanes;
  using Refusals = EncodePlanarRefusals<Minimum{2, 2}>;
};

struct EncodeYuv420 : WholeGroups<2, 2> {
  using Arguments = PixelsToPlanes;
  using Refusals = EncodePlanarRefusals<Minimum{2, 2}>;
};

struct Encode422Planar : AnySize {
  using Arguments = PixelsToPlanes;
  using Refusals = EncodePlanarRefusals<Minimum{2, 1}>;
};

struct Encode422Packed : AnySize {
  using Arguments = PixelsToBytes;
  using Refusals = Checks<Minimum{2, 1}, Check::Src, Check::Dst, Check::Width, Check::Height>;
};

// From RGB565: sizes come first, and one pixel is enough, unlike from BGR.
using EncodeRgbRefusals =
    Checks<Minimum{1, 1}, Check::Src, Check::Dst, Check::Width, Check::Height, Check::DstPlanes>;

struct EncodeRgbToYuv420 : WholeGroups<2, 2> {
  using Arguments = PixelsToPlanes;
  using Refusals = EncodeRgbRefusals;
};

struct EncodeRgbToYuv422 : WholeGroups<2, 1> {
  using Arguments = PixelsToPlanes;
  using Refusals = EncodeRgbRefusals;
};

struct Depth565To888 : AnySize {
  using Arguments = PixelsToBytes;
  using Refusals = DecodePacked::Refusals;
};

struct Depth888To565 : AnySize {
  using Arguments = BytesToPixels;
  using Refusals = DecodePacked::Refusals;
};

// The twist alone checks its pitches, last of all.
struct TwistPacked : AnySize {
  using Arguments = TwistImage;
  using Refusals = Checks<Minimum{1, 1}, Check::Src, Check::Dst, Check::Twist, Check::Width,
                          Check::Height, Check::SrcStep, Check::DstStep>;
};

struct TwistPackedInPlace : AnySize {
  using Arguments = TwistImageInPlace;
  using Refusals = Checks<Minimum{1, 1}, Check::SrcDst, Check::Twist, Check::Width, Check::Height,
                          Check::SrcDstStep>;
};

struct TwistPlanar : AnySize {
  using Arguments = TwistPlanes;
  using Refusals =
      Checks<Minimum{1, 1}, Check::Src, Check::Dst, Check::Twist, Check::SrcPlanes,
             Check::DstPlanes, Check::Width, Check::Height, Check::SrcStep, Check::DstStep>;
};

struct TwistPlanarInPlace : AnySize {
  using Arguments = TwistPlanesInPlace;
  using Refusals = Checks<Minimum{1, 1}, Check::SrcDst, Check::Twist, Check::SrcDstPlanes,
                          Check::Width, Check::Height, Check::SrcDstStep>;
};

PXM_TEXT_END

#endif
