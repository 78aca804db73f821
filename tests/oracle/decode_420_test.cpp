// SPDX-License-Identifier: MIT
// Holds the decoding of YCbCr 4:2:0 to known pixels.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_images.h"

namespace oracle {
namespace {

// Chroma columns and rows that serve the luma columns and rows of a region of up to nine.
constexpr std::array<int, 9> kServed = {0, 0, 1, 1, 2, 2, 3, 3, 4};

Planes planes420(int width, int height) {
  return {width, height, (width + 1) / 2, (height + 1) / 2};
}

Canvas expected420(std::string_view name, const Planes& planes, int width, int height, int step) {
  const DecodeName parsed = parseDecodeName(name).value();
  return wordCanvas(width, height, step, [&](int row, int column) {
    const auto x = static_cast<std::size_t>(column), y = static_cast<std::size_t>(row);
    const Rgb c = decodeStaged(planes.at(0, row, column), planes.at(1, kServed[y], kServed[x]),
                               planes.at(2, kServed[y], kServed[x]));
    return packedBy(parsed, c, row, column);
  });
}

void expectSize(std::string_view name, int width, int height, int dstStep, int step) {
  const Planes planes = planes420(width, height);
  Canvas canvas;
  EXPECT_EQ(decode(name, Variant::mx, planes.call(canvas, dstStep, width, height)), 0);
  EXPECT_EQ(canvas, expected420(name, planes, width, height, step))
      << name << " " << width << " by " << height;
}

TEST(OracleDecode420, TwelveNames) {
  EXPECT_EQ(namesFrom("YCbCr420To").size(), 12u);
}

TEST(OracleDecode420, OneByOneDecodesTheFirstSampleOfEachPlane) {
  const std::uint8_t luma = 145, cb = 54, cr = 34;
  for (const auto& [name, word] : {std::pair{"YCbCr420ToBGR565_8u16u_P3C3R", 0x07E0},
                                   {"YCbCr420ToRGB555_8u16u_P3C3R", 0x03E0},
                                   {"YCbCr420ToBGR444_8u16u_P3C3R", 0x00F0}}) {
    Canvas canvas, wanted;
    EXPECT_EQ(decode(name, Variant::mx, {{&luma, &cb, &cr}, {1, 1, 1}, canvas.origin(), 2, 1, 1}),
              0);
    wanted.putWord(0, word);
    EXPECT_EQ(canvas, wanted) << name;
  }
}

TEST(OracleDecode420, Width1TakesChromaColumn0) {
  for (std::string_view name : namesFrom("YCbCr420To")) {
    for (int height = 1; height < 8; ++height) expectSize(name, 1, height, 12, 12);
  }
}

TEST(OracleDecode420, Height1TakesChromaRow0) {
  for (std::string_view name : namesFrom("YCbCr420To")) {
    for (int width = 1; width < 8; ++width) expectSize(name, width, 1, 20, 20);
  }
}

// A red and a blue cast in alternating chroma samples.
TEST(OracleDecode420, FiveByFiveUsesChroma0And0And1And1And2) {
  const Bytes luma(25, 128);
  const Bytes cb = {100, 120, 140, 160, 180, 200, 220, 240, 250};
  const Bytes cr = {90, 80, 70, 60, 50, 40, 30, 20, 10};
  const std::array<std::size_t, 5> served = {0, 0, 1, 1, 2};
  Canvas canvas;
  decode("YCbCr420ToBGR565_8u16u_P3C3R", Variant::mx,
         {{luma.data(), cb.data(), cr.data()}, {5, 3, 3}, canvas.origin(), 10, 5, 5});
  for (std::size_t row = 0; row < 5; ++row) {
    for (std::size_t column = 0; column < 5; ++column) {
      const std::size_t at = served[row] * 3 + served[column];
      EXPECT_EQ(canvas.wordAt(static_cast<int>(row * 10 + column * 2)),
                packPlain(decodeStaged(128, cb[at], cr[at]), 565, true));
    }
  }
}

TEST(OracleDecode420, OddCornerTakesTheLastChromaSampleAndItsOwnPhases) {
  const Bytes luma(15, 92);
  const Bytes cb = {1, 2, 3, 4, 5, 77}, cr = {6, 7, 8, 9, 10, 211};
  Canvas canvas;
  decode("YCbCr420ToBGR565Dither_8u16u_P3C3R", Variant::mx,
         {{luma.data(), cb.data(), cr.data()}, {5, 3, 3}, canvas.origin(), 10, 5, 3});
  const Rgb corner = decodeStaged(92, 77, 211);
  EXPECT_EQ(canvas.wordAt(28), packDither(corner, 565, true, 2, 4));
  EXPECT_NE(canvas.wordAt(28), packDither(corner, 565, true, 0, 0));
}

// The level of 100 is raised where the entry of the matrix is below what remains.
TEST(OracleDecode420, DitherPatternGoesOnIntoTheOddLastRow) {
  const Bytes luma(35, 102), chroma(12, 128);
  const Rgb grey = decodeStaged(102, 128, 128);
  EXPECT_EQ(grey, (Rgb{100, 100, 100}));
  Canvas canvas;
  decode("YCbCr420ToRGB444Dither_8u16u_P3C3R", Variant::mx,
         {{luma.data(), chroma.data(), chroma.data()}, {5, 3, 3}, canvas.origin(), 10, 5, 7});
  // What remains of 100 at 5 of 15 levels is 3840.
  for (int row = 0; row < 7; ++row) {
    for (int column = 0; column < 5; ++column) {
      const bool kept = threshold(444, row, column) >= 3840;
      EXPECT_EQ(canvas.wordAt(row * 10 + column * 2), kept ? 0x0555 : 0x0666);
    }
  }
  EXPECT_EQ(canvas.wordAt(12 - 2 + 4), 0x0555);  // row 1, column 2
  EXPECT_EQ(canvas.wordAt(30), 0x0555);          // row 3, column 0
}

TEST(OracleDecode420, EverySizeFromOneToNine) {
  for (std::string_view name : namesFrom("YCbCr420To")) {
    for (int width = 1; width <= 9; ++width) {
      for (int height = 1; height <= 9; ++height) expectSize(name, width, height, 24, 24);
    }
  }
}

TEST(OracleDecode420, PitchesOddAndNegative) {
  for (std::string_view name : namesFrom("YCbCr420To")) {
    expectSize(name, 7, 5, 21, 20);
    expectSize(name, 7, 5, -21, -22);
    expectSize(name, 7, 5, -30, -30);
  }
}

TEST(OracleDecode420, NegativeSourcePitchesWalkUp) {
  for (std::string_view name : namesFrom("YCbCr420To")) {
    const Planes planes = planes420(5, 5);
    Canvas canvas;
    DecodeCall call = planes.call(canvas, -10, 5, 5);
    Planes turned = planes;
    for (int k = 0; k < 3; ++k) {
      const int rows = k == 0 ? 5 : 3, columns = k == 0 ? 5 : 3;
      for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
          turned.plane[k][static_cast<std::size_t>(row * planes.step[k] + column)] =
              static_cast<std::uint8_t>(planes.at(k, rows - 1 - row, column));
        }
      }
      call.src[k] = turned.plane[k].data() + (rows - 1) * planes.step[k];
      call.srcStep[k] = -planes.step[k];
    }
    EXPECT_EQ(decode(name, Variant::mx, call), 0);
    EXPECT_EQ(canvas, expected420(name, planes, 5, 5, -10)) << name;
  }
}

