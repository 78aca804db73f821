// SPDX-License-Identifier: MIT
// Holds the arithmetic of encoding in SIMD to known values, over all pixels and all reachable
// sums.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <ostream>
#include <tuple>

#include "tests/oracle/lanes.h"
#include "tests/oracle/oracle.h"

namespace oracle {
namespace {

using Unpack = Rgb (*)(std::uint16_t);
constexpr Unpack kUnpacks[] = {unpackBgr555, unpackBgr565, unpackRgb565};

struct Range {
  double low = std::numeric_limits<double>::max();
  double high = std::numeric_limits<double>::lowest();
  void add(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
  friend bool operator==(const Range&, const Range&) = default;
};

void PrintTo(const Range& range, std::ostream* out) {
  *out << range.low << " to " << range.high;
}

// The widest that a byte may stand off an exact value, below and above.
void expectWithin(const Range& error, double below, double above) {
  EXPECT_GT(error.low, -below);
  EXPECT_LT(error.high, above);
}

template <typename Visit>
void forAllWords(Visit visit) {
  for (int word = 0; word < 65536; ++word) visit(static_cast<std::uint16_t>(word));
}

// Calls visit for every sum of a group's components; the unit of green is 8 for 555 and 4 for 565.
template <typename Visit>
void forAllSums(int groupSize, int greenUnit, Visit visit) {
  const int green = greenUnit == 8 ? 248 : 252;
  for (int r = 0; r <= 248 * groupSize; r += 8) {
    for (int g = 0; g <= green * groupSize; g += greenUnit) {
      for (int b = 0; b <= 248 * groupSize; b += 8) visit(r, g, b);
    }
  }
}

// Four pixels without a visible pattern, and the sums of what they come to.
struct Group {
  int r = 0, g = 0, b = 0;
  std::int64_t levels = 0, weights = 0;
  void add(Rgb c) {
    r += c.r;
    g += c.g;
    b += c.b;
    levels += laneBgrLevel(c);
    weights += laneRgbWeight(c);
  }
};

// Calls visit for groups of count pixels: of one colour each, all of them, and of several.
template <typename Visit>
void forManyGroups(Unpack unpack, int count, Visit visit) {
  std::uint32_t state = 1;
  forAllWords([&](std::uint16_t word) {
    Group same, mixed;
    for (int k = 0; k < count; ++k) {
      state = state * 1664525 + 1013904223;
      same.add(unpack(word));
      mixed.add(unpack(static_cast<std::uint16_t>(state >> 16)));
    }
    visit(same);
    visit(mixed);
  });
}

TEST(OracleLanes, ResultsThatDoNotFit) {
  EXPECT_EQ(saturateLaneU(65536), 65535);
  EXPECT_EQ(saturateLaneU(65535), 65535);
  EXPECT_EQ(saturateLaneU(-1), 0);
  EXPECT_EQ(shiftLaneU(-1, 7), 511);
  EXPECT_EQ(shiftLaneU(-32768, 15), 1);
  EXPECT_EQ(shiftLaneU(32767, 6), 511);
  EXPECT_EQ(packLane(-1), 0);
  EXPECT_EQ(packLane(256), 255);
  EXPECT_EQ(packLane(255), 255);
  EXPECT_EQ(packLane(65535), 0);  // a lane of all ones is -1
}

// ---- YCbCr -------------------------------------------------------------------------------------

// The product of two unsigned lanes without its low half.
constexpr std::uint16_t high(std::uint16_t a, std::uint16_t b) {
  return static_cast<std::uint16_t>(std::uint32_t{a} * b >> 16);
}

// Fields as they stand at the top of a lane.
struct Tops {
  std::uint16_t r, g, b;
};

constexpr std::uint16_t top(int field, int bits) {
  return static_cast<std::uint16_t>(field << (16 - bits));
}
constexpr Tops tops555(std::uint16_t p) {
  return {top(p >> 10 & 31, 5), top(p >> 5 & 31, 5), top(p & 31, 5)};
}
constexpr Tops tops565(std::uint16_t p) {
  return {top(p >> 11 & 31, 5), top(p >> 5 & 63, 6), top(p & 31, 5)};
}

TEST(OracleLaneYCbCr, LumaOfEveryPixel) {
  const auto luma = [](Tops t) {
    return (high(t.r, 8422) + high(t.g, 16515) + high(t.b, 3212) + 2112) / 128;
  };
  forAllWords([&](std::uint16_t word) {
    ASSERT_EQ(laneLuma(unpackBgr555(word)), luma(tops555(word)));
    ASSERT_EQ(laneLuma(unpackBgr565(word)), luma(tops565(word)));
  });
}

TEST(OracleLaneYCbCr, LumaOfBlackAndWhiteAndTheThreeColours) {
  EXPECT_EQ(laneLuma({0, 0, 0}), 16);          // 2112 / 128 = 16.5
  EXPECT_EQ(laneLuma({248, 248, 248}), 229);   // 8158 + 15998 + 3111 + 2112 = 29379
  EXPECT_EQ(laneLuma({248, 252, 248}), 231);   // 8158 + 16256 + 3111 + 2112 = 29637
  EXPECT_EQ(laneLuma({248, 0, 0}), 80);        // 8158 + 2112 = 10270
  EXPECT_EQ(laneLuma({0, 248, 0}), 141);       // 15998 + 2112 = 18110
  EXPECT_EQ(laneLuma({0, 0, 248}), 40);        // 3111 + 2112 = 5223
  EXPECT_EQ(laneLuma({160, 136, 80}), 133);    // 5263 + 8773 + 1003 + 2112 = 17151, one below 134
  EXPECT_EQ(encodeLuma({160, 136, 80}), 134);  // 8782144 / 65536 = 134.005
  EXPECT_EQ(laneLuma({40, 184, 56}), 124);     // 1315 + 11870 + 702 + 2112 = 15999, one below 125
  EXPECT_EQ(encodeLuma({40, 184, 56}), 125);
}

TEST(OracleLaneYCbCr, LumaStaysWithinACodeOfTheReference) {
  Range error;
  int different = 0;
  for (Unpack unpack : kUnpacks) {
    forAllWords([&](std::uint16_t word) {
      const Rgb c = unpack(word);
      ASSERT_LE(std::abs(laneLuma(c) - encodeLuma(c)), 1);
      different += laneLuma(c) != encodeLuma(c);
      error.add(laneLuma(c) - (16 + 0.257 * c.r + 0.504 * c.g + 0.098 * c.b));
    });
  }
  expectWithin(error, 0.55, 0.52);  // a half, and below it three truncated products of 1/128 each
  EXPECT_GT(different, 0);
}

// No sum comes near a bound of its lane, so plain arithmetic gives the same.
void expectEveryChromaSum(int n, int greenUnit, Range cb, Range cr) {
  const int bias = n == 4 ? 16400 : 8200, shift = n == 4 ? 7 : 6;
  Range seenCb, seenCr, errorCb, errorCr;
  std::int64_t wrong = 0, far = 0, different = 0;
  forAllSums(n, greenUnit, [&](int r, int g, int b) {
    const int byteCb = laneCb(r, g, b, n), byteCr = laneCr(r, g, b, n);
    const int distanceCb =
        (b * 32 * 28770 >> 16) - ((r * 32 * 9699 >> 16) + (g * 32 * 19071 >> 16));
    const int distanceCr =
        (r * 32 * 28770 >> 16) - ((g * 32 * 24117 >> 16) + (b * 32 * 4653 >> 16));
    wrong += byteCb != (distanceCb + bias) >> shift;
    wrong += byteCr != (distanceCr + bias) >> shift;
    const int offCb = std::abs(byteCb - encodeCb(r, g, b, n));
    const int offCr = std::abs(byteCr - encodeCr(r, g, b, n));
    far += offCb > 1 || offCr > 1;
    different += offCb != 0 || offCr != 0;
    seenCb.add(byteCb);
    seenCr.add(byteCr);
    errorCb.add(byteCb - (128 + (0.439 * b - 0.291 * g - 0.148 * r) / n));
    errorCr.add(byteCr - (128 + (0.439 * r - 0.368 * g - 0.071 * b) / n));
  });
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(far, 0);
  EXPECT_GT(different, 0);
  EXPECT_EQ(seenCb, cb);
  EXPECT_EQ(seenCr, cr);
  expectWithin(errorCb, 0.92, 0.18);  // an eighth more than the floor, and three products of 1/64
  expectWithin(errorCr, 0.92, 0.18);
}

// Blue alone gives the highest Cb of 13935 + 16400 = 30335, and all but blue the lowest: 555 of
// -(4697 + 9237) + 16400 = 2466, 565 of -(4697 + 9386) + 16400 = 2317. The lowest Cr are
// -(11681 + 2253) + 16400 = 2466 and -(11870 + 2253) + 16400 = 2277. All are divided by 128.
TEST(OracleLaneYCbCr, EveryChromaSumOfGroupsOfFour) {
  expectEveryChromaSum(4, 8, {19, 236}, {19, 236});
  expectEveryChromaSum(4, 4, {18, 236}, {17, 236});
}

// The same by halves: 6967 + 8200 = 15167, -(2348 + 4618) + 8200 = 1234, -(2348 + 4693) + 8200 =
// 1159, -(5840 + 1126) + 8200 = 1234 and -(5935 + 1126) + 8200 = 1139. All are divided by 64.
TEST(OracleLaneYCbCr, EveryChromaSumOfGroupsOfTwo) {
  expectEveryChromaSum(2, 8, {19, 236}, {19, 236});
  expectEveryChromaSum(2, 4, {18, 236}, {17, 236});
}

TEST(OracleLaneYCbCr, ChromaOfGreys) {
  for (int n : {2, 4}) {
    EXPECT_EQ(laneCb(0, 0, 0, n), 128);  // 8200 / 64 = 16400 / 128 = 128.125
    EXPECT_EQ(laneCr(0, 0, 0, n), 128);
    // 6967 - (2348 + 4618) = 6967 - (5840 + 1126) = 1, 13935 - (4697 + 9237) = 1
    EXPECT_EQ(laneCb(248 * n, 248 * n, 248 * n, n), 128);
    EXPECT_EQ(laneCr(248 * n, 248 * n, 248 * n, n), 128);
  }
}

// In SIMD 2247 - (1515 + 2532) + 8200 = 6400 and 4495 - (3030 + 5065) + 16400 = 12800: just 100.
// Without the truncation of each product the Cb of this colour is 99.99.
TEST(OracleLaneYCbCr, CbThatTruncationRaises) {
  for (int n : {2, 4}) {
    EXPECT_EQ(laneCb(160 * n, 136 * n, 80 * n, n), 100);
    EXPECT_EQ(encodeCb(160 * n, 136 * n, 80 * n, n), 99);
    EXPECT_EQ(laneCr(160 * n, 136 * n, 80 * n, n), 142);
    EXPECT_EQ(encodeCr(160 * n, 136 * n, 80 * n, n), 142);
  }
}

// In SIMD 1123 - (4333 + 254) + 8200 = 4736 and 2247 - (8667 + 508) + 16400 = 9472: just 74.
TEST(OracleLaneYCbCr, CrThatTruncationRaises) {
  for (int n : {2, 4}) {
    EXPECT_EQ(laneCr(40 * n, 184 * n, 56 * n, n), 74);
    EXPECT_EQ(encodeCr(40 * n, 184 * n, 56 * n, n), 73);
    EXPECT_EQ(laneCb(40 * n, 184 * n, 56 * n, n), 93);
    EXPECT_EQ(encodeCb(40 * n, 184 * n, 56 * n, n), 93);
  }
}

// ---- YUV from BGR ------------------------------------------------------------------------------

TEST(OracleLaneBgrYuv, LevelOfEveryPixel) {
  const auto level = [](Tops t) {
    return (high(t.r, 9798) + high(t.g, 19235) + high(t.b, 3736) + 64) / 128;
  };
  Range error;
  forAllWords([&](std::uint16_t word) {
    ASSERT_EQ(laneBgrLevel(unpackBgr555(word)), level(tops555(word)));
    ASSERT_EQ(laneBgrLevel(unpackBgr565(word)), level(tops565(word)));
    for (Unpack unpack : {unpackBgr555, unpackBgr565}) {
      const Rgb c = unpack(word);
      ASSERT_EQ(laneBgrLuma(laneBgrLevel(c)), laneBgrLevel(c));
      error.add(laneBgrLuma(laneBgrLevel(c)) - (0.299 * c.r + 0.587 * c.g + 0.114 * c.b));
    }
  });
  expectWithin(error, 0.55, 0.52);
}

TEST(OracleLaneBgrYuv, LevelsOfSingleColours) {
  EXPECT_EQ(laneBgrLevel({0, 0, 0}), 0);          // 64 / 128
  EXPECT_EQ(laneBgrLevel({248, 0, 0}), 74);       // 9491 + 64 = 9555
  EXPECT_EQ(laneBgrLevel({0, 252, 0}), 148);      // 18934 + 64 = 18998
  EXPECT_EQ(laneBgrLevel({0, 0, 248}), 28);       // 3619 + 64 = 3683
  EXPECT_EQ(laneBgrLevel({248, 248, 248}), 248);  // 9491 + 18633 + 3619 + 64 = 31807
  EXPECT_EQ(laneBgrLevel({248, 252, 248}), 250);  // 9491 + 18934 + 3619 + 64 = 32108
}

TEST(OracleLaneBgrYuv, ChromaOfGroupsOfOneColour) {
  EXPECT_EQ(laneBgrU(0, 0), 128);  // 8224 / 64 = 128.5
  EXPECT_EQ(laneBgrV(0, 0), 128);
  // Red, with levels of 296: -9472 and 31744 - 9472 are 5893 and 17990 times 1/64.
  EXPECT_EQ(laneBgrU(0, 296), 92);
  EXPECT_EQ(laneBgrV(992, 296), 255);  // 281 without the pack
  // Cyan, with levels of 4 * 176 = 704: 31744 - 22528 and -22528 are 10491 and -1655 times 1/64.
  EXPECT_EQ(laneBgrLevel({0, 252, 248}), 176);  // 18934 + 3619 + 64 = 22617
  EXPECT_EQ(laneBgrU(992, 704), 163);
  EXPECT_EQ(laneBgrV(0, 704), 0);  // -26 without the pack
  // Blue, with levels of 112: 31744 - 3584 and -3584 are 15151 and 6652 times 1/64.
  EXPECT_EQ(laneBgrU(992, 112), 236);
  EXPECT_EQ(laneBgrV(0, 112), 103);
}

// -16000 * 16122 / 65536 = -3936.04 gives -3937 + 8224 = 4287, the last of 66. A factor of 16121
// would give -3936 + 8224 = 4288, the first of 67. In 16000 * 16122 / 65536 = 3936.04 it is the
// first of 190, and would be the last of 189.
TEST(OracleLaneBgrYuv, FactorOfUIs16122) {
  EXPECT_EQ(laneBgrU(0, 500), 66);
  EXPECT_EQ(laneBgrU(4 * 152, 4 * 27), 190);  // 76 * 256 - 108 * 32 = 16000
}

TEST(OracleLaneBgrYuv, ChromaOfManyGroups) {
  Range errorU, errorV;
  std::int64_t wrong = 0, different = 0;
  for (Unpack unpack : {unpackBgr555, unpackBgr565}) {
    forManyGroups(unpack, 4, [&](const Group& s) {
      const int u = laneBgrU(s.b, s.levels), v = laneBgrV(s.r, s.levels);
      const int levels = static_cast<int>(s.levels);
      const int rawU = (((s.b * 32 - levels * 32) * 16122 >> 16) + 8224) >> 6;
      const int rawV = (((s.r * 32 - levels * 32) * 28737 >> 16) + 8224) >> 6;
      wrong += u != std::clamp(rawU, 0, 255);
      wrong += v != std::clamp(rawV, 0, 255);
      const double luma = 0.299 * s.r + 0.587 * s.g + 0.114 * s.b;
      errorU.add(u - std::clamp(128 + 0.492 * (s.b - luma) / 4, 0.0, 255.0));
      errorV.add(v - std::clamp(128 + 0.877 * (s.r - luma) / 4, 0.0, 255.0));
      const std::int64_t weight =
          std::int64_t{19595} * s.r + std::int64_t{38470} * s.g + std::int64_t{7471} * s.b;
      different += u != encodeU(s.b, weight, 4);
    });
  }
  EXPECT_EQ(wrong, 0);
  EXPECT_GT(different, 2 * 65536 / 10);  // frequent, in far more than one group of twenty
  expectWithin(errorU, 0.8, 0.8);        // a half, and 0.492 times the half by which luma is off
  expectWithin(errorV, 1.0, 1.0);
}

// ---- YUV from RGB ------------------------------------------------------------------------------

// Fields by a mask and a shift, in signed lanes.
TEST(OracleLaneRgbYuv, WeightAndLumaOfEveryPixel) {
  Range error;
  forAllWords([&](std::uint16_t word) {
    const Rgb rgb = unpackRgb565(word);
    const int a = (word & 31) << 5, c = (word & 63488) >> 6, e = (word & 2016) >> 1;
    const int t = (a * 9798 >> 16) + (c * 3736 >> 16) + (e * 19235 >> 16);
    ASSERT_EQ(laneRgbWeight(rgb), t);
    ASSERT_EQ(laneRgbLuma(t), (t + 1) / 2);
    error.add(laneRgbLuma(t) - (0.299 * rgb.r + 0.587 * rgb.g + 0.114 * rgb.b));
  });
  expectWithin(error, 2, 0.52);  // three products truncated, and the half of them truncated
}

TEST(OracleLaneRgbYuv, WeightsAndLumaOfSingleColours) {
  for (auto [c, weight, luma] :
       {std::tuple{Rgb{0, 0, 0}, 0, 0}, std::tuple{Rgb{248, 0, 0}, 148, 74},
        std::tuple{Rgb{0, 252, 0}, 295, 148}, std::tuple{Rgb{0, 0, 248}, 56, 28},
        std::tuple{Rgb{248, 252, 248}, 148 + 295 + 56, 250}, std::tuple{Rgb{8, 4, 48}, 18, 9}}) {
    EXPECT_EQ(laneRgbWeight(c), weight);
    EXPECT_EQ(laneRgbLuma(weight), luma);
  }
}

TEST(OracleLaneRgbYuv, ChromaOfGroupsOfOneColour) {
  for (int n : {2, 4}) {
    EXPECT_EQ(laneRgbU(0, 0, n), 128);
    EXPECT_EQ(laneRgbV(0, 0, n), 128);
    EXPECT_EQ(laneRgbU(0, 148 * n, n), 91);         // red: -148 gives -37
    EXPECT_EQ(laneRgbV(248 * n, 148 * n, n), 255);  // 496 - 148 gives 152, 280 without the pack
    EXPECT_EQ(laneRgbU(248 * n, 56 * n, n), 236);   // blue: 496 - 56 gives 108
    EXPECT_EQ(laneRgbV(0, 56 * n, n), 103);         // -56 gives -25
    EXPECT_EQ(laneRgbU(48 * n, 18 * n, n), 147);    // 96 - 18 gives 19
    EXPECT_EQ(laneRgbV(8 * n, 18 * n, n), 127);     // 16 - 18 gives -1
  }
}

// 374 * 16121 / 65536 = 91.998 gives 91. A factor of 16122 would give 92.
TEST(OracleLaneRgbYuv, FactorOfUIs16121) {
  EXPECT_EQ(laneRgbWeight({0, 8, 216}), 58);  // 49 of blue, 9 of green
  for (int n : {2, 4}) {
    EXPECT_EQ(laneRgbU(216 * n, 58 * n, n), 219);  // 432 - 58 = 374
  }
}

// The sums are brought down before the difference, and each loses what does not divide.
TEST(OracleLaneRgbYuv, SumsAreTruncatedOneByOne) {
  EXPECT_EQ(laneRgbU(0, 3, 4), 128);  // 3 / 4 is nothing
  EXPECT_EQ(laneRgbU(0, 4, 4), 127);  // a difference of -1 gives -1
  EXPECT_EQ(laneRgbU(0, 1, 2), 128);
  EXPECT_EQ(laneRgbU(0, 2, 2), 127);
  EXPECT_EQ(laneRgbV(0, 3, 4), 128);
  EXPECT_EQ(laneRgbV(0, 4, 4), 127);
}

TEST(OracleLaneRgbYuv, ChromaOfManyGroups) {
  for (int n : {2, 4}) {
    Range errorU, errorV;
    std::int64_t wrong = 0, different = 0;
    forManyGroups(unpackRgb565, n, [&](const Group& s) {
      const int u = laneRgbU(s.b, s.weights, n), v = laneRgbV(s.r, s.weights, n);
      const int luma2 = static_cast<int>(s.weights) / n;
      wrong += u != std::clamp(((s.b * 2 / n - luma2) * 16121 >> 16) + 128, 0, 255);
      wrong += v != std::clamp(((s.r * 2 / n - luma2) * 28737 >> 16) + 128, 0, 255);
      const double luma = 0.299 * s.r + 0.587 * s.g + 0.114 * s.b;
      errorU.add(u - std::clamp(128 + 0.492 * (s.b - luma) / n, 0.0, 255.0));
      errorV.add(v - std::clamp(128 + 0.877 * (s.r - luma) / n, 0.0, 255.0));
      const std::int64_t weight =
          std::int64_t{19595} * s.r + std::int64_t{38470} * s.g + std::int64_t{7471} * s.b;
      different += v != encodeV(s.r, weight, n);
    });
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(different, 2 * 65536 / 20);
    expectWithin(errorU, 1.3, 1.05);  // below: the floor and a code of blue. Above: four of luma
    expectWithin(errorV, 1.5, 1.8);
  }
}

}  // namespace
}  // namespace oracle
