// SPDX-License-Identifier: MIT
// The families of conversions: what a call is given, what it rejects and in which order, and its
// status when the kernel is done. The orders differ between neighbours on purpose.
#ifndef PXM_FRAME_FAMILIES_INL
#define PXM_FRAME_FAMILIES_INL

#include "frame/checks.inl"

PXM_VARIANT_BEGIN

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
  using Validation =
      Checks<Minimum{1, 1}, Check::Src, Check::Dst, Check::Width, Check::Height, Check::SrcPlanes>;
};

struct DecodePlanarOnePitch : AnySize, PitchInPixels {
  using Arguments = PlanesOnePitchToPixels;
  using Validation = DecodePlanar::Validation;
};

struct DecodeInterleaved : AnySize, PitchInPixels {
  using Arguments = BytesToPixels;
  using Validation = Checks<Minimum{1, 1}, Check::Src, Check::Dst, Check::Width, Check::Height>;
};

// 4:1:1: planes first, and a width of at least one chroma sample.
struct Decode411 : WholeGroups<4, 1>, PitchInBytes {
  using Arguments = PlanesToPixels;
  using Validation =
      Checks<Minimum{4, 1}, Check::Src, Check::Dst, Check::SrcPlanes, Check::Width, Check::Height>;
};

template <Minimum minimum>
using EncodePlanarValidation =
    Checks<minimum, Check::Src, Check::Dst, Check::DstPlanes, Check::Width, Check::Height>;

struct Encode411 : WholeGroups<4, 1> {
  using Arguments = PixelsToPlanes;
  using Validation = EncodePlanarValidation<Minimum{4, 1}>;
};

// YCbCr and YCrCb: odd sizes are no warning here, unlike in the YUV twin below.
struct Encode420 : AnySize {
  using Arguments = PixelsToPlanes;
  using Validation = EncodePlanarValidation<Minimum{2, 2}>;
};

struct EncodeYuv420 : WholeGroups<2, 2> {
  using Arguments = PixelsToPlanes;
  using Validation = EncodePlanarValidation<Minimum{2, 2}>;
};

struct Encode422Planar : AnySize {
  using Arguments = PixelsToPlanes;
  using Validation = EncodePlanarValidation<Minimum{2, 1}>;
};

struct Encode422Interleaved : AnySize {
  using Arguments = PixelsToBytes;
  using Validation = Checks<Minimum{2, 1}, Check::Src, Check::Dst, Check::Width, Check::Height>;
};

// From RGB565: sizes come first, and one pixel is enough, unlike from BGR.
using EncodeRgbValidation =
    Checks<Minimum{1, 1}, Check::Src, Check::Dst, Check::Width, Check::Height, Check::DstPlanes>;

struct EncodeRgbToYuv420 : WholeGroups<2, 2> {
  using Arguments = PixelsToPlanes;
  using Validation = EncodeRgbValidation;
};

struct EncodeRgbToYuv422 : WholeGroups<2, 1> {
  using Arguments = PixelsToPlanes;
  using Validation = EncodeRgbValidation;
};

struct Depth565To888 : AnySize {
  using Arguments = PixelsToBytes;
  using Validation = DecodeInterleaved::Validation;
};

struct Depth888To565 : AnySize {
  using Arguments = BytesToPixels;
  using Validation = DecodeInterleaved::Validation;
};

// The twist alone checks its pitches, last of all.
struct TwistInterleaved : AnySize {
  using Arguments = TwistImage;
  using Validation = Checks<Minimum{1, 1}, Check::Src, Check::Dst, Check::Twist, Check::Width,
                            Check::Height, Check::SrcStep, Check::DstStep>;
};

struct TwistInterleavedInPlace : AnySize {
  using Arguments = TwistImageInPlace;
  using Validation = Checks<Minimum{1, 1}, Check::SrcDst, Check::Twist, Check::Width, Check::Height,
                            Check::SrcDstStep>;
};

struct TwistPlanar : AnySize {
  using Arguments = TwistPlanes;
  using Validation =
      Checks<Minimum{1, 1}, Check::Src, Check::Dst, Check::Twist, Check::SrcPlanes,
             Check::DstPlanes, Check::Width, Check::Height, Check::SrcStep, Check::DstStep>;
};

struct TwistPlanarInPlace : AnySize {
  using Arguments = TwistPlanesInPlace;
  using Validation = Checks<Minimum{1, 1}, Check::SrcDst, Check::Twist, Check::SrcDstPlanes,
                            Check::Width, Check::Height, Check::SrcDstStep>;
};

// What every entry does: checks, then the kernel, then the family's status.
template <class Family, class Kernel>
PXM_INLINE pxmStatus checked(const typename Family::Arguments& a, Kernel kernel) {
  if (const pxmStatus status = Family::Validation::first(a); status != pxmStatusOk) return status;
  kernel();
  return Family::statusAfter(a.width, a.height);
}

PXM_VARIANT_END

#endif
