// SPDX-License-Identifier: MIT
// Holds pixels of different names to one another, for all samples.
#include <gtest/gtest.h>

#include <cstdint>
#include <string_view>

#include "tests/oracle/oracle.h"
#include "tests/oracle/samples.h"

namespace oracle {
namespace {

// In how many triples two names' scalar pixels, the first put through `of`, are not the same. The
// place goes through all phases of the dither.
template <typename Of>
std::int64_t differences(std::string_view first, std::string_view second, Of of) {
  const DecodeName p = parseDecodeName(first).value(), q = parseDecodeName(second).value();
  std::int64_t different = 0;
  forAllSamples([&](int y, int cb, int cr) {
    const int row = y + cb, column = cr;
    different += of(decodePixel(p, Variant::mx, false, y, cb, cr, row, column)) !=
                 decodePixel(q, Variant::mx, false, y, cb, cr, row, column);
  });
  return different;
}

TEST(OracleDecodePixel, PlanarAndInterleavedDitheredAgree) {
  EXPECT_EQ(differences("YCbCrToBGR565Dither_8u16u_P3C3R", "YCbCrToBGR565Dither_8u16u_C3R",
                        [](int word) { return word; }),
            0);
}

TEST(OracleDecodePixel, ColourOrdersDifferInTheSwapOfTheOuterFields) {
  const auto swapped = [](int word) { return (word & 0x00F0) | (word & 0x000F) << 8 | word >> 8; };
  EXPECT_EQ(differences("YCbCrToBGR444_8u16u_C3R", "YCbCrToRGB444_8u16u_C3R", swapped), 0);
}

}  // namespace
}  // namespace oracle
