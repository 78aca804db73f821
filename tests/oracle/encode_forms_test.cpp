// SPDX-License-Identifier: MIT
// Holds the arithmetic of encoding to known values, over all pixels and all reachable sums.
#include "tests/oracle/encode_forms.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <ostream>

#include "tests/oracle/oracle.h"

namespace oracle {
namespace {

using Unpack = Rgb (*)(std::uint16_t);
constexpr Unpack kUnpacks[] = {unpackBgr555, unpackBgr565, unpackRgb565};

struct Range {
  std::int64_t low = std::numeric_limits<std::int64_t>::max();
  std::int64_t high = std::numeric_limits<std::int64_t>::min();
  void add(std::int64_t value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
  friend bool operator==(const Range&, const Range&) = default;
};

void PrintTo(const Range& range, std::ostream* out) {
  *out << range.low << " to " << range.high;
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

TEST(OracleEncodeForms, FieldsOfAWord) {
  forAllWords([](std::uint16_t word) {
    const int low = (word & 31) << 3;
    ASSERT_EQ(unpackBgr555(word), (Rgb{((word >> 10) & 31) << 3, ((word >> 5) & 31) << 3, low}));
    const int middle = ((word >> 5) & 63) << 2, high = ((word >> 11) & 31) << 3;
    ASSERT_EQ(unpackBgr565(word), (Rgb{high, middle, low}));
    ASSERT_EQ(unpackRgb565(word), (Rgb{low, middle, high}));
  });
}

TEST(OracleEncodeForms, ExpansionNeverReaches255) {
  EXPECT_EQ(unpackBgr555(0x7FFF), (Rgb{248, 248, 248}));
  EXPECT_EQ(unpackBgr555(0xFFFF), (Rgb{248, 248, 248}));  // bit 15 is ignored
  EXPECT_EQ(unpackBgr555(0x8000), (Rgb{0, 0, 0}));
  EXPECT_EQ(unpackBgr565(0xFFFF), (Rgb{248, 252, 248}));
  EXPECT_EQ(unpackRgb565(0xFFFF), (Rgb{248, 252, 248}));
}

// A weight stands out of luma at a component of 65536, and luma 16 alone is the offset.
TEST(OracleEncodeForms, WeightsOfLuma) {
  EXPECT_EQ(encodeLuma({65536, 0, 0}) - 16, 16843);
  EXPECT_EQ(encodeLuma({0, 65536, 0}) - 16, 33030);
  EXPECT_EQ(encodeLuma({0, 0, 65536}) - 16, 6423);
  EXPECT_EQ(16843 + 33030 + 6423, 56296);
}

// The offset is sixteen levels and a half. The value never needs more than a byte.
TEST(OracleEncodeForms, LumaOfEveryPixel) {
  for (Unpack unpack : kUnpacks) {
    forAllWords([&](std::uint16_t word) {
      const Rgb c = unpack(word);
      const int sum = 6423 * c.b + 33030 * c.g + 16843 * c.r + 1081344;
      ASSERT_EQ(encodeLuma(c), sum >> 16);
      ASSERT_TRUE(sum >= 0 && sum >> 16 < 256);
    });
  }
  EXPECT_EQ(1081344, 33 * 32768);
}

TEST(OracleEncodeForms, LumaSpans16To229And231) {
  Range range555, range565;
  forAllWords([&](std::uint16_t word) {
    range555.add(encodeLuma(unpackBgr555(word)));
    range565.add(encodeLuma(unpackBgr565(word)));
  });
  EXPECT_EQ(range555, (Range{16, 229}));
  EXPECT_EQ(range565, (Range{16, 231}));
}

TEST(OracleEncodeForms, LumaOfBlackAndWhiteAndTheThreeColours) {
  EXPECT_EQ(encodeLuma({0, 0, 0}), 16);
  EXPECT_EQ(encodeLuma(unpackBgr555(0x7FFF)), 229);
  EXPECT_EQ(encodeLuma(unpackBgr565(0xFFFF)), 231);
  EXPECT_EQ(encodeLuma(unpackBgr555(0x7C00)), 80);
  EXPECT_EQ(encodeLuma(unpackBgr555(0x03E0)), 141);
  EXPECT_EQ(encodeLuma(unpackBgr555(0x001F)), 40);
  EXPECT_EQ(encodeLuma(unpackBgr565(0xF800)), 80);
  EXPECT_EQ(encodeLuma(unpackBgr565(0x07E0)), 143);
  EXPECT_EQ(encodeLuma(unpackBgr565(0x001F)), 40);
}

TEST(OracleEncodeForms, ChromaOfBlackAndWhite) {
  for (int n : {2, 4}) {
    EXPECT_EQ(encodeCb(0, 0, 0, n), 128);
    EXPECT_EQ(encodeCr(0, 0, 0, n), 128);
    EXPECT_EQ(encodeCb(248 * n, 248 * n, 248 * n, n), 128);
    EXPECT_EQ(encodeCr(248 * n, 248 * n, 248 * n, n), 128);
  }
}

// The green of a white of 565 is 252, four above red and blue.
TEST(OracleEncodeForms, ChromaOfAGroupOf565WhitesIs126) {
  for (int n : {2, 4}) {
    EXPECT_EQ(encodeCb(248 * n, 252 * n, 248 * n, n), 126);
    EXPECT_EQ(encodeCr(248 * n, 252 * n, 248 * n, n), 126);
  }
}

// The bias as it acts on the eight bits: 128 steps and an eighth.
void expectEveryChromaSum(int n, int greenUnit, int shift, std::int64_t bias, Range cb, Range cr) {
  Range seenCb, seenCr;
  std::int64_t wrong = 0;
  forAllSums(n, greenUnit, [&](int r, int g, int b) {
    const int cbByte = encodeCb(r, g, b, n), crByte = encodeCr(r, g, b, n);
    wrong += cbByte != (28770 * b - 19071 * g - 9699 * r + bias) >> shift;
    wrong += crByte != (28770 * r - 4653 * b - 24117 * g + bias) >> shift;
    seenCb.add(cbByte);
    seenCr.add(crByte);
  });
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(seenCb, cb);
  EXPECT_EQ(seenCr, cr);
  EXPECT_EQ(bias, (std::int64_t{128} << shift) + (std::int64_t{1} << (shift - 3)));
}

TEST(OracleEncodeForms, EveryChromaSumOfGroupsOfFour) {
  expectEveryChromaSum(4, 8, 18, 33587200, {19, 236}, {19, 236});
  expectEveryChromaSum(4, 4, 18, 33587200, {18, 236}, {17, 236});
}

TEST(OracleEncodeForms, EveryChromaSumOfGroupsOfTwo) {
  expectEveryChromaSum(2, 8, 17, 16793600, {19, 236}, {19, 236});
  expectEveryChromaSum(2, 4, 17, 16793600, {18, 236}, {17, 236});
}

TEST(OracleEncodeForms, EveryCbOfASinglePixel) {
  for (Unpack unpack : kUnpacks) {
    forAllWords([&](std::uint16_t word) {
      const Rgb c = unpack(word);
      const int sum = 28770 * c.b - 19071 * c.g - 9699 * c.r;
      ASSERT_EQ(encodeCbSingle(c), (sum + 128 * 65536 + 8192) >> 16);
    });
  }
}

// Components that no pixel has move the sums by single units, which shows the last digit of the
// bias.
TEST(OracleEncodeForms, BiasesToTheLastDigit) {
  for (int r = 0; r < 256; r += 51) {
    for (int g = 0; g < 256; ++g) {
      for (int b = 0; b < 256; ++b) {
        const int cb = 28770 * b - 19071 * g - 9699 * r;
        ASSERT_EQ(encodeCbSingle({r, g, b}), (cb - 8380416) >> 16 & 255);
        ASSERT_EQ(encodeCb(r, g, b, 2), (cb - 16760832) >> 17 & 255);
        ASSERT_EQ(encodeCb(r, g, b, 4), (cb - 33521664) >> 18 & 255);
        ASSERT_EQ(encodeLuma({r, g, b}), (6423 * b + 33030 * g + 16843 * r + 1081344) >> 16);
      }
    }
  }
}

// The exact chroma of these groups is 128 and a fraction on either side of seven eighths.
TEST(OracleEncodeForms, AnEighthIsAddedAndNotAHalf) {
  EXPECT_EQ(encodeCb(0, 0, 7, 4), 128);  // 0.768
  EXPECT_EQ(encodeCb(0, 0, 8, 4), 129);  // 0.878
  EXPECT_EQ(encodeCb(0, 0, 3, 2), 128);  // 0.658
  EXPECT_EQ(encodeCb(0, 0, 4, 2), 129);  // 0.878
  EXPECT_EQ(encodeCbSingle({0, 0, 1}), 128);
  EXPECT_EQ(encodeCbSingle({0, 0, 2}), 129);
}

TEST(OracleEncodeForms, ChromaOfThreeRedsAndAGreen) {
  EXPECT_EQ(encodeCb(3 * 248, 248, 0, 4), 82);
  EXPECT_EQ(encodeCr(3 * 248, 248, 0, 4), 186);
  EXPECT_EQ(encodeCb(3 * 248, 252, 0, 4), 82);
  EXPECT_EQ(encodeCr(3 * 248, 252, 0, 4), 186);
}

TEST(OracleEncodeForms, ChromaOfARedAndABlue) {
  EXPECT_EQ(encodeCb(248, 0, 248, 2), 164);
  EXPECT_EQ(encodeCr(248, 0, 248, 2), 173);
}

TEST(OracleEncodeForms, CbOfASingleGreen) {
  EXPECT_EQ(encodeCbSingle(unpackBgr555(0x03E0)), 55);
  EXPECT_EQ(encodeCbSingle(unpackBgr565(0x07E0)), 54);
}

}  // namespace
}  // namespace oracle
