// SPDX-License-Identifier: MIT
// Holds the decoding of YUV 4:2:0 to known pixels.
#include <gtest/gtest.h>

#include <cstdint>
#include <string_view>
#include <utility>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_images.h"

namespace oracle {
namespace {

Planes planes420(int width, int height) {
  return {width, height, (width + 1) / 2, (height + 1) / 2};
}

// The form of a pixel, by the table of the forms.
Rgb colour(bool dither, bool atEdge, int y, int u, int v) {
  if (dither) return decodeYuvStaged(y, u, v);
  return atEdge ? decodeYuvPlain(y, u, v) : decodeYuvRounded(y, u, v);
}

Canvas expectedYuv(std::string_view name, const Planes& planes, int width, int height, int step) {
  const DecodeName parsed = parseDecodeName(name).value();
  if (!parsed.dither && (width == 1 || height == 1)) return {};
  return wordCanvas(width, height, step, [&](int row, int column) {
    const bool atEdge =
        (width % 2 == 1 && column == width - 1) || (height % 2 == 1 && row == height - 1);
    const Rgb c = colour(parsed.dither, atEdge, planes.at(0, row, column),
                         planes.at(1, row / 2, column / 2), planes.at(2, row / 2, column / 2));
    return packedBy(parsed, c, row, column);
  });
}

void expectSize(std::string_view name, int width, int height, int dstStep, int step) {
  const Planes planes = planes420(width, height);
  Canvas canvas;
  EXPECT_EQ(decode(name, Variant::mx, planes.call(canvas, dstStep, width, height)), 0);
  EXPECT_EQ(canvas, expectedYuv(name, planes, width, height, step))
      << name << " " << width << " by " << height;
}

// A region of equal samples.
Canvas uniform(std::string_view name, int width, int height, Rgb samples) {
  const auto plane = [](int value) { return Bytes(64, static_cast<std::uint8_t>(value)); };
  const Bytes y = plane(samples.r), u = plane(samples.g), v = plane(samples.b);
  Canvas canvas;
  EXPECT_EQ(decode(name, Variant::mx,
                   {{y.data(), u.data(), v.data()}, {8, 8, 8}, canvas.origin(), 16, width, height}),
            0);
  return canvas;
}

TEST(OracleYuv, TwelveNames) {
  EXPECT_EQ(namesFrom("YUV420To").size(), 12u);
}

TEST(OracleYuv, PlainLeavesWidth1AndHeight1AloneAndReportsSuccess) {
  for (std::string_view name : namesFrom("YUV420To")) {
    if (parseDecodeName(name)->dither) continue;
    for (int n = 1; n < 6; ++n) {
      EXPECT_EQ(uniform(name, 1, n, {200, 128, 128}), Canvas());
      EXPECT_EQ(uniform(name, n, 1, {200, 128, 128}), Canvas());
    }
  }
}

// Planes of no byte at all: a read would be seen by a sanitizer.
TEST(OracleYuv, PlainReadsNothingAtWidth1) {
  const std::uint8_t* none = nullptr;
  Canvas canvas;
  EXPECT_EQ(decode("YUV420ToBGR565_8u16u_P3C3R", Variant::mx,
                   {{none, none, none}, {1, 1, 1}, canvas.origin(), 2, 1, 5}),
            0);
  EXPECT_EQ(canvas, Canvas());
}

TEST(OracleYuv, DitheringWritesEveryPixelOfWidth1AndHeight1) {
  for (std::string_view name : namesFrom("YUV420To")) {
    const DecodeName parsed = parseDecodeName(name).value();
    if (!parsed.dither) continue;
    const Rgb c = decodeYuvStaged(200, 90, 140);
    for (auto [width, height] : {std::pair{1, 5}, {5, 1}, {1, 1}}) {
      const Canvas wanted = wordCanvas(width, height, 16, [&](int row, int column) {
        return packDither(c, parsed.depth, parsed.bgr, row, column);
      });
      EXPECT_EQ(uniform(name, width, height, {200, 90, 140}), wanted) << name;
    }
  }
}

TEST(OracleYuv, RedOfTheSeamIs5And4) {
  EXPECT_EQ(decodeYuvRounded(0, 0, 132).r, 5);
  EXPECT_EQ(decodeYuvPlain(0, 0, 132).r, 4);
}

// Luma 3 lifts the red of the seam to 8 and 7, on both sides of a step of the packed field.
int redField(const Canvas& canvas, int row, int column) {
  return canvas.wordAt(row * 16 + column * 2) & 31;
}

TEST(OracleYuv, TwoByTwoIsRoundedEverywhere) {
  const Canvas canvas = uniform("YUV420ToRGB565_8u16u_P3C3R", 2, 2, {3, 0, 132});
  for (int i = 0; i < 4; ++i) EXPECT_EQ(redField(canvas, i / 2, i % 2), 1);
}

TEST(OracleYuv, ThreeByThreeHasTheSeamInItsLastColumnAndRow) {
  const Canvas canvas = uniform("YUV420ToRGB565_8u16u_P3C3R", 3, 3, {3, 0, 132});
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      EXPECT_EQ(redField(canvas, row, column), row == 2 || column == 2 ? 0 : 1);
    }
  }
}

