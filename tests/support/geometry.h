// SPDX-License-Identifier: MIT
// The sizes and layouts that a conversion is tried at.
#ifndef TESTS_SUPPORT_GEOMETRY_H_
#define TESTS_SUPPORT_GEOMETRY_H_

#include <vector>

#include "tests/support/memory.h"

inline constexpr int mostPadding = 37;  // bytes, of all layouts

// Every combination of source pitches (tight, padded, odd, upwards), destination pitches, sides of
// the memory and odd addresses, for one size. The twist takes no pitch upwards.
std::vector<Layout> layoutsOf(const Conversion& conversion, int width, int height);

#endif
