// SPDX-License-Identifier: MIT
// The entries of the depth conversions: checks, then the kernel. Compiled once for each variant.
#include "frame/families.inl"

#pragma GCC visibility push(hidden)

namespace pxm::PXM_DEPTH_KERNELS {
#define KERNEL(name, arguments) void name(PXM_KERNEL_IMAGES(arguments));
#include "depth/kernels.def"
}  // namespace pxm::PXM_DEPTH_KERNELS

#define KERNEL_Depth565To888 PXM_DEPTH_KERNELS::Expand565
#define KERNEL_Depth888To565 PXM_DEPTH_KERNELS::Pack888

namespace pxm::PXM_VARIANT {
extern "C" {
#define DEPTH(name, family, order)                                                         \
  pxmStatus ENTRY(name) PARAMETERS(family) {                                               \
    return checked<family>(ARGUMENTS(family),                                              \
                           [&] { KERNEL_##family(src, srcStep, dst, dstStep, roiSize); }); \
  }
#include "frame/conversions.def"
}
}  // namespace pxm::PXM_VARIANT
#pragma GCC visibility pop