TEST(OracleYuv, ThreeByTwoHasTheSeamInItsLastColumnAlone) {
  const Canvas canvas = uniform("YUV420ToRGB565_8u16u_P3C3R", 3, 2, {3, 0, 132});
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 3; ++column) {
      EXPECT_EQ(redField(canvas, row, column), column == 2 ? 0 : 1);
    }
  }
}

TEST(OracleYuv, TwoByThreeHasTheSeamInItsLastRowAlone) {
  const Canvas canvas = uniform("YUV420ToRGB565_8u16u_P3C3R", 2, 3, {3, 0, 132});
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 2; ++column) {
      EXPECT_EQ(redField(canvas, row, column), row == 2 ? 0 : 1);
    }
  }
}

TEST(OracleYuv, GreenIsNeverRounded) {
  EXPECT_EQ(decodeYuvRounded(0, 0, 10).g, 118);
  EXPECT_EQ(decodeYuvPlain(0, 0, 10).g, 118);
  EXPECT_EQ(decodeYuvStaged(0, 0, 10).g, 119);
}

// Luma 1 lifts the green to 119, below a step of the packed field, and to 120, on the step.
TEST(OracleYuv, GreenOfPlainAndDitheredWordsDiffers) {
  const Canvas plain = uniform("YUV420ToBGR565_8u16u_P3C3R", 3, 3, {1, 0, 10});
  const Canvas dithered = uniform("YUV420ToBGR565Dither_8u16u_P3C3R", 3, 3, {1, 0, 10});
  const Rgb c = decodeYuvStaged(1, 0, 10);
  EXPECT_EQ(c.g, 120);
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      const int at = row * 16 + column * 2;
      EXPECT_EQ((plain.wordAt(at) >> 5) & 63, 119 >> 2);
      EXPECT_EQ((dithered.wordAt(at) >> 5) & 63, ditherLevel6(120, threshold(565, row, column)));
    }
  }
}

TEST(OracleYuv, WhiteDithered565Dips) {
  for (const char* name :
       {"YUV420ToBGR565Dither_8u16u_P3C3R", "YUV420ToRGB565Dither_8u16u_P3C3R"}) {
    const Canvas wanted = wordCanvas(8, 8, 16, [](int row, int column) {
      return row % 4 == 3 && column % 4 == 0 ? 0xFFDF : 0xFFFF;
    });
    EXPECT_EQ(uniform(name, 8, 8, {255, 128, 128}), wanted);
  }
}

TEST(OracleYuv, RedDrawsOnVAndBlueOnU) {
  const Canvas u = uniform("YUV420ToBGR444_8u16u_P3C3R", 2, 2, {0, 255, 128});
  EXPECT_EQ(u.wordAt(0), 0x000F);
  const Canvas v = uniform("YUV420ToBGR444_8u16u_P3C3R", 2, 2, {0, 128, 255});
  EXPECT_EQ(v.wordAt(0), 0x0900);  // red 145
}

TEST(OracleYuv, EverySizeFromOneToNine) {
  for (std::string_view name : namesFrom("YUV420To")) {
    for (int width = 1; width <= 9; ++width) {
      for (int height = 1; height <= 9; ++height) expectSize(name, width, height, 24, 24);
    }
  }
}

TEST(OracleYuv, PitchesOddAndNegative) {
  for (std::string_view name : namesFrom("YUV420To")) {
    expectSize(name, 7, 5, 21, 20);
    expectSize(name, 7, 5, -21, -22);
    expectSize(name, 6, 4, -30, -30);
  }
}

TEST(OracleYuv, BlocksGoFromLeftToRightAndTheUpperRowComesFirst) {
  const Bytes luma = {30, 60, 90, 120, 150, 180, 210, 230}, chroma(2, 128);
  const auto grey = [](int y) { return packPlain({y, y, y}, 565, true); };
  Canvas canvas;
  decode("YUV420ToBGR565_8u16u_P3C3R", Variant::mx,
         {{luma.data(), chroma.data(), chroma.data()}, {4, 2, 2}, canvas.origin(), 2, 4, 2});
  Canvas wanted;
  const int words[] = {grey(30), grey(150), grey(90), grey(210), grey(230)};
  for (int i = 0; i < 5; ++i) wanted.putWord(2 * i, words[i]);
  EXPECT_EQ(canvas, wanted);
}

TEST(OracleYuv, EveryVariantDithersEvenWidthsAsTheReference) {
  for (std::string_view name : namesFrom("YUV420To")) {
    if (!parseDecodeName(name)->dither) continue;
    const Planes planes = planes420(10, 5);
    for (int slot = 0; slot < 7; ++slot) {
      Canvas canvas;
      decode(name, static_cast<Variant>(slot), planes.call(canvas, 20, 10, 5));
      EXPECT_EQ(canvas, expectedYuv(name, planes, 10, 5, 20)) << name;
    }
  }
}

}  // namespace
}  // namespace oracle
