// SPDX-License-Identifier: MIT
// The entries of the encoding conversions: checks, then the kernel.
#ifndef PXM_ENCODE_ENTRIES_INL
#define PXM_ENCODE_ENTRIES_INL

#include "encode/kernels.inl"
#include "frame/families.inl"

PXM_TEXT_BEGIN

template <class Family, class Kernel>
PXM_INLINE pxmStatus encode(const typename Family::Arguments& a) {
  if (const pxmStatus refusal = Family::Refusals::first(a); refusal != pxmStatusOk) return refusal;
  Kernel::run(a);
  return Family::statusAfter(a.width, a.height);
}

PXM_TEXT_END

#pragma GCC visibility push(hidden)
namespace pxm::PXM_VARIANT {
extern "C" {
#define ENCODE(name, family, pixels, target)                      \
  pxmStatus ENTRY(name) PARAMETERS(family) {                      \
    return encode<family, pixels##To##target>(ARGUMENTS(family)); \
  }
#include "frame/conversions.def"
}
}  // namespace pxm::PXM_VARIANT
#pragma GCC visibility pop

#endif
