// SPDX-License-Identifier: MIT
// Holds the arithmetic of encoding to YUV to its constants and ranges.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>

#include "tests/oracle/encode_forms.h"
#include "tests/oracle/oracle.h"

namespace oracle {
namespace {

TEST(OracleEncodeYuvForms, WeightsOfLuma) {
  EXPECT_EQ(encodeYuvWeight({1, 0, 0}), 19595);
  EXPECT_EQ(encodeYuvWeight({0, 1, 0}), 38470);
  EXPECT_EQ(encodeYuvWeight({0, 0, 1}), 7471);
  EXPECT_EQ(encodeYuvWeight({1, 1, 1}), 65536);
}

TEST(OracleEncodeYuvForms, WeightStaysBelow2To24) {
  for (int word = 0; word < 65536; ++word) {
    const std::int64_t weight = encodeYuvWeight(unpackRgb565(static_cast<std::uint16_t>(word)));
    ASSERT_TRUE(weight >= 0 && weight < 1 << 24);
  }
}

struct Extremes {
  std::int64_t lowU = std::numeric_limits<std::int64_t>::max(), highU = -lowU;
  std::int64_t lowV = lowU, highV = highU;
};

// The chroma, before it becomes a byte, over every sum of a group's components.
Extremes extremesOf(int n, int greenUnit) {
  Extremes e;
  for (int r = 0; r <= 248 * n; r += 8) {
    for (int g = 0; g <= (greenUnit == 8 ? 248 : 252) * n; g += greenUnit) {
      for (int b = 0; b <= 248 * n; b += 8) {
        const std::int64_t weight = encodeYuvWeight({r, g, b});
        const std::int64_t u = biasedU(b, weight, n), v = biasedV(r, weight, n);
        e.lowU = std::min(e.lowU, u);
        e.highU = std::max(e.highU, u);
        e.lowV = std::min(e.lowV, v);
        e.highV = std::max(e.highV, v);
      }
    }
  }
  return e;
}

void expectExtremes(const Extremes& e, int lowV) {
  EXPECT_GE(e.lowU, 18);
  EXPECT_LE(e.highU, 236);
  EXPECT_EQ(e.lowV, lowV);
  EXPECT_EQ(e.highV, 280);
}

TEST(OracleEncodeYuvForms, EveryChromaSumOfGroupsOfFour) {
  expectExtremes(extremesOf(4, 8), -25);
  const Extremes e = extremesOf(4, 4);
  expectExtremes(e, -27);
  EXPECT_EQ(e.lowU, 18);
  EXPECT_EQ(e.highU, 236);
}

TEST(OracleEncodeYuvForms, EveryChromaSumOfGroupsOfTwo) {
  expectExtremes(extremesOf(2, 8), -25);
  const Extremes e = extremesOf(2, 4);
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
