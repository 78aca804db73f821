// SPDX-License-Identifier: MIT
// The entries of the decoding conversions: checks, then the kernel in the colour order of the name.
#ifndef PXM_DECODE_ENTRIES_INL
#define PXM_DECODE_ENTRIES_INL

#include "decode/kernels.inl"
#include "frame/families.inl"

PXM_TEXT_BEGIN

template <class Family, class Kernel, Order order>
PXM_INLINE pxmStatus decode(const typename Family::Arguments& a) {
  if (const pxmStatus refusal = Family::Refusals::first(a); refusal != pxmStatusOk) return refusal;
  KernelOf<Kernel, order>::run(a, Family::kernelPitch(a.dstStep));
  return Family::statusAfter(a.width, a.height);
}

PXM_TEXT_END

#define KERNEL_Plain(source, depth) source##To##depth
#define KERNEL_Dither(source, depth) source##To##depth##Dither

#pragma GCC visibility push(hidden)
namespace pxm::PXM_VARIANT {
extern "C" {
#define DECODE(name, family, source, depth, order, packing)                                  \
  pxmStatus ENTRY(name) PARAMETERS(family) {                                                 \
    return decode<family, KERNEL_##packing(source, depth), Order::order>(ARGUMENTS(family)); \
  }
#include "frame/conversions.def"
}
}  // namespace pxm::PXM_VARIANT
#pragma GCC visibility pop

#endif
