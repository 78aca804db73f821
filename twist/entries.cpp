// SPDX-License-Identifier: MIT
// The entries of the colour twist: checks, then the kernel; in place, source and destination are
// one. Compiled once for each variant.
#include "frame/families.inl"

#pragma GCC visibility push(hidden)

namespace pxm::PXM_KERNELS {
#define KERNEL(name, arguments, ...) \
  void name(PXM_KERNEL_IMAGES(arguments), const float(*twist)[4]);
#include "twist/kernels.def"
}  // namespace pxm::PXM_KERNELS

#define KERNEL_C3 PXM_KERNELS::TwistRowC3
#define KERNEL_AC4 PXM_KERNELS::TwistRowAC4
#define KERNEL_P3 PXM_KERNELS::TwistPixelsP3

#define IMAGES_TwistInterleaved src, srcStep, dst, dstStep
#define IMAGES_TwistPlanar src, srcStep, dst, dstStep
#define IMAGES_TwistInterleavedInPlace srcDst, srcDstStep, srcDst, srcDstStep
#define IMAGES_TwistPlanarInPlace srcDst, srcDstStep, srcDst, srcDstStep

namespace pxm::PXM_VARIANT {
extern "C" {
#define TWIST(name, family, layout)                                                    \
  pxmStatus ENTRY(name) PARAMETERS(family) {                                           \
    return checked<family>(ARGUMENTS(family),                                          \
                           [&] { KERNEL_##layout(IMAGES_##family, roiSize, twist); }); \
  }
#include "frame/conversions.def"
}
}  // namespace pxm::PXM_VARIANT
#pragma GCC visibility pop
