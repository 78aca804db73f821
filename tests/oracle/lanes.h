// SPDX-License-Identifier: MIT
//
// The operations of a lane of 16 bits, written on wide numbers. Each says what becomes of a result
// that does not fit.

#ifndef TESTS_ORACLE_LANES_H_
#define TESTS_ORACLE_LANES_H_

#include <algorithm>
#include <cstdint>

#include "arithmetic.h"

namespace oracle {

// A lane's content: -32768 to 32767 where it is signed, 0 to 65535 where it is not.
using Lane = std::int64_t;

// A result that wraps, as a signed or as an unsigned lane.
constexpr Lane wrapLane(std::int64_t value) {
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
}
constexpr Lane wrapLaneU(std::int64_t value) {
  return static_cast<std::uint16_t>(value);
}

// A result that stops at the bounds of a signed or of an unsigned lane.
constexpr Lane saturateLane(std::int64_t value) {
  return std::clamp<std::int64_t>(value, -32768, 32767);
}
constexpr Lane saturateLaneU(std::int64_t value) {
  return std::clamp<std::int64_t>(value, 0, 65535);
}

// The shift of a lane's bits to the right that brings in zeroes, whatever the sign.
constexpr Lane shiftLaneU(Lane value, int bits) {
  return floorShift(wrapLaneU(value), bits);
}

// A signed lane as a byte that stops at 0 and at 255.
constexpr int packLane(Lane value) {
  return saturate(wrapLane(value));
}

// The upper 16 bits of a product of 32 bits, of signed or of unsigned lanes.
constexpr Lane laneMulHi(Lane a, Lane b) {
  return floorShift(a * b, 16);
}
constexpr Lane laneMulHiU(Lane a, Lane b) {
  return floorShift(a * b, 16);
}

}  // namespace oracle

#endif  // TESTS_ORACLE_LANES_H_
