// SPDX-License-Identifier: MIT
// Holds the encoding to 4:1:1 to known bytes.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string_view>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_encode.h"

namespace oracle {
namespace {

constexpr std::string_view k555 = "BGR555ToYCbCr411_16u8u_C3P3R";
constexpr std::string_view k565 = "BGR565ToYCbCr411_16u8u_C3P3R";

// The source ends with the last pixel that a conversion may read.
void expectSize(std::string_view name, int srcStep, int width, int height, int sign = 1) {
  const int used = width / 4 * 4;
  EncodeScene scene(noise(static_cast<std::size_t>(srcStep * (height - 1) + 2 * used), 4));
  scene.step[0] = 44;
  for (int& step : scene.step) step *= sign;
  EXPECT_EQ(scene.run(name, srcStep, width, height), width % 4 == 0 ? 0 : 35);
  Canvas wanted[3];
  for (int row = 0; row < height; ++row) {
    for (int i = 0; i < width / 4; ++i) {
      GroupSums s;
      for (int x = 4 * i; x < 4 * i + 4; ++x) {
        const Rgb c = unpackFor(name, scene.word(row * srcStep + 2 * x));
        wanted[0].putByte(row * scene.step[0] + x, encodeLuma(c));
        s.add(c);
      }
      wanted[1].putByte(row * scene.step[1] + i, encodeCb(s.r, s.g, s.b, 4));
      wanted[2].putByte(row * scene.step[2] + i, encodeCr(s.r, s.g, s.b, 4));
    }
  }
  for (int k = 0; k < 3; ++k) EXPECT_EQ(scene.plane[k], wanted[k]) << name << " " << width;
}

TEST(OracleEncode411, Width3IsRefused) {
  EXPECT_EQ(rejectionOf(k555, {.nulls = {}, .width = 3}), -6);
  EXPECT_EQ(rejectionOf(k565, {.nulls = {}, .width = 3}), -6);
}

TEST(OracleEncode411, Width4IsFourLumaAndOneOfEachChroma) {
  EncodeScene scene(Words{0x7C00, 0x7C00, 0x7C00, 0x03E0});
  EXPECT_EQ(scene.run(k555, 8, 4, 1), 0);
  EXPECT_EQ(scene.plane[0], byteRows({{80, 80, 80, 141}}, 4));
  EXPECT_EQ(scene.plane[1], byteRows({{82}}, 1));
  EXPECT_EQ(scene.plane[2], byteRows({{186}}, 1));
}

TEST(OracleEncode411, Width5LeavesColumn4AloneInEveryPlane) {
  EncodeScene scene(Words{0x7C00, 0x7C00, 0x7C00, 0x03E0, 0x1234});
  EXPECT_EQ(scene.run(k555, 10, 5, 1), 35);
  EXPECT_EQ(scene.plane[0], byteRows({{80, 80, 80, 141}}, 4));
  EXPECT_EQ(scene.plane[1], byteRows({{82}}, 1));
  EXPECT_EQ(scene.plane[2], byteRows({{186}}, 1));
}

TEST(OracleEncode411, RowOfFour565Pixels) {
  EncodeScene scene(Words{0xF800, 0x07E0, 0x001F, 0xFFFF});
  EXPECT_EQ(scene.run(k565, 8, 4, 1), 0);
  EXPECT_EQ(scene.plane[0], byteRows({{80, 143, 40, 231}}, 4));
}

TEST(OracleEncode411, EverySizeFromFourToSeventeen) {
  for (std::string_view name : {k555, k565}) {
    for (int width = 4; width <= 17; ++width) {
      for (int height = 1; height <= 4; ++height) expectSize(name, 2 * width, width, height);
    }
  }
}

TEST(OracleEncode411, Width36) {
  expectSize(k555, 72, 36, 2);
  expectSize(k565, 72, 36, 2);
}

TEST(OracleEncode411, OddSourcePitchStaysOdd) {
  expectSize(k555, 21, 9, 4);
  expectSize(k565, 23, 8, 4);
}

TEST(OracleEncode411, DestinationPitchesNegativeAndZero) {
  expectSize(k555, 18, 9, 4, -1);
  expectSize(k565, 18, 9, 4, 0);
}

TEST(OracleEncode411, EveryVariantGivesTheseFourPixelsTheSameLuma) {
  for (int slot = 0; slot < 7; ++slot) {
    EncodeScene scene(Words{0xF800, 0x07E0, 0x001F, 0xFFFF});
    EXPECT_EQ(scene.run(k565, 8, 4, 1, static_cast<Variant>(slot)), 0);
    EXPECT_EQ(scene.plane[0], byteRows({{80, 143, 40, 231}}, 4));
  }
}

TEST(OracleEncode411, NamesThatDoNotEncodeAreRefusedAloud) {
  EncodeScene scene(Words(64, 0));
  for (const char* name : {"BGR565ToBGR_16u8u_C3R", "YCbCrToBGR565_8u16u_C3R", "BGR555ToYUV422"}) {
    EXPECT_THROW(scene.run(name, 8, 4, 4), std::invalid_argument);
  }
}

}  // namespace
}  // namespace oracle
