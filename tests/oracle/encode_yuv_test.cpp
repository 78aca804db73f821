// SPDX-License-Identifier: MIT
// Holds the encoding to YUV to known bytes.
#include <gtest/gtest.h>

#include <array>
#include <string_view>
#include <utility>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_encode.h"

namespace oracle {
namespace {

constexpr std::string_view k555 = "BGR555ToYUV420_16u8u_C3P3R";
constexpr std::string_view k565 = "BGR565ToYUV420_16u8u_C3P3R";
constexpr std::string_view kRgb420 = "RGB565ToYUV420_16u8u_C3P3R";
constexpr std::string_view kRgb422 = "RGB565ToYUV422_16u8u_C3P3R";

// The offset of a source row of a pitch of 0 or more.
int rowOffset(std::string_view name, int srcStep, int row) {
  if (name == kRgb420 || name == kRgb422) return row * srcStep;
  return row / 2 * (2 * srcStep) + row % 2 * (srcStep / 2 * 2);
}

// The source ends with the last pixel of the even part, which is all that may be read.
void expectSize(std::string_view name, int srcStep, int width, int height, int sign = 1) {
  const bool all = name == kRgb422;  // chroma in every row
  const int rows = all ? 1 : 2, evenWidth = width / 2 * 2, evenHeight = height / rows * rows;
  const int bytes =
      evenWidth * evenHeight == 0 ? 0 : rowOffset(name, srcStep, evenHeight - 1) + 2 * evenWidth;
  EncodeScene scene(noise(static_cast<std::size_t>(bytes), 7));
  for (int& step : scene.step) step *= sign;
  scene.step[0] *= 2;
  const bool warned = width % 2 != 0 || (!all && height % 2 != 0);
  EXPECT_EQ(scene.run(name, srcStep, width, height), warned ? 35 : 0);
  Canvas wanted[3];
  for (int j = 0; j < evenHeight / rows; ++j) {
    for (int i = 0; i < evenWidth / 2; ++i) {
      GroupSums s;
      for (int k = 0; k < 2 * rows; ++k) {
        const int x = 2 * i + k % 2, y = rows * j + k / 2;
        const Rgb c = unpackFor(name, scene.word(rowOffset(name, srcStep, y) + 2 * x));
        const int rounding = name.starts_with("BGR") ? 32768 : 0;
        wanted[0].putByte(y * scene.step[0] + x, encodeYuvLuma(encodeYuvWeight(c), rounding));
        s.add(c);
      }
      wanted[1].putByte(j * scene.step[1] + i, encodeU(s.b, s.weight, 2 * rows));
      wanted[2].putByte(j * scene.step[2] + i, encodeV(s.r, s.weight, 2 * rows));
    }
  }
  for (int k = 0; k < 3; ++k) {
    EXPECT_EQ(scene.plane[k], wanted[k]) << name << " " << width << " by " << height;
  }
}

void expectBlock(std::string_view name, const Words& words, std::array<int, 4> luma, int u, int v) {
  EncodeScene scene(words);
  EXPECT_EQ(scene.run(name, 4, 2, 2), 0);
  EXPECT_EQ(scene.plane[0], byteRows({{luma[0], luma[1]}, {luma[2], luma[3]}}, scene.step[0]));
  EXPECT_EQ(scene.plane[1], byteRows({{u}}, 1));
  EXPECT_EQ(scene.plane[2], byteRows({{v}}, 1));
}

TEST(OracleEncodeYuv, BlockOfFourColours) {
  expectBlock(k555, {0x7C00, 0x03E0, 0x001F, 0x7FFF}, {74, 146, 28, 248}, 128, 128);
  expectBlock(k565, {0xF800, 0x07E0, 0x001F, 0xFFFF}, {74, 148, 28, 250}, 127, 127);
  expectBlock(kRgb420, {0xF800, 0x07E0, 0x001F, 0xFFFF}, {28, 147, 74, 250}, 127, 127);
}

TEST(OracleEncodeYuv, BlockOfThreeF800AndOne07E0) {
  expectBlock(k565, {0xF800, 0xF800, 0xF800, 0x07E0}, {74, 74, 74, 148}, 82, 210);
  expectBlock(kRgb420, {0xF800, 0xF800, 0xF800, 0x07E0}, {28, 28, 28, 147}, 191, 77);
}

TEST(OracleEncodeYuv, PairOfF800) {
  EncodeScene scene(Words{0xF800, 0xF800});
  EXPECT_EQ(scene.run(kRgb422, 4, 2, 1), 0);
  EXPECT_EQ(scene.plane[0], byteRows({{28, 28}}, 2));
  EXPECT_EQ(scene.plane[1], byteRows({{236}}, 1));
  EXPECT_EQ(scene.plane[2], byteRows({{103}}, 1));
}

TEST(OracleEncodeYuv, ThreeByThreeIsOneBlockAndTheRestUnread) {
  for (std::string_view name : {k555, k565}) {
    const bool wide = name == k565;
    const auto red = static_cast<std::uint16_t>(wide ? 0xF800 : 0x7C00);
    EncodeScene scene(Words{red, red, 0x1234, red, red});
    EXPECT_EQ(scene.run(name, 6, 3, 3), 35);
    EXPECT_EQ(scene.plane[0], byteRows({{74, 74}, {74, 74}}, scene.step[0]));
    EXPECT_EQ(scene.plane[1], byteRows({{91}}, 1));
    EXPECT_EQ(scene.plane[2], byteRows({{255}}, 1));
  }
}

TEST(OracleEncodeYuv, TwoByOne) {
  EncodeScene nothing{Bytes()};
  EXPECT_EQ(nothing.run(kRgb420, 4, 2, 1), 35);
  for (const Canvas& plane : nothing.plane) EXPECT_EQ(plane, Canvas());
  EXPECT_EQ(rejectionOf(k555, {.nulls = {}, .width = 2, .height = 1}), -6);
  EXPECT_EQ(rejectionOf(k565, {.nulls = {}, .width = 2, .height = 1}), -6);
  EncodeScene pair(Words{0xFFFF, 0xFFFF});
  EXPECT_EQ(pair.run(kRgb422, 4, 2, 1), 0);
  EXPECT_EQ(pair.plane[0], byteRows({{250, 250}}, 2));
  EXPECT_NE(pair.plane[1], Canvas());
  EXPECT_NE(pair.plane[2], Canvas());
}

TEST(OracleEncodeYuv, Width1IsAcceptedByRgbAndWritesNothing) {
  for (std::string_view name : {kRgb420, kRgb422}) {
    EncodeScene scene{Bytes()};
    EXPECT_EQ(scene.run(name, 4, 1, 4), 35);
    for (const Canvas& plane : scene.plane) EXPECT_EQ(plane, Canvas());
  }
  EXPECT_EQ(rejectionOf(k565, {.nulls = {}, .width = 1}), -6);
  EXPECT_EQ(rejectionOf(kRgb420, {.nulls = {}, .width = 1}), 0);
}

TEST(OracleEncodeYuv, NullPlaneWithAnEmptyRegion) {
  const CallFacts facts{.nulls = {Argument::DstPlanes}, .width = 0};
  for (std::string_view name : {kRgb420, kRgb422}) EXPECT_EQ(rejectionOf(name, facts), -6);
  for (std::string_view name : {k555, k565}) EXPECT_EQ(rejectionOf(name, facts), -8);
}

TEST(OracleEncodeYuv, EverySizeFromOneToNine) {
  for (int width = 1; width <= 9; ++width) {
    for (int height = 1; height <= 5; ++height) {
      if (width > 1 && height > 1) {
        for (std::string_view name : {k555, k565}) expectSize(name, 2 * width, width, height);
      }
      for (std::string_view name : {kRgb420, kRgb422}) expectSize(name, 2 * width, width, height);
    }
  }
}

TEST(OracleEncodeYuv, Width29OfTheEncoderTo422) {
  expectSize(kRgb422, 58, 29, 2);
}

TEST(OracleEncodeYuv, Pitch21ReadsRowsAt0And20And42And62OrAt0And21And42And63) {
  for (auto [name, offsets] : {std::pair{k555, std::array{0, 20, 42, 62}},
                               {k565, std::array{0, 20, 42, 62}},
                               {kRgb420, std::array{0, 21, 42, 63}},
                               {kRgb422, std::array{0, 21, 42, 63}}}) {
    for (int row = 0; row < 4; ++row) {
      EXPECT_EQ(rowOffset(name, 21, row), offsets[static_cast<std::size_t>(row)]);
    }
    for (int height = 2; height <= 7; ++height) expectSize(name, 21, 7, height);
  }
}

TEST(OracleEncodeYuv, DestinationPitchesNegative) {
  for (std::string_view name : {k555, k565, kRgb420, kRgb422}) expectSize(name, 14, 7, 4, -1);
}

TEST(OracleEncodeYuv, NegativePitchWalksUp) {
  const Words turned = {0x001F, 0xFFFF, 0xF800, 0x07E0};  // the lower row of the block first
  const Bytes source = bytesOf(turned);
  for (auto [name, luma] :
       {std::pair{k565, std::array{74, 148, 28, 250}}, {kRgb420, std::array{28, 147, 74, 250}}}) {
    EncodeScene scene{Bytes()};
    Canvas* planes = scene.plane;
    encode(name, Variant::mx,
           {source.data() + 4,
            -4,
            {planes[0].origin(), planes[1].origin(), planes[2].origin()},
            {2, 1, 1},
            2,
            2});
    EXPECT_EQ(planes[0], byteRows({{luma[0], luma[1], luma[2], luma[3]}}, 4));
    EXPECT_EQ(planes[1], byteRows({{127}}, 1));
    EXPECT_EQ(planes[2], byteRows({{127}}, 1));
  }
}

// At a pitch of 1 the upper row of a block is stored over the lower row of the block before it.
TEST(OracleEncodeYuv, BlocksGoFromLeftToRightAndTheUpperRowComesFirst) {
  for (std::string_view name : {k555, k565, kRgb420}) {
    EncodeScene scene(Words{1, 3, 5, 7, 9, 11, 13, 15});
    scene.step[0] = 1;
    scene.run(name, 8, 4, 2);
    const auto luma = [&](std::uint16_t word) {
      return encodeYuvLuma(encodeYuvWeight(unpackFor(name, word)), name == kRgb420 ? 0 : 32768);
    };
    EXPECT_EQ(scene.plane[0], byteRows({{luma(1), luma(9), luma(5), luma(13), luma(15)}}, 1));
  }
}

TEST(OracleEncodeYuv, EveryVariantAnswersAsTheReferenceBelowTheSmallestBlock) {
  for (int slot = 0; slot < 7; ++slot) {
    EncodeScene scene(Words{0xF800, 0xF800});
    EXPECT_EQ(scene.run(kRgb422, 4, 2, 1, static_cast<Variant>(slot)), 0);
    EXPECT_EQ(scene.plane[1], byteRows({{236}}, 1));
  }
}

}  // namespace
}  // namespace oracle
