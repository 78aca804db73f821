// SPDX-License-Identifier: MIT
#ifndef TESTS_SUPPORT_LEAST_SIZE_H_
#define TESTS_SUPPORT_LEAST_SIZE_H_

#include "catalogue/conversions.h"

// The least size that a conversion takes.
pxmSize leastSize(const Conversion& conversion);

#endif
