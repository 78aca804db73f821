// SPDX-License-Identifier: MIT
// Holds the decoding of 4:1:1 to known pixels.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

#include "tests/oracle/forms.h"
#include "tests/oracle/oracle.h"
#include "tests/oracle/samples.h"
#include "tests/oracle/test_images.h"

namespace oracle {
namespace {

constexpr const char* k555 = "YCbCr411ToBGR555_8u16u_P3C3R";
constexpr const char* k565 = "YCbCr411ToBGR565_8u16u_P3C3R";

struct Example {
  int y, cb, cr;
  Rgb colour;
  int word555, word565;
};

constexpr Example kExamples[] = {
    {16, 128, 128, {0, 0, 0}, 0x0000, 0x0000},   {235, 128, 128, {255, 255, 255}, 0x7FFF, 0xFFFF},
    {81, 90, 240, {254, 0, 0}, 0x7C00, 0xF800},  {145, 54, 34, {0, 255, 1}, 0x03E0, 0x07E0},
    {41, 240, 110, {0, 0, 255}, 0x001F, 0x001F}, {255, 255, 255, {255, 125, 255}, 0x7DFF, 0xFBFF},
    {0, 0, 0, {0, 136, 0}, 0x0220, 0x0440}};

TEST(Oracle411, ComponentsOfTheExamples) {
  for (const Example& e : kExamples) {
    if (e.y == 235 || e.y == 41) continue;  // told as words alone
    EXPECT_EQ(decodeRounded(e.y, e.cb, e.cr), e.colour);
  }
}

TEST(Oracle411, WordsOfTheExamples) {
  for (const Example& e : kExamples) {
    const Bytes luma(4, static_cast<std::uint8_t>(e.y));
    const auto cb = static_cast<std::uint8_t>(e.cb), cr = static_cast<std::uint8_t>(e.cr);
    for (auto [name, word] : {std::pair{k555, e.word555}, {k565, e.word565}}) {
      Canvas canvas;
      const DecodeCall call{{luma.data(), &cb, &cr}, {4, 1, 1}, canvas.origin(), 8, 4, 1};
      EXPECT_EQ(decode(name, Variant::mx, call), 0);
      EXPECT_EQ(canvas, wordCanvas(4, 1, 8, [word = word](int, int) { return word; }));
    }
  }
}

TEST(Oracle411, LargestRedIndexIs481) {
  EXPECT_EQ(roundedIndices(255, 255, 255).r, 481);
}

TEST(Oracle411, IndexRanges) {
  Indices low{0, 0, 0}, high{0, 0, 0};
  forAllSamples([&](int y, int cb, int cr) {
    const Indices i = roundedIndices(y, cb, cr);
    low = {std::min(low.r, i.r), std::min(low.g, i.g), std::min(low.b, i.b)};
    high = {std::max(high.r, i.r), std::max(high.g, i.g), std::max(high.b, i.b)};
  });
  EXPECT_EQ(low.r, -223);
  EXPECT_EQ(high.r, 481);
  EXPECT_EQ(low.g, -172);
  EXPECT_EQ(high.g, 432);
  EXPECT_EQ(low.b, -277);
  EXPECT_EQ(high.b, 534);
}

// Black and the rounding make one constant.
TEST(Oracle411, ConstantIsMinus1187776) {
  EXPECT_EQ(kRounding, 32768);
  EXPECT_EQ(kRounding - kWideBlack, -1187776);
}

// The whole form is the wide one half a level up, in all three components.
TEST(Oracle411, FormIsTheWideOneRounded) {
  std::int64_t wrong = 0;
  forAllSamples([&](int y, int cb, int cr) {
    const int a = y * 76284 - 1187776, u = cb - 128, v = cr - 128;
    const Indices i = roundedIndices(y, cb, cr);
    wrong += i.r != (a + v * 104595) >> 16;
    wrong += i.g != (a - u * 25690 - v * 53281) >> 16;
    wrong += i.b != (a + u * 132186) >> 16;
    const Rgb held{std::clamp(static_cast<int>(i.r), 0, 255),
                   std::clamp(static_cast<int>(i.g), 0, 255),
                   std::clamp(static_cast<int>(i.b), 0, 255)};
    wrong += decodeRounded(y, cb, cr) != held;
  });
  EXPECT_EQ(wrong, 0);
}

Canvas expected411(const DecodeName& name, const Planes& planes, int step, int width, int height) {
  return wordCanvas(width, height, step, [&](int row, int column) {
    const int group = column < width / 4 * 4 ? column / 4 : width / 4 - 1;
    const Rgb c = decodeRounded(planes.at(0, row, column), planes.at(1, row, group),
                                planes.at(2, row, group));
    return packPlain(c, name.depth, name.bgr);
  });
}

void expectSize(const char* name, int width, int height, int dstStep) {
  const Planes planes(width, height, width / 4, height);
  Canvas canvas;
  EXPECT_EQ(decode(name, Variant::mx, planes.call(canvas, dstStep, width, height)),
            width % 4 == 0 ? 0 : 35);
  EXPECT_EQ(canvas, expected411(parseDecodeName(name).value(), planes, dstStep, width, height))
      << name << " " << width << " by " << height;
}

TEST(Oracle411, Width4IsGoodAndWidth6Warns) {
  EXPECT_EQ(rejectionOf(k555, {.nulls = {}, .width = 3}), -6);
  expectSize(k555, 4, 1, 8);
  expectSize(k565, 6, 1, 12);
}

TEST(Oracle411, Width6ColoursColumns4And5ByChromaSample0) {
  const Bytes luma(6, 81);
  const std::uint8_t cb[] = {90}, cr[] = {240};
  Canvas canvas;
  EXPECT_EQ(
      decode(k565, Variant::mx, {{luma.data(), cb, cr}, {6, 1, 1}, canvas.origin(), 12, 6, 1}), 35);
  EXPECT_EQ(canvas, wordCanvas(6, 1, 12, [](int, int) { return 0xF800; }));
}

TEST(Oracle411, EverySizeFromFourToSeventeen) {
  for (const char* name : {k555, k565}) {
    for (int width = 4; width <= 17; ++width) {
      for (int height = 1; height <= 4; ++height) expectSize(name, width, height, 40);
    }
  }
}

TEST(Oracle411, OddPitchStaysOdd) {
  const Bytes luma(12, 235), chroma(3, 128);
  Canvas canvas;
  decode(k565, Variant::mx,
         {{luma.data(), chroma.data(), chroma.data()}, {4, 1, 1}, canvas.origin(), 21, 4, 3});
  for (int offset : {0, 21, 42}) {
    EXPECT_EQ(canvas.wordAt(offset), 0xFFFF);
    EXPECT_EQ(canvas.byteAt(offset - 1), Canvas::kUntouched);
    EXPECT_EQ(canvas.byteAt(offset + 8), Canvas::kUntouched);
  }
}

TEST(Oracle411, PitchesNegativeZeroAndSmall) {
  for (const char* name : {k555, k565}) {
    for (int dstStep : {-21, -40, 0, 1, 3, 5}) expectSize(name, 9, 4, dstStep);
  }
}

}  // namespace
}  // namespace oracle
