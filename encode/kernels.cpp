// SPDX-License-Identifier: MIT
// The encoding kernels; compiled once for each level.
#include "encode/image.inl"

#pragma GCC visibility push(hidden)
namespace pxm::PXM_LEVEL {
#define KERNEL(name, arguments, image, pixels, group, tail) \
  void name(PXM_KERNEL_IMAGES(arguments)) {                 \
    const arguments a = PXM_ARGUMENTS_IMAGES;               \
    image::encode<pixels, group, tail>(a);                  \
    clearWideRegisters();                                   \
  }
#include "encode/kernels.def"
}  // namespace pxm::PXM_LEVEL
#pragma GCC visibility pop
