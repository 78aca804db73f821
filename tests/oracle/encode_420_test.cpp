// SPDX-License-Identifier: MIT
// Holds the encoding to 4:2:0 to known bytes.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_encode.h"

namespace oracle {
namespace {

constexpr std::array<std::string_view, 4> kNames = {
    "BGR555ToYCbCr420_16u8u_C3P3R", "BGR565ToYCbCr420_16u8u_C3P3R", "BGR555ToYCrCb420_16u8u_C3P3R",
    "BGR565ToYCrCb420_16u8u_C3P3R"};

// The offset of a source row: pairs lie twice the pitch apart, the lower row loses the low bit.
int rowOffset(int srcStep, int row) {
  return row / 2 * (2 * srcStep) + row % 2 * (srcStep / 2 * 2);
}

// The planes that a scene of srcStep 0 or more comes to.
std::array<Canvas, 3> expected420(std::string_view name, const EncodeScene& scene, int srcStep,
                                  int width, int height) {
  std::array<Canvas, 3> planes;
  const bool crFirst = name.find("YCrCb") != name.npos;
  const auto pixel = [&](int x, int y) {
    return unpackFor(name, scene.word(rowOffset(srcStep, y) + 2 * x));
  };
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      planes[0].putByte(y * scene.step[0] + x, encodeLuma(pixel(x, y)));
    }
  }
  for (int j = 0; j < height / 2; ++j) {
    for (int i = 0; i < width / 2; ++i) {
      GroupSums s;
      for (int k = 0; k < 4; ++k) s.add(pixel(2 * i + k % 2, 2 * j + k / 2));
      const int cb = encodeCb(s.r, s.g, s.b, 4), cr = encodeCr(s.r, s.g, s.b, 4);
      planes[1].putByte(j * scene.step[1] + i, crFirst ? cr : cb);
      planes[2].putByte(j * scene.step[2] + i, crFirst ? cb : cr);
    }
  }
  return planes;
}

void expectSize(std::string_view name, int width, int height, int srcStep) {
  const int bytes = rowOffset(srcStep, height - 1) + 2 * width;
  EncodeScene scene(noise(static_cast<std::size_t>(bytes), 3));
  EXPECT_EQ(scene.run(name, srcStep, width, height), 0);
  const auto wanted = expected420(name, scene, srcStep, width, height);
  for (std::size_t k = 0; k < 3; ++k) {
    EXPECT_EQ(scene.plane[k], wanted[k]) << name << " " << width << " by " << height;
  }
}

void expectPlanes(const EncodeScene& scene, const std::vector<std::vector<int>>& luma, int first,
                  int second) {
  EXPECT_EQ(scene.plane[0], byteRows(luma, scene.step[0]));
  EXPECT_EQ(scene.plane[1], byteRows({{first}}, scene.step[1]));
  EXPECT_EQ(scene.plane[2], byteRows({{second}}, scene.step[2]));
}

TEST(OracleEncode420, OneWideOrHighIsRefused) {
  for (std::string_view name : kNames) {
    EXPECT_EQ(rejectionOf(name, {.nulls = {}, .width = 1, .height = 8}), -6);
    EXPECT_EQ(rejectionOf(name, {.nulls = {}, .width = 8, .height = 1}), -6);
  }
}

TEST(OracleEncode420, TwoByTwoOfThreeRedsAndAGreen) {
  EncodeScene first(Words{0x7C00, 0x7C00, 0x7C00, 0x03E0});
  EXPECT_EQ(first.run(kNames[0], 4, 2, 2), 0);
  expectPlanes(first, {{80, 80}, {80, 141}}, 82, 186);
  EncodeScene second(Words{0x7C00, 0x7C00, 0x7C00, 0x03E0});
  EXPECT_EQ(second.run(kNames[2], 4, 2, 2), 0);
  expectPlanes(second, {{80, 80}, {80, 141}}, 186, 82);
}

TEST(OracleEncode420, TwoByTwoOfFourColours) {
  EncodeScene first(Words{0x7C00, 0x03E0, 0x001F, 0x7FFF});
  EXPECT_EQ(first.run(kNames[0], 4, 2, 2), 0);
  expectPlanes(first, {{80, 141}, {40, 229}}, 128, 128);
  EncodeScene second(Words{0xF800, 0x07E0, 0x001F, 0xFFFF});
  EXPECT_EQ(second.run(kNames[1], 4, 2, 2), 0);
  expectPlanes(second, {{80, 143}, {40, 231}}, 127, 127);
}

TEST(OracleEncode420, ThreeByThreeGivesNineLumaAndOneOfEachChroma) {
  EncodeScene scene(Words{0x7C00, 0x7C00, 0x001F, 0x7C00, 0x03E0, 0x7FFF, 0, 0x03E0, 0x7C00});
  EXPECT_EQ(scene.run(kNames[0], 6, 3, 3), 0);
  expectPlanes(scene, {{80, 80, 40}, {80, 141, 229}, {16, 141, 80}}, 82, 186);
}

TEST(OracleEncode420, EverySizeFromTwoToNine) {
  for (std::string_view name : kNames) {
    for (int width = 2; width <= 9; ++width) {
      for (int height = 2; height <= 7; ++height) expectSize(name, width, height, 2 * width + 4);
    }
  }
}

