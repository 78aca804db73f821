// SPDX-License-Identifier: MIT
//
// The families of conversions, divided by what they check and by the status they end with.

#ifndef TESTS_ORACLE_FAMILIES_H_
#define TESTS_ORACLE_FAMILIES_H_

#include <string_view>

namespace oracle {

enum class Family {
  DecodePlanar,
  DecodeInterleaved,
  Decode411,
  Depth,
  Encode411,
  Encode420,
  EncodeYuv420,
  Encode422Planar,
  Encode422Interleaved,
  RgbToYuv420,
  RgbToYuv422,
  TwistPacked,         // C3R, AC4R
  TwistPackedInPlace,  // C3IR, AC4IR
  TwistPlanar,         // P3R
  TwistPlanarInPlace   // IP3R
};

// The family of one of the 98 conversions. Throws std::invalid_argument for any other name.
Family familyOf(std::string_view name);

}  // namespace oracle

#endif  // TESTS_ORACLE_FAMILIES_H_
