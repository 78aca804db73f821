// SPDX-License-Identifier: MIT
// The kernels of the depth conversions; compiled once for each level.
#include "depth/image.inl"

#pragma GCC visibility push(hidden)
namespace pxm::PXM_LEVEL {
#define KERNEL(name, arguments)               \
  void name(PXM_KERNEL_IMAGES(arguments)) {   \
    const arguments a = PXM_ARGUMENTS_IMAGES; \
    convert##name(a);                         \
    clearWideRegisters();                     \
  }
#include "depth/kernels.def"
}  // namespace pxm::PXM_LEVEL
#pragma GCC visibility pop
