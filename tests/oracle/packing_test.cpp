// SPDX-License-Identifier: MIT
// Holds plain and dithered packing to known values.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>

#include "tests/oracle/arithmetic.h"
#include "tests/oracle/oracle.h"

namespace oracle {
namespace {

using Level = int (*)(int, int);
constexpr std::array<int, 3> kDepths = {444, 555, 565};

struct PackedColours {
  int depth;
  bool bgr;
  std::uint16_t red, green, blue, white;
};

TEST(OraclePacking, FieldsStandWhereTheLayoutPutsThem) {
  const PackedColours layouts[] = {
      {444, true, 0x0F00, 0x00F0, 0x000F, 0x0FFF}, {444, false, 0x000F, 0x00F0, 0x0F00, 0x0FFF},
      {555, true, 0x7C00, 0x03E0, 0x001F, 0x7FFF}, {555, false, 0x001F, 0x03E0, 0x7C00, 0x7FFF},
      {565, true, 0xF800, 0x07E0, 0x001F, 0xFFFF}, {565, false, 0x001F, 0x07E0, 0xF800, 0xFFFF}};
  for (const PackedColours& layout : layouts) {
    EXPECT_EQ(packPlain({255, 0, 0}, layout.depth, layout.bgr), layout.red);
    EXPECT_EQ(packPlain({0, 255, 0}, layout.depth, layout.bgr), layout.green);
    EXPECT_EQ(packPlain({0, 0, 255}, layout.depth, layout.bgr), layout.blue);
    EXPECT_EQ(packPlain({255, 255, 255}, layout.depth, layout.bgr), layout.white);
  }
}

TEST(OraclePacking, TruncationDropsTheLowBits) {
  EXPECT_EQ(packPlain({15, 15, 15}, 444, true), 0);
  EXPECT_EQ(packPlain({7, 7, 7}, 555, true), 0);
  EXPECT_EQ(packPlain({7, 3, 7}, 565, true), 0);
  EXPECT_EQ(packPlain({7, 7, 7}, 565, true), 1 << 5);
  EXPECT_EQ(packPlain({0x9A, 0x56, 0xC3}, 444, true), 0x095C);
  EXPECT_EQ(packPlain({0x9A, 0x56, 0xC3}, 444, false), 0x0C59);
}

TEST(OracleDither, Matrix444Is289TimesTheClassicMatrix) {
  const int classic[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      EXPECT_EQ(threshold(444, row, column), 289 * classic[row][column]);
    }
  }
}

TEST(OracleDither, Matrix555ServesBothDepthsAsItStands) {
  const int entries[4][4] = {
      {0, 1118, 279, 1398}, {1678, 559, 1957, 839}, {419, 1538, 139, 1258}, {2097, 978, 1817, 699}};
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      EXPECT_EQ(threshold(555, row, column), entries[row][column]);
      EXPECT_EQ(threshold(565, row, column), entries[row][column]);
    }
  }
}

TEST(OracleDither, MatrixRepeatsEveryFour) {
  for (int depth : kDepths) {
    for (int row = 0; row < 12; ++row) {
      for (int column = 0; column < 12; ++column) {
        EXPECT_EQ(threshold(depth, row, column), threshold(depth, row % 4, column % 4));
      }
    }
  }
}

TEST(OracleDither, ZeroStaysZeroAtEveryThreshold) {
  for (int t = 0; t <= 4335; ++t) {
    ASSERT_EQ(ditherLevel4(0, t), 0);
    ASSERT_EQ(ditherLevel5(0, t), 0);
    ASSERT_EQ(ditherLevel6(0, t), 0);
  }
}

TEST(OracleDither, FullComponentReachesTheTopOf4And5BitsEverywhere) {
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      EXPECT_EQ(ditherLevel4(255, threshold(444, row, column)), 15);
      EXPECT_EQ(ditherLevel5(255, threshold(555, row, column)), 31);
    }
  }
  EXPECT_EQ(ditherLevel4(255, 4351), 15);  // the residue is 4352
  EXPECT_EQ(ditherLevel4(255, 4352), 14);
  EXPECT_EQ(ditherLevel5(255, 2129), 31);  // the residue is 2130
  EXPECT_EQ(ditherLevel5(255, 2130), 30);
}

TEST(OracleDither, LevelsOf100) {
  EXPECT_EQ(ditherLevel4(100, 4046), 5);
  EXPECT_EQ(ditherLevel4(100, 3757), 6);
  EXPECT_EQ(ditherLevel5(100, 279), 13);
  EXPECT_EQ(ditherLevel5(100, 419), 12);
  EXPECT_EQ(ditherLevel6(100, 1398), 25);
  EXPECT_EQ(ditherLevel6(100, 1538), 24);
}

TEST(OracleDither, FieldOfALevelIsTheLevel) {
  for (int level = 0; level < 32; ++level) EXPECT_EQ(floorShift(level * 2105, 11), level);
  for (int level = 0; level < 64; ++level) EXPECT_EQ(floorShift(level * 1036, 10), level);
}

TEST(OracleDither, LevelsStayWithinTheirFields) {
  for (int value = 0; value < 256; ++value) {
    for (int t = 0; t <= 4335; ++t) {
      ASSERT_TRUE(ditherLevel4(value, t) >= 0 && ditherLevel4(value, t) <= 15);
      ASSERT_TRUE(ditherLevel5(value, t) >= 0 && ditherLevel5(value, t) <= 31);
      ASSERT_TRUE(ditherLevel6(value, t) >= 0 && ditherLevel6(value, t) <= 63);
    }
  }
}

// At threshold 0 a level is raised exactly where something of the component remains, and no
// residue is negative.
TEST(OracleDither, FirstPixelRaisesEveryNonZeroResidue) {
  for (int value = 0; value < 256; ++value) {
    const int level4 = value * 15 / 256, rest4 = value * 256 - level4 * 4352;
    const int level5 = value * 31 / 256, rest5 = value * 256 - level5 * 2105;
    const int level6 = value * 63 / 256, rest6 = value * 256 - level6 * 1036;
    EXPECT_TRUE(rest4 >= 0 && rest5 >= 0 && rest6 >= 0);
    EXPECT_EQ(ditherLevel4(value, threshold(444, 0, 0)), level4 + (rest4 != 0));
    EXPECT_EQ(ditherLevel5(value, threshold(555, 0, 0)), level5 + (rest5 != 0));
    EXPECT_EQ(ditherLevel6(value, threshold(565, 0, 0)), level6 + (rest6 != 0));
  }
}

}  // namespace
}  // namespace oracle
