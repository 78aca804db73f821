// SPDX-License-Identifier: MIT
// The entry of every conversion without its kernel: arguments, checks and status of all families.
#define PXM_VARIANT checked
#define PXM_KERNELS none
#define PXM_DEPTH_KERNELS none
#include "frame/families.inl"

namespace pxm::PXM_VARIANT {
namespace {

template <class Family>
pxmStatus check(const typename Family::Arguments& a) {
  const pxmStatus status = Family::Validation::first(a);
  return status != pxmStatusOk ? status : Family::statusAfter(a.width, a.height);
}

}  // namespace

extern "C" {
#define CONVERSION(name, family)             \
  pxmStatus ENTRY(name) PARAMETERS(family) { \
    return check<family>(ARGUMENTS(family)); \
  }
#include "frame/conversions.def"
}
}  // namespace pxm::PXM_VARIANT
