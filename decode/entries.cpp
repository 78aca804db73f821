// SPDX-License-Identifier: MIT
// The entries of the decoding conversions: checks, then the kernel in the channel order of the
// name. Compiled once for each variant.
#include "frame/families.inl"

#pragma GCC visibility push(hidden)

namespace pxm::PXM_KERNELS {
#define KERNEL(name, arguments, ...) void name(PXM_KERNEL_IMAGES(arguments), int isBgr);
#include "decode/kernels.def"
}  // namespace pxm::PXM_KERNELS

namespace pxm::PXM_VARIANT {

enum ChannelOrder { Rgb = 0, Bgr = 1 };

#define KERNEL_Plain(source, format) PXM_KERNELS::source##To##format
#define KERNEL_Dither(source, format) PXM_KERNELS::source##To##format##Dither

extern "C" {
#define DECODE(name, family, source, format, order, packing)                                     \
  pxmStatus ENTRY(name) PARAMETERS(family) {                                                     \
    return checked<family>(ARGUMENTS(family), [&] {                                              \
      KERNEL_##packing(source, format)(src, srcStep, dst, family::kernelPitch(dstStep), roiSize, \
                                       order);                                                   \
    });                                                                                          \
  }
#include "frame/conversions.def"
}
}  // namespace pxm::PXM_VARIANT
#pragma GCC visibility pop
