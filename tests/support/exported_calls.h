// SPDX-License-Identifier: MIT
// Every export as an address, and its arguments as the words that a hand-written call passes.
#ifndef TESTS_SUPPORT_EXPORTED_CALLS_H_
#define TESTS_SUPPORT_EXPORTED_CALLS_H_

#include <array>
#include <cstdint>
#include <vector>

#include "catalogue/conversions.h"

// Arrays of planes and pitches stay those of the arguments. The upper half of a word that holds a
// pitch is poisoned.
using Words = std::array<std::uint64_t, 6>;

struct Export {
  const Conversion& conversion;
  const void* function;
  Words (*words)(const CallArguments&);
};

// All conversions, in byte order.
const std::vector<Export>& allExports();

#endif
