// SPDX-License-Identifier: MIT
// Calls that convert.
#ifndef TESTS_FUZZ_CONVERTED_H_
#define TESTS_FUZZ_CONVERTED_H_

#include "tests/fuzz/case.h"

// All planes in one piece of memory, of which every byte is compared; so many times, with the
// samples of the next seed each time.
void expectConversion(const Case& c, int fillings);

// Rows so far apart that their offsets leave 32 bits. Nothing between them can be touched.
void expectFarRows(const Case& c);

#endif
