// SPDX-License-Identifier: MIT
// One call by the library and by the oracle, and the end of the process where they differ.
#ifndef TESTS_FUZZ_RUN_H_
#define TESTS_FUZZ_RUN_H_

#include <vector>

#include "tests/fuzz/case.h"

// The variants that run here, in slot order.
const std::vector<int>& variants();

// Calls call(variant) for each of them; the input says with which to begin.
template <class Call>
void forEachVariant(const Case& c, Call call) {
  const std::size_t count = variants().size();
  for (std::size_t i = 0; i < count; ++i)
    call(variants()[(static_cast<std::size_t>(c.firstVariant) + i) % count]);
}

// Says what the call was and what is wrong, and ends the process.
[[noreturn]] void fail(const Case& c, int variant, const CallArguments& a, const char* what);

void requireStatus(const Case& c, int variant, const CallArguments& a, int status, int wanted);

// By the exported name, with the case's MXCSR, which has to be the same afterwards as far as that
// is documented.
pxmStatus callLibrary(const Case& c, int variant, const CallArguments& a);

int callOracle(const Case& c, int variant, const CallArguments& a);

// Three planes, or one image.
bool hasPlanes(const Conversion& c, bool source);
bool isInPlace(const Conversion& c);

#endif
