// SPDX-License-Identifier: MIT
// Calls of the library, and, where the fuzzing itself is tried, deliberate faults in them.
#ifndef TESTS_FUZZ_FAULTS_H_
#define TESTS_FUZZ_FAULTS_H_

#include "catalogue/conversions.h"

namespace faults {

#ifdef PXM_FUZZ_FAULTS
// As the library, but for the fault that PXM_FUZZ_FAULT in the environment names.
pxmStatus call(const Conversion& conversion, int variant, const CallArguments& a);
#else
inline pxmStatus call(const Conversion& conversion, int, const CallArguments& a) {
  return conversion.call(a);
}
#endif

}  // namespace faults

#endif
