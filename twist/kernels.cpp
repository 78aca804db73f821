// SPDX-License-Identifier: MIT
// The kernels of the colour twist; compiled once for each level.
#ifdef PXM_SIMD
#include "vector/twist/image.inl"
#include "vector/twist/mxcsr.inl"
#else
#include "twist/image.inl"
#endif

PXM_LEVEL_BEGIN

#ifdef PXM_SIMD
// Whatever rounding mode the caller has set, a SIMD kernel rounds to nearest. Required: with the
// mode the caller's exception flags come back too, but only if the mode was another.
template <class Image, class Arguments>
PXM_INLINE void twistToNearest(const Arguments& a) {
  const unsigned kept = ApplyRoundingControl(0);
  Image::run(a);
  if (kept & roundingField) RestoreMxcsr(kept);
}
#else
template <class Image, class Arguments>
PXM_INLINE void twistToNearest(const Arguments& a) {
  Image::run(a);
}
#endif

PXM_LEVEL_END

#pragma GCC visibility push(hidden)
namespace pxm::PXM_LEVEL {
#define KERNEL(name, arguments, image)                              \
  void name(PXM_KERNEL_IMAGES(arguments), const float(*twist)[4]) { \
    const arguments a = PXM_ARGUMENTS_TWIST;                        \
    twistToNearest<image>(a);                                       \
  }
#include "twist/kernels.def"
}  // namespace pxm::PXM_LEVEL
#pragma GCC visibility pop
