// SPDX-License-Identifier: MIT
// Literal pitches of destinations.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "include/pxmcc90lgc.h"

namespace {

TEST(DecodePitch, OddDestinationPitchLosesItsLowBit) {
  const unsigned char white[3 * 2] = {255, 128, 128, 255, 128, 128};
  for (const auto& [pitch, secondRow] : {std::pair{641, 640}, {-641, -642}}) {
    std::vector<unsigned char> memory(2000, 0x5A);
    unsigned char* first = memory.data() + 1000;
    EXPECT_EQ(legacy90pxmiYCbCrToBGR565_8u16u_C3R(
                  white, 3, reinterpret_cast<unsigned short*>(first), pitch, {1, 2}),
              0);
    for (int i = -1000; i < 1000; ++i) {
      const bool written = i == 0 || i == 1 || i == secondRow || i == secondRow + 1;
      EXPECT_EQ(first[i], written ? 0xFF : 0x5A) << "pitch " << pitch << ", byte " << i;
    }
  }
}

TEST(DecodePitch, ZeroWritesEveryRowOverTheFirst) {
  const unsigned char rows[3][3] = {{16, 128, 128}, {235, 128, 128}, {16, 128, 128}};
  unsigned short pixels[2] = {0x5A5A, 0x5A5A};
  EXPECT_EQ(legacy90pxmiYCbCrToBGR444_8u16u_C3R(rows[0], 3, pixels, 0, {1, 2}), 0);
  EXPECT_EQ(pixels[0], 0x0FFF);
  EXPECT_EQ(legacy90pxmiYCbCrToBGR444_8u16u_C3R(rows[0], 3, pixels, 0, {1, 3}), 0);
  EXPECT_EQ(pixels[0], 0);
  EXPECT_EQ(pixels[1], 0x5A5A);
}

TEST(DecodePitch, SourcePitchOfZeroReadsTheFirstRowAgain) {
  const unsigned char row[3] = {235, 128, 128};
  unsigned short pixels[3] = {0, 0, 0x5A5A};
  EXPECT_EQ(legacy90pxmiYCbCrToBGR444_8u16u_C3R(row, 0, pixels, 2, {1, 2}), 0);
  EXPECT_EQ(pixels[0], 0x0FFF);
  EXPECT_EQ(pixels[1], 0x0FFF);
  EXPECT_EQ(pixels[2], 0x5A5A);
}

}  // namespace
