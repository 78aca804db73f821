// SPDX-License-Identifier: MIT
// The entries of the encoding conversions: checks, then the kernel. Compiled once for each variant.
#include "frame/families.inl"

#pragma GCC visibility push(hidden)

namespace pxm::PXM_KERNELS {
#define KERNEL(name, arguments, ...) void name(PXM_KERNEL_IMAGES(arguments));
#include "encode/kernels.def"
}  // namespace pxm::PXM_KERNELS

PXM_VARIANT_BEGIN

// A kernel for the other order of chroma planes.
template <auto kernel>
PXM_INLINE void withPlanesExchanged(PXM_KERNEL_IMAGES(PixelsToPlanes)) {
  uint8_t* const planes[3] = {dst[0], dst[2], dst[1]};
  const int pitches[3] = {dstStep[0], dstStep[2], dstStep[1]};
  kernel(src, srcStep, planes, pitches, roiSize);
}
constexpr auto Bgr555ToYCrCb420P3 = withPlanesExchanged<PXM_KERNELS::Bgr555ToYCbCr420P3>;
constexpr auto Bgr565ToYCrCb420P3 = withPlanesExchanged<PXM_KERNELS::Bgr565ToYCbCr420P3>;

using namespace PXM_KERNELS;

PXM_VARIANT_END

namespace pxm::PXM_VARIANT {
extern "C" {
#define ENCODE(name, family, pixels, target)                                                  \
  pxmStatus ENTRY(name) PARAMETERS(family) {                                                  \
    return checked<family>(ARGUMENTS(family),                                                 \
                           [&] { pixels##To##target(src, srcStep, dst, dstStep, roiSize); }); \
  }
#include "frame/conversions.def"
}
}  // namespace pxm::PXM_VARIANT
#pragma GCC visibility pop
