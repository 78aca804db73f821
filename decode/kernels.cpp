// SPDX-License-Identifier: MIT
// The decoding kernels; compiled once for each level.
#include "decode/dither.inl"
#include "decode/image.inl"
#include "decode/kernel_of.inl"
#include "decode/pack.inl"

#ifdef __AVX2__
#include "vector/decode/rounded.inl"
#endif

#pragma GCC visibility push(hidden)
namespace pxm::PXM_LEVEL {
#define KERNEL(name, arguments, image, form, packer)       \
  void name(PXM_KERNEL_IMAGES(arguments), int isBgr) {     \
    const arguments a = PXM_ARGUMENTS_IMAGES;              \
    KernelOf<image, form, packer>::run(a, dstStep, isBgr); \
    clearWideRegisters();                                  \
  }
#include "decode/kernels.def"
}  // namespace pxm::PXM_LEVEL
#pragma GCC visibility pop