TEST(OracleEncode420, Widths17And18) {
  for (std::string_view name : kNames) {
    expectSize(name, 17, 3, 34);
    expectSize(name, 18, 3, 36);
  }
}

TEST(OracleEncode420, Pitch21ReadsRowsAt0And20And42And62) {
  for (int row = 0; row < 4; ++row) {
    const int offsets[] = {0, 20, 42, 62};
    EXPECT_EQ(rowOffset(21, row), offsets[row]);
    Bytes source(66);
    source[static_cast<std::size_t>(offsets[row])] = 0x1F;
    EncodeScene scene(source);
    scene.run(kNames[1], 21, 2, 4);
    for (int y = 0; y < 4; ++y) {
      EXPECT_EQ(scene.plane[0].byteAt(y * scene.step[0]), y == row ? 40 : 16);
    }
  }
  for (std::string_view name : kNames) {
    for (int height = 2; height <= 7; ++height) expectSize(name, 7, height, 21);
  }
}

// The picture upside down, read from its last row up.
TEST(OracleEncode420, NegativeEvenPitchGivesTheBytesOfTheUprightImage) {
  for (std::string_view name : kNames) {
    for (int height = 2; height <= 5; ++height) {
      const auto rowBytes = std::size_t{14};
      EncodeScene upright(noise(rowBytes * static_cast<std::size_t>(height), 8));
      Bytes turned;
      for (int row = height - 1; row >= 0; --row) {
        const auto first = upright.source.begin() + row * 14;
        turned.insert(turned.end(), first, first + 14);
      }
      upright.run(name, 14, 7, height);
      EncodeScene other{Bytes()};
      encode(name, Variant::mx,
             {turned.data() + (height - 1) * 14,
              -14,
              {other.plane[0].origin(), other.plane[1].origin(), other.plane[2].origin()},
              {24, 13, 11},
              7,
              height});
      for (int k = 0; k < 3; ++k) EXPECT_EQ(other.plane[k], upright.plane[k]);
    }
  }
}

TEST(OracleEncode420, NegativeOddPitchGrowsTowardsTheLowerRow) {
  Bytes source(64);
  source[64 - 4 - 22] = 0x1F;  // the lower row of the pair lies 22 bytes before the upper
  source[64 - 4 - 42] = 0x1F;  // and the next pair 42
  EncodeScene scene{Bytes()};
  encode(kNames[1], Variant::mx,
         {source.data() + 60,
          -21,
          {scene.plane[0].origin(), scene.plane[1].origin(), scene.plane[2].origin()},
          {24, 13, 11},
          2,
          3});
  EXPECT_EQ(scene.plane[0], byteRows({{16, 16}, {40, 16}, {40, 16}}, 24));
}

TEST(OracleEncode420, DestinationPitchesNegativeAndZero) {
  for (std::string_view name : kNames) {
    for (int step : {-24, 0, 1, 2}) {
      EncodeScene scene(noise(70, 5));
      for (int& each : scene.step) each = step;
      scene.run(name, 14, 2, 5);
      Canvas luma;
      for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 2; ++x) {
          luma.putByte(y * step + x, encodeLuma(unpackFor(name, scene.word(14 * y + 2 * x))));
        }
      }
      EXPECT_EQ(scene.plane[0], luma);
    }
  }
}

// An image of blues, each with a luma of its own.
EncodeScene blues(int count) {
  Words words;
  for (int i = 0; i < count; ++i) words.push_back(static_cast<std::uint16_t>(i * 2));
  return EncodeScene(words);
}

std::vector<int> lumaOfBlues(const std::vector<int>& places) {
  std::vector<int> luma;
  for (int place : places) luma.push_back(encodeLuma({0, 0, place * 16}));
  return luma;
}

TEST(OracleEncode420, BlocksGoFromLeftToRightAndTheUpperRowComesFirst) {
  EncodeScene scene = blues(10);
  scene.step[0] = 1;
  scene.run(kNames[0], 10, 5, 2);
  EXPECT_EQ(scene.plane[0], byteRows({lumaOfBlues({0, 5, 2, 7, 4, 9})}, 1));
}

TEST(OracleEncode420, OddLastColumnOfAPairComesBeforeTheNextPair) {
  EncodeScene scene = blues(12);
  scene.step[0] = 2;
  scene.run(kNames[0], 6, 3, 4);
  EXPECT_EQ(scene.plane[0], byteRows({lumaOfBlues({0, 1, 2, 4, 6, 7, 8, 10, 11})}, 1));
}

TEST(OracleEncode420, EveryVariantAnswersAsTheReferenceBelowTheSmallestBlock) {
  for (int slot = 0; slot < 7; ++slot) {
    EncodeScene scene(Words{0x7C00, 0x7C00, 0x7C00, 0x03E0});
    EXPECT_EQ(scene.run(kNames[0], 4, 2, 2, static_cast<Variant>(slot)), 0);
    expectPlanes(scene, {{80, 80}, {80, 141}}, 82, 186);
  }
}

}  // namespace
}  // namespace oracle
