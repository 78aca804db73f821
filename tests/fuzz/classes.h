// SPDX-License-Identifier: MIT
// Variants between which the oracle makes no difference. It carries a call out once for each class,
// and of some calls, once for each variant, so that this is no assumption.
#ifndef TESTS_FUZZ_CLASSES_H_
#define TESTS_FUZZ_CLASSES_H_

#include "catalogue/conversions.h"

// Scalar arithmetic, that of SIMD, and that of the few conversions that have another in avx2.
inline constexpr int classCount = 3;

int classOf(const Conversion& conversion, int variant);

#endif
