// SPDX-License-Identifier: MIT
// Every export as an address, and its arguments as the words that a hand-written call passes.
#ifndef TESTS_SUPPORT_EXPORTED_CALLS_H_
#define TESTS_SUPPORT_EXPORTED_CALLS_H_

#include <array>
#include <cstdint>
#include <string_view>
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
const Export& exportNamed(std::string_view name);

// The same words with another upper half for each pitch.
Words withUpperHalves(Words words, std::uint32_t upperHalf);

// A service, with an argument of its own, the upper half of which is poisoned if it is a number.
struct ServiceCall {
  const char* name;
  const void* function;
  Words words;
  bool hasStatus;  // and is no dispatched export
};

// The four services; `threads` is where a number of threads goes.
std::vector<ServiceCall> serviceCalls(int* threads);

#endif
