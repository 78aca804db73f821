// SPDX-License-Identifier: MIT
// Holds the arithmetic of encoding to its constants and ranges, over all pixels and all reachable
// sums.
#include "tests/oracle/encode_forms.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <ostream>

#include "tests/oracle/oracle.h"

namespace oracle {
namespace {

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

TEST(OracleEncodeForms, LumaSpans16To229And231) {
  Range range555, range565;
  forAllWords([&](std::uint16_t word) {
    range555.add(encodeLuma(unpackBgr555(word)));
    range565.add(encodeLuma(unpackBgr565(word)));
  });
  EXPECT_EQ(range555, (Range{16, 229}));
  EXPECT_EQ(range565, (Range{16, 231}));
}

void expectChromaSpans(int n, int greenUnit, Range cb, Range cr) {
  Range seenCb, seenCr;
  forAllSums(n, greenUnit, [&](int r, int g, int b) {
    seenCb.add(encodeCb(r, g, b, n));
    seenCr.add(encodeCr(r, g, b, n));
  });
  EXPECT_EQ(seenCb, cb);
  EXPECT_EQ(seenCr, cr);
}

TEST(OracleEncodeForms, ChromaSpansOfGroupsOfFour) {
  expectChromaSpans(4, 8, {19, 236}, {19, 236});
  expectChromaSpans(4, 4, {18, 236}, {17, 236});
}

TEST(OracleEncodeForms, ChromaSpansOfGroupsOfTwo) {
  expectChromaSpans(2, 8, {19, 236}, {19, 236});
  expectChromaSpans(2, 4, {18, 236}, {17, 236});
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

}  // namespace
}  // namespace oracle
