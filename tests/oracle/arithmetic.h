// SPDX-License-Identifier: MIT
//
// The operations on which all the integer arithmetic of the oracle rests.

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

// value as a signed number of 32 bits that wraps.
constexpr std::int64_t wrap32(std::int64_t value) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

}  // namespace oracle

#endif  // TESTS_ORACLE_ARITHMETIC_H_
