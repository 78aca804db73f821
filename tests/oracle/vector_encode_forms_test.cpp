// SPDX-License-Identifier: MIT
// Holds the arithmetic of encoding in SIMD to its constants and ranges, over all pixels and all
// reachable sums.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <ostream>

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

void expectEveryChromaSum(int n, int greenUnit, Range cb, Range cr) {
  Range seenCb, seenCr, errorCb, errorCr;
  std::int64_t far = 0, different = 0;
  forAllSums(n, greenUnit, [&](int r, int g, int b) {
    const int byteCb = laneCb(r, g, b, n), byteCr = laneCr(r, g, b, n);
    const int offCb = std::abs(byteCb - encodeCb(r, g, b, n));
    const int offCr = std::abs(byteCr - encodeCr(r, g, b, n));
    far += offCb > 1 || offCr > 1;
    different += offCb != 0 || offCr != 0;
    seenCb.add(byteCb);
    seenCr.add(byteCr);
    errorCb.add(byteCb - (128 + (0.439 * b - 0.291 * g - 0.148 * r) / n));
    errorCr.add(byteCr - (128 + (0.439 * r - 0.368 * g - 0.071 * b) / n));
  });
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

// ---- YUV from BGR ------------------------------------------------------------------------------

TEST(OracleLaneBgrYuv, LevelOfEveryPixelIsALumaByte) {
  Range error;
  forAllWords([&](std::uint16_t word) {
    for (Unpack unpack : {unpackBgr555, unpackBgr565}) {
      const Rgb c = unpack(word);
      ASSERT_EQ(laneBgrLuma(laneBgrLevel(c)), laneBgrLevel(c));
      error.add(laneBgrLuma(laneBgrLevel(c)) - (0.299 * c.r + 0.587 * c.g + 0.114 * c.b));
    }
  });
  expectWithin(error, 0.55, 0.52);
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
  std::int64_t different = 0;
  for (Unpack unpack : {unpackBgr555, unpackBgr565}) {
    forManyGroups(unpack, 4, [&](const Group& s) {
      const int u = laneBgrU(s.b, s.levels), v = laneBgrV(s.r, s.levels);
      const double luma = 0.299 * s.r + 0.587 * s.g + 0.114 * s.b;
      errorU.add(u - std::clamp(128 + 0.492 * (s.b - luma) / 4, 0.0, 255.0));
      errorV.add(v - std::clamp(128 + 0.877 * (s.r - luma) / 4, 0.0, 255.0));
      const std::int64_t weight =
          std::int64_t{19595} * s.r + std::int64_t{38470} * s.g + std::int64_t{7471} * s.b;
      different += u != encodeU(s.b, weight, 4);
    });
  }
  EXPECT_GT(different, 2 * 65536 / 10);  // frequent, in far more than one group of twenty
  expectWithin(errorU, 0.8, 0.8);        // a half, and 0.492 times the half by which luma is off
  expectWithin(errorV, 1.0, 1.0);
}

// ---- YUV from RGB ------------------------------------------------------------------------------

TEST(OracleLaneRgbYuv, LumaStaysNearTheIdeal) {
  Range error;
  forAllWords([&](std::uint16_t word) {
    const Rgb c = unpackRgb565(word);
    error.add(laneRgbLuma(laneRgbWeight(c)) - (0.299 * c.r + 0.587 * c.g + 0.114 * c.b));
  });
  expectWithin(error, 2, 0.52);  // three products truncated, and the half of them truncated
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
    std::int64_t different = 0;
    forManyGroups(unpackRgb565, n, [&](const Group& s) {
      const int u = laneRgbU(s.b, s.weights, n), v = laneRgbV(s.r, s.weights, n);
      const double luma = 0.299 * s.r + 0.587 * s.g + 0.114 * s.b;
      errorU.add(u - std::clamp(128 + 0.492 * (s.b - luma) / n, 0.0, 255.0));
      errorV.add(v - std::clamp(128 + 0.877 * (s.r - luma) / n, 0.0, 255.0));
      const std::int64_t weight =
          std::int64_t{19595} * s.r + std::int64_t{38470} * s.g + std::int64_t{7471} * s.b;
      different += v != encodeV(s.r, weight, n);
    });
    EXPECT_GT(different, 2 * 65536 / 20);
    expectWithin(errorU, 1.3, 1.05);  // below: the floor and a code of blue. Above: four of luma
    expectWithin(errorV, 1.5, 1.8);
  }
}

}  // namespace
}  // namespace oracle
