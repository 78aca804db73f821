// SPDX-License-Identifier: MIT
// The entries of the colour twist: checks, then the kernel; in place, source and destination are
// one. The unit says before what its kernels are.
#ifndef PXM_TWIST_ENTRIES_INL
#define PXM_TWIST_ENTRIES_INL

#include "frame/families.inl"

PXM_TEXT_BEGIN

PXM_INLINE const TwistImage& images(const TwistImage& a) {
  return a;
}
PXM_INLINE const TwistPlanes& images(const TwistPlanes& a) {
  return a;
}
PXM_INLINE TwistImage images(const TwistImageInPlace& a) {
  return {a.srcDst, a.srcDstStep, a.srcDst, a.srcDstStep, a.width, a.height, a.twist};
}
PXM_INLINE TwistPlanes images(const TwistPlanesInPlace& a) {
  return {a.srcDst, a.srcDstStep, a.srcDst, a.srcDstStep, a.width, a.height, a.twist};
}

template <class Family, class Kernel>
PXM_INLINE pxmStatus twistImages(const typename Family::Arguments& a) {
  if (const pxmStatus refusal = Family::Refusals::first(a); refusal != pxmStatusOk) return refusal;
  Kernel::run(images(a));
  return Family::statusAfter(a.width, a.height);
}

PXM_TEXT_END

#pragma GCC visibility push(hidden)
namespace pxm::PXM_VARIANT {
extern "C" {
#define TWIST(name, family, layout)                               \
  pxmStatus ENTRY(name) PARAMETERS(family) {                      \
    return twistImages<family, Twist##layout>(ARGUMENTS(family)); \
  }
#include "frame/conversions.def"
}
}  // namespace pxm::PXM_VARIANT
#pragma GCC visibility pop

#endif
