// SPDX-License-Identifier: MIT
// Kernels and entries of the depth conversions. Both colour orders of a conversion are one kernel.
#ifndef PXM_DEPTH_ENTRIES_INL
#define PXM_DEPTH_ENTRIES_INL

#include "depth/depth.inl"
#include "frame/families.inl"

PXM_TEXT_BEGIN

// The pitch of 16-bit pixels counts pixels, so an odd one loses its low bit; that of bytes is
// exact.
PXM_INLINE ptrdiff_t evenPitch(int step) {
  return ptrdiff_t{step >> 1} * 2;
}

struct Expand565 {
  PXM_KERNEL static void run(const PixelsToBytes& a) {
    const uint8_t* const source = reinterpret_cast<const uint8_t*>(a.src);
    for (int y = 0; y < a.height; ++y)
      expandRow(rowAt(source, y, evenPitch(a.srcStep)), rowAt(a.dst, y, a.dstStep), a.width);
  }
};

struct Pack888 {
  PXM_KERNEL static void run(const BytesToPixels& a) {
    uint8_t* const out = reinterpret_cast<uint8_t*>(a.dst);
    for (int y = 0; y < a.height; ++y)
      packRow(rowAt(a.src, y, a.srcStep), rowAt(out, y, evenPitch(a.dstStep)), a.width);
  }
};

template <class Family, class Kernel>
PXM_INLINE pxmStatus convertDepth(const typename Family::Arguments& a) {
  if (const pxmStatus refusal = Family::Refusals::first(a); refusal != pxmStatusOk) return refusal;
  Kernel::run(a);
  return Family::statusAfter(a.width, a.height);
}

PXM_TEXT_END

#define KERNEL_Depth565To888 Expand565
#define KERNEL_Depth888To565 Pack888

#pragma GCC visibility push(hidden)
namespace pxm::PXM_VARIANT {
extern "C" {
#define DEPTH(name, family, order)                                   \
  pxmStatus ENTRY(name) PARAMETERS(family) {                         \
    return convertDepth<family, KERNEL_##family>(ARGUMENTS(family)); \
  }
#include "frame/conversions.def"
}
}  // namespace pxm::PXM_VARIANT
#pragma GCC visibility pop

#endif
