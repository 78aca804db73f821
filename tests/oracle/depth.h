// SPDX-License-Identifier: MIT
//
// Depth conversion: 565 pixels to three bytes and back.

#ifndef TESTS_ORACLE_DEPTH_H_
#define TESTS_ORACLE_DEPTH_H_

#include <array>
#include <cstdint>
#include <string_view>

#include "basics.h"

namespace oracle {

// The three bytes of a word: the low field comes first, and the low bits stay zero.
std::array<std::uint8_t, 3> expandDepth(std::uint16_t word);

// The word of three bytes, truncated.
std::uint16_t packDepth(const std::array<std::uint8_t, 3>& bytes);

// The arguments of a depth conversion. The 16-bit side is little-endian and at any address, and its
// pitch may be odd.
struct DepthCall {
  const std::uint8_t* src;
  int srcStep;  // bytes, any sign
  std::uint8_t* dst;
  int dstStep;  // bytes, any sign
  int width;    // 1 or more
  int height;   // 1 or more
};

// Carries out a whole call and returns its status. The arguments are taken as good: no check is
// made. Throws std::invalid_argument for any name that is not one of the four of this family.
int convertDepth(std::string_view name, Variant variant, const DepthCall& call);

}  // namespace oracle

#endif  // TESTS_ORACLE_DEPTH_H_
