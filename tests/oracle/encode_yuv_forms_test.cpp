// SPDX-License-Identifier: MIT
// Holds the arithmetic of encoding to YUV to known values.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>

#include "tests/oracle/encode_forms.h"
#include "tests/oracle/oracle.h"

namespace oracle {
namespace {

constexpr int kNearest = 32768;

TEST(OracleEncodeYuvForms, WeightsOfLuma) {
  EXPECT_EQ(encodeYuvWeight({1, 0, 0}), 19595);
  EXPECT_EQ(encodeYuvWeight({0, 1, 0}), 38470);
  EXPECT_EQ(encodeYuvWeight({0, 0, 1}), 7471);
  EXPECT_EQ(encodeYuvWeight({1, 1, 1}), 65536);
}

TEST(OracleEncodeYuvForms, WeightStaysBelow2To24) {
  for (int word = 0; word < 65536; ++word) {
    const auto pixel = static_cast<std::uint16_t>(word);
    const Rgb c = unpackRgb565(pixel);
    const std::int64_t weight = encodeYuvWeight(c);
    ASSERT_TRUE(weight >= 0 && weight < 1 << 24);
    ASSERT_EQ(weight, 19595 * c.r + 38470 * c.g + 7471 * c.b);
    ASSERT_EQ(encodeYuvLuma(weight, kNearest), (weight + 32768) / 65536);
    ASSERT_EQ(encodeYuvLuma(weight, 0), weight / 65536);
  }
}

int luma(Rgb c, int rounding) {
  return encodeYuvLuma(encodeYuvWeight(c), rounding);
}

TEST(OracleEncodeYuvForms, LumaOfSinglePixels) {
  EXPECT_EQ(luma(unpackBgr565(0xF800), kNearest), 74);
  EXPECT_EQ(luma(unpackBgr565(0x07E0), kNearest), 148);
  EXPECT_EQ(luma(unpackBgr555(0x7FFF), kNearest), 248);
  EXPECT_EQ(luma(unpackBgr565(0xFFFF), kNearest), 250);
  EXPECT_EQ(luma(unpackRgb565(0xF800), 0), 28);
  EXPECT_EQ(luma(unpackRgb565(0x07E0), 0), 147);
}

struct Group {
  int r = 0, b = 0;
  std::int64_t weight = 0;
};

template <typename Unpack, std::size_t N>
Group groupOf(Unpack unpack, const std::uint16_t (&words)[N]) {
  Group group;
  for (std::uint16_t word : words) {
    const Rgb c = unpack(word);
    group.r += c.r;
    group.b += c.b;
    group.weight += encodeYuvWeight(c);
  }
  return group;
}

void expectUv(const Group& group, int size, int u, int v) {
  EXPECT_EQ(encodeU(group.b, group.weight, size), u);
  EXPECT_EQ(encodeV(group.r, group.weight, size), v);
}

TEST(OracleEncodeYuvForms, ThreeOfF800AndOneOf07E0) {
  const std::uint16_t words[] = {0xF800, 0xF800, 0xF800, 0x07E0};
  expectUv(groupOf(unpackBgr565, words), 4, 82, 210);
  expectUv(groupOf(unpackRgb565, words), 4, 191, 77);
}

TEST(OracleEncodeYuvForms, TwoBlues) {
  const std::uint16_t words[] = {0xF800, 0xF800};
  expectUv(groupOf(unpackRgb565, words), 2, 236, 103);
}

TEST(OracleEncodeYuvForms, VReachesTheClampAtBothEnds) {
  const std::uint16_t reds[] = {0xF800, 0xF800, 0xF800, 0xF800};
  const std::uint16_t cyans[] = {0x07FF, 0x07FF, 0x07FF, 0x07FF};
  const Group red = groupOf(unpackBgr565, reds), cyan = groupOf(unpackBgr565, cyans);
  expectUv(red, 4, 91, 255);
  EXPECT_EQ(biasedV(red.r, red.weight, 4), 280);
  expectUv(cyan, 4, 163, 0);
  EXPECT_EQ(biasedV(cyan.r, cyan.weight, 4), -27);
}

struct Extremes {
  std::int64_t lowU = std::numeric_limits<std::int64_t>::max(), highU = -lowU;
  std::int64_t lowV = lowU, highV = highU;
};

// The chroma over every sum of a group's components, compared on the way with the 32-bit steps of
// its formula.
Extremes extremesOf(int n, int greenUnit, int k, int shift) {
  Extremes e;
  std::int64_t wrong = 0;
  for (int r = 0; r <= 248 * n; r += 8) {
    for (int g = 0; g <= (greenUnit == 8 ? 248 : 252) * n; g += greenUnit) {
      for (int b = 0; b <= 248 * n; b += 8) {
        const int weight = 19595 * r + 38470 * g + 7471 * b;
        const int u = ((((b << 16) - weight + k) >> 16) * 32244) >> shift;
        const int v = ((((r << 16) - weight + k) >> 16) * 57475) >> shift;
        wrong += encodeU(b, weight, n) != ((u - 128) & 255);
        wrong += encodeV(r, weight, n) != std::clamp(v + 128, 0, 255);
        wrong += biasedU(b, weight, n) != u + 128 || biasedV(r, weight, n) != v + 128;
        e.lowU = std::min<std::int64_t>(e.lowU, u + 128);
        e.highU = std::max<std::int64_t>(e.highU, u + 128);
        e.lowV = std::min<std::int64_t>(e.lowV, v + 128);
        e.highV = std::max<std::int64_t>(e.highV, v + 128);
      }
    }
  }
  EXPECT_EQ(wrong, 0);
  return e;
}

void expectExtremes(const Extremes& e, int lowV) {
  EXPECT_GE(e.lowU, 18);
  EXPECT_LE(e.highU, 236);
  EXPECT_EQ(e.lowV, lowV);
  EXPECT_EQ(e.highV, 280);
}

TEST(OracleEncodeYuvForms, EveryChromaSumOfGroupsOfFour) {
  expectExtremes(extremesOf(4, 8, 131071, 18), -25);
  const Extremes e = extremesOf(4, 4, 131071, 18);
  expectExtremes(e, -27);
  EXPECT_EQ(e.lowU, 18);
  EXPECT_EQ(e.highU, 236);
}

TEST(OracleEncodeYuvForms, EveryChromaSumOfGroupsOfTwo) {
  expectExtremes(extremesOf(2, 8, 65535, 17), -25);
  const Extremes e = extremesOf(2, 4, 65535, 17);
  expectExtremes(e, -27);
  EXPECT_EQ(e.lowU, 18);
  EXPECT_EQ(e.highU, 236);
}

TEST(OracleEncodeYuvForms, ChromaOfBlackAndOfNeutralGroups) {
  for (int n : {2, 4}) {
    for (int grey = 0; grey <= 248; grey += 8) {
      const std::int64_t weight = std::int64_t{grey} * 65536 * n;
      EXPECT_EQ(encodeU(grey * n, weight, n), 128);
      EXPECT_EQ(encodeV(grey * n, weight, n), 128);
    }
  }
}

}  // namespace
}  // namespace oracle
