// SPDX-License-Identifier: MIT
// Holds one channel of the colour twist to known values.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_rounding.h"

namespace oracle {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

// The byte of a value that the sums leave as it is.
int byteOf(float value) {
  const float row[4] = {0, 0, 0, value};
  return twistChannel(row, 1, 1, 1);
}

int channel(float t0, float t1, float t2, float t3, int s0, int s1, int s2) {
  const float row[4] = {t0, t1, t2, t3};
  return twistChannel(row, s0, s1, s2);
}

TEST(OracleTwist, RoundingExamples) {
  for (auto [value, byte] : {std::pair{2.5F, 2},
                             {3.5F, 4},
                             {-2.5F, -2},
                             {-3.5F, -4},
                             {0.5F, 0},
                             {1.5F, 2},
                             {126.5F, 126},
                             {126.7F, 127},
                             {-127.5F, -128},
                             {-128.0F, -128},
                             {-0.5F, 0},
                             {-1.5F, -2},
                             {-126.5F, -126}}) {
    EXPECT_EQ(byteOf(value), byte) << value;
  }
}

TEST(OracleTwist, SaturationAtBothEnds) {
  EXPECT_EQ(byteOf(127.0F), 127);
  EXPECT_EQ(byteOf(127.5F), 127);
  EXPECT_EQ(byteOf(128.0F), 127);
  EXPECT_EQ(byteOf(3e38F), 127);
  EXPECT_EQ(byteOf(std::nextafter(127.0F, 0.0F)), 127);
  EXPECT_EQ(byteOf(std::nextafter(-128.0F, 0.0F)), -128);
  EXPECT_EQ(byteOf(127.75F), 127);
  EXPECT_EQ(byteOf(-128.5F), -128);
  EXPECT_EQ(byteOf(-128.75F), -128);
  EXPECT_EQ(byteOf(-129.0F), -128);
  EXPECT_EQ(byteOf(-3e38F), -128);
}

// Half to even at every half, and to the nearer side next to it, in every rounding mode. The values
// next to one half that lie further from zero are told below.
TEST(OracleTwist, EveryHalfAndItsNeighboursInEveryMode) {
  for (int mode : kModes) {
    const RoundingMode scope(mode);
    for (int i = -128; i < 127; ++i) {
      const float half = static_cast<float>(i) + 0.5F;
      EXPECT_EQ(byteOf(static_cast<float>(i)), i);
      EXPECT_EQ(byteOf(half), i % 2 == 0 ? i : i + 1) << half;
      if (i != -1) {
        EXPECT_EQ(byteOf(std::nextafter(half, -1000.0F)), i) << half;
      }
      if (i != 0) {
        EXPECT_EQ(byteOf(std::nextafter(half, 1000.0F)), i + 1) << half;
      }
    }
  }
}

// The sum with a half falls between two floats: where it becomes 1 it is taken for a half.
TEST(OracleTwist, TheFloatBeyondOneHalfFollowsTheMode) {
  const float beyond = std::nextafter(0.5F, 1.0F);
  for (auto [mode, above, below] :
       {std::array{FE_TONEAREST, 0, 0}, std::array{FE_UPWARD, 1, 0}, std::array{FE_DOWNWARD, 0, -1},
        std::array{FE_TOWARDZERO, 0, 0}}) {
    const RoundingMode scope(mode);
    EXPECT_EQ(byteOf(beyond), above);
    EXPECT_EQ(byteOf(-beyond), below);
    EXPECT_EQ(byteOf(std::nextafter(beyond, 1.0F)), 1);
    EXPECT_EQ(byteOf(-std::nextafter(beyond, 1.0F)), -1);
  }
}

TEST(OracleTwist, ValuesInBetweenRoundToNearest) {
  for (float value = -128.0F; value < 127.0F; value += 0.0009765625F) {
    ASSERT_EQ(byteOf(value), static_cast<int>(std::nearbyint(value))) << value;
  }
}

TEST(OracleTwist, ZeroesAndTheSmallestValues) {
  EXPECT_EQ(byteOf(0.0F), 0);
  EXPECT_EQ(byteOf(-0.0F), 0);
  EXPECT_EQ(byteOf(std::numeric_limits<float>::denorm_min()), 0);
  EXPECT_EQ(byteOf(-std::numeric_limits<float>::denorm_min()), 0);
}

TEST(OracleTwist, NotANumberGives0FromEveryPlace) {
  for (int mode : kModes) {
    const RoundingMode scope(mode);
    for (int s : {-128, -1, 0, 1, 127}) {
      EXPECT_EQ(channel(kNan, 1, 1, 1, s, s, s), 0);
      EXPECT_EQ(channel(1, kNan, 1, 1, s, s, s), 0);
      EXPECT_EQ(channel(1, 1, kNan, 1, s, s, s), 0);
      EXPECT_EQ(channel(1, 1, 1, kNan, s, s, s), 0);
      EXPECT_EQ(channel(-kNan, 1, 1, 200, s, s, s), 0);
    }
    EXPECT_EQ(channel(kInfinity, 0, 0, 0, 0, 0, 0), 0);           // infinity times zero
    EXPECT_EQ(channel(kInfinity, 0, 0, -kInfinity, 1, 0, 0), 0);  // infinity minus infinity
  }
}

TEST(OracleTwist, InfinityGivesTheEndsFromEveryPlace) {
  for (int sign : {-1, 1}) {
    const int end = sign == 1 ? 127 : -128;
    const float infinity = static_cast<float>(sign) * kInfinity;
    EXPECT_EQ(channel(infinity, 1, 1, 1, 1, 1, 1), end);
    EXPECT_EQ(channel(1, infinity, 1, 1, 1, 1, 1), end);
    EXPECT_EQ(channel(1, 1, infinity, 1, 1, 1, 1), end);
    EXPECT_EQ(channel(1, 1, 1, infinity, 1, 1, 1), end);
    EXPECT_EQ(channel(infinity, 1, 1, 1, -1, 1, 1), -128 + 127 - end);
    EXPECT_EQ(channel(static_cast<float>(sign) * 3e38F, 0, 0, 0, 127, 0, 0), end);
  }
}

constexpr float k2To24 = 16777216.0F;

// 2^24 swallows a one that is added to it, so a sum shows what came first.
TEST(OracleTwist, ConstantIsAddedSecond) {
  EXPECT_EQ(channel(k2To24, -k2To24, 0, 1, 1, 1, 1), 0);
  EXPECT_EQ(channel(k2To24, 0, -k2To24, 1, 1, 1, 1), 0);
  EXPECT_EQ(channel(k2To24, 1, 0, -k2To24, 1, 1, 1), 1);
  EXPECT_EQ(channel(k2To24, 0, 1, -k2To24, 1, 1, 1), 1);
  EXPECT_EQ(channel(1, -k2To24, 0, k2To24, 1, 1, 1), 0);
}

TEST(OracleTwist, SecondSampleComesBeforeTheThird) {
  EXPECT_EQ(channel(k2To24, 1, -k2To24, 0, 1, 1, 1), 0);
  EXPECT_EQ(channel(k2To24, -k2To24, 1, 0, 1, 1, 1), 1);
}

// 3 * 8388609 is 25165827, halfway between two floats.
TEST(OracleTwist, ProductsAreRoundedBeforeTheyAreAdded) {
  EXPECT_EQ(channel(8388609.0F, 0, 0, -25165824.0F, 3, 0, 0), 4);
  EXPECT_EQ(channel(0, 8388609.0F, 0, -25165824.0F, 0, 3, 0), 4);
  EXPECT_EQ(channel(0, 0, 8388609.0F, -25165824.0F, 0, 0, 3), 4);
}

TEST(OracleTwist, ProductsFollowTheRoundingMode) {
  for (auto [mode, byte] :
       {std::pair{FE_TONEAREST, 4}, {FE_UPWARD, 4}, {FE_DOWNWARD, 2}, {FE_TOWARDZERO, 2}}) {
    const RoundingMode scope(mode);
    EXPECT_EQ(channel(8388609.0F, 0, 0, -25165824.0F, 3, 0, 0), byte);
    EXPECT_EQ(channel(0, 8388609.0F, 0, -25165824.0F, 0, 3, 0), byte);
    EXPECT_EQ(channel(0, 0, 8388609.0F, -25165824.0F, 0, 0, 3), byte);
  }
}

TEST(OracleTwist, SumsFollowTheRoundingMode) {
  for (auto [mode, byte] :
       {std::pair{FE_TONEAREST, 0}, {FE_UPWARD, 2}, {FE_DOWNWARD, 0}, {FE_TOWARDZERO, 0}}) {
    const RoundingMode scope(mode);
    EXPECT_EQ(channel(k2To24, -k2To24, 0, 1, 1, 1, 1), byte);
    EXPECT_EQ(channel(k2To24, 1, -k2To24, 0, 1, 1, 1), byte);
  }
  const RoundingMode scope(FE_DOWNWARD);
  EXPECT_EQ(channel(-k2To24, k2To24, 0, -1, 1, 1, 1), -2);
}

// Five times the float 0.1 is a half to nearest, and above it upwards.
TEST(OracleTwist, ModeDecidesBetweenTwoBytes) {
  const float tenth = 0.1F;
  EXPECT_EQ(channel(tenth, 0, 0, 2.0F, 5, 0, 0), 2);
  const RoundingMode scope(FE_UPWARD);
  EXPECT_EQ(channel(tenth, 0, 0, 2.0F, 5, 0, 0), 3);
}

TEST(OracleTwist, IdentityKeepsEverySample) {
  for (int s = -128; s <= 127; ++s) {
    EXPECT_EQ(channel(1, 0, 0, 0, s, -s / 2, 77), s);
    EXPECT_EQ(channel(0, 1, 0, 0, 5, s, -128), s);
    EXPECT_EQ(channel(0, 0, 1, 0, 127, 1, s), s);
  }
}

TEST(OracleTwist, Constant200FillsAndMinus200Empties) {
  for (int s = -128; s <= 127; ++s) {
    EXPECT_EQ(channel(0, 0, 0, 200.0F, s, s, s), 127);
    EXPECT_EQ(channel(0, 0, 0, -200.0F, s, s, s), -128);
  }
}

}  // namespace
}  // namespace oracle
