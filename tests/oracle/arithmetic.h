// SPDX-License-Identifier: MIT
//
// The two operations on which all the integer arithmetic of the oracle rests.

#ifndef TESTS_ORACLE_ARITHMETIC_H_
#define TESTS_ORACLE_ARITHMETIC_H_

#include <algorithm>
#include <cstdint>

namespace oracle {

// value / 2^bits, rounded towards minus infinity.
constexpr std::int64_t floorShift(std::int64_t value, int bits) {
  return value >> bits;
}

// value held to 0..255.
constexpr int saturate(std::int64_t value) {
  return static_cast<int>(std::clamp<std::int64_t>(value, 0, 255));
}

}  // namespace oracle

#endif  // TESTS_ORACLE_ARITHMETIC_H_
