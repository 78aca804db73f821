// SPDX-License-Identifier: MIT
//
// The processor's rounding modes, for the oracle's own tests.

#ifndef TESTS_ORACLE_TEST_ROUNDING_H_
#define TESTS_ORACLE_TEST_ROUNDING_H_

#include <cfenv>

namespace oracle {

// Holds a rounding mode for the length of a scope.
class RoundingMode {
 public:
  explicit RoundingMode(int mode) { std::fesetround(mode); }
  ~RoundingMode() { std::fesetround(FE_TONEAREST); }
  RoundingMode(const RoundingMode&) = delete;
  RoundingMode& operator=(const RoundingMode&) = delete;
};

inline constexpr int kModes[] = {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO};

}  // namespace oracle

#endif  // TESTS_ORACLE_TEST_ROUNDING_H_