// The words of a pixel's luma alone, with neutral chroma, tell the pixels apart.
std::array<int, 6> wordsOfGreys(int height, int dstStep) {
  const Bytes luma = {30, 60, 90, 120, 150, 180, 210, 230}, chroma(2, 128);
  Canvas canvas;
  decode("YCbCr420ToBGR565_8u16u_P3C3R", Variant::mx,
         {{luma.data(), chroma.data(), chroma.data()},
          {4, 2, 2},
          canvas.origin(),
          dstStep,
          4,
          height});
  std::array<int, 6> words{};
  for (int i = 0; i < 6; ++i) words[static_cast<std::size_t>(i)] = canvas.wordAt(2 * i);
  return words;
}

int grey(int luma) {
  return packPlain(decodeStaged(luma, 128, 128), 565, true);
}

TEST(OracleDecode420, LowerRowIsStoredLastWithinABlock) {
  const std::array<int, 6> wanted = {grey(150), grey(180), grey(210), grey(230), 0xA5A5, 0xA5A5};
  EXPECT_EQ(wordsOfGreys(2, 0), wanted);
}

TEST(OracleDecode420, BlocksOfTwoColumnsGoFromLeftToRight) {
  const std::array<int, 6> wanted = {grey(30), grey(150), grey(90), grey(210), grey(230), 0xA5A5};
  EXPECT_EQ(wordsOfGreys(2, 2), wanted);
}

TEST(OracleDecode420, OddLastColumnOfAPairComesBeforeTheNextPair) {
  const Bytes luma = {30, 60, 90, 100, 110, 120, 130, 140, 150, 160, 170, 180}, chroma(4, 128);
  Canvas canvas;
  decode("YCbCr420ToBGR565_8u16u_P3C3R", Variant::mx,
         {{luma.data(), chroma.data(), chroma.data()}, {3, 2, 2}, canvas.origin(), 4, 3, 4});
  EXPECT_EQ(canvas.wordAt(8), grey(130));   // row 2, column 0, over row 1, column 2
  EXPECT_EQ(canvas.wordAt(4), grey(90));    // row 0, column 2, over row 1, column 0
  EXPECT_EQ(canvas.wordAt(12), grey(150));  // row 2, column 2, over row 3, column 0
}

TEST(OracleDecode420, DestinationMayStandAtAnOddAddress) {
  const std::uint8_t luma = 235, chroma = 128;
  Canvas canvas, wanted;
  decode("YCbCr420ToBGR555_8u16u_P3C3R", Variant::mx,
         {{&luma, &chroma, &chroma}, {1, 1, 1}, canvas.origin() + 1, 2, 1, 1});
  wanted.putWord(1, 0x7FFF);
  EXPECT_EQ(canvas, wanted);
}

TEST(OracleDecode420, EveryVariantAnswersAsTheReferenceAtEvenWidths) {
  for (std::string_view name : namesFrom("YCbCr420To")) {
    const Planes planes = planes420(6, 5);
    for (int slot = 0; slot < 7; ++slot) {
      Canvas canvas;
      decode(name, static_cast<Variant>(slot), planes.call(canvas, 20, 6, 5));
      EXPECT_EQ(canvas, expected420(name, planes, 6, 5, 20)) << name;
    }
  }
}

}  // namespace
}  // namespace oracle
