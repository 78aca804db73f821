// SPDX-License-Identifier: MIT
// How much a test program has tried: "cases: N WHAT" when its tests are done, for each WHAT of
// which there was any, and the seed.
#ifndef TESTS_SUPPORT_CASES_H_
#define TESTS_SUPPORT_CASES_H_

#include <gtest/gtest.h>

#include <cstdio>

#include "tests/support/random.h"

struct Cases : testing::Environment {
  const char* what;
  unsigned long count = 0;

  explicit Cases(const char* whatIsCounted) : what(whatIsCounted) {}
  void operator++() { ++count; }
  void operator+=(unsigned long more) { count += more; }
  void TearDown() override {
    if (count == 0) return;
    std::printf("cases: %lu %s\n", count, what);
    std::printf("seed: %llu\n", static_cast<unsigned long long>(testSeed()));
  }
};

// A counter that lives as long as the program. For namespaces: all of them must be made before the
// tests run.
inline Cases& casesOf(const char* what) {
  Cases* const cases = new Cases(what);
  testing::AddGlobalTestEnvironment(cases);
  return *cases;
}

#endif
