// SPDX-License-Identifier: MIT
// 4:2:0 by literal pixels: which chroma sample a pixel takes, and the edges of odd sizes.
#include <gtest/gtest.h>

#include "catalogue/variants.h"
#include "tests/support/small_images.h"

namespace {

// What holds in scalar code and not in every variant.
class PlainYuv420 : public testing::Test {
 private:
  const SelectedVariant plain_{0};
};

// With Y = 128 and Cr = 128 the blue tells which Cb a pixel took: 1.164 * 112 + 2.017 (Cb - 128).
constexpr std::uint8_t dark = 0x78, middle = 0x98, bright = 0xB8;
unsigned blue(unsigned word) {
  return word & 31;
}

constexpr unsigned blueOfDark = 114 >> 3, blueOfMiddle = 178 >> 3, blueOfBright = 243 >> 3;

TEST(Decode420, OnePixelTakesTheFirstSampleOfEachPlane) {
  EXPECT_EQ(decoded("YCbCr420ToBGR565_8u16u_P3C3R", {{81}, {90}, {240}}, 1, 1), (Words{0xF800}));
  EXPECT_EQ(decoded("YCbCr420ToRGB565Dither_8u16u_P3C3R", {{16}, {128}, {128}}, 1, 1), (Words{0}));
}

TEST(Decode420, Width5TakesChromaColumns00112) {
  const Words row = decoded("YCbCr420ToBGR565_8u16u_P3C3R",
                            {Bytes(5, 128), {dark, middle, bright}, Bytes(3, 128)}, 5, 1);
  const unsigned expected[] = {blueOfDark, blueOfDark, blueOfMiddle, blueOfMiddle, blueOfBright};
  for (std::size_t x = 0; x < 5; ++x) EXPECT_EQ(blue(row[x]), expected[x]) << x;
}

TEST(Decode420, Height5TakesChromaRows00112) {
  const Words column = decoded("YCbCr420ToBGR565_8u16u_P3C3R",
                               {Bytes(5, 128), {dark, middle, bright}, Bytes(3, 128)}, 1, 5);
  const unsigned expected[] = {blueOfDark, blueOfDark, blueOfMiddle, blueOfMiddle, blueOfBright};
  for (std::size_t y = 0; y < 5; ++y) EXPECT_EQ(blue(column[y]), expected[y]) << y;
}

TEST(Decode420, OddCornerTakesTheLastSampleOfTheLastChromaRow) {
  const Words pixels = decoded("YCbCr420ToBGR565_8u16u_P3C3R",
                               {Bytes(9, 128), {dark, dark, dark, bright}, Bytes(4, 128)}, 3, 3);
  for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(blue(pixels[i]), blueOfDark) << i;
  EXPECT_EQ(blue(pixels[8]), blueOfBright);
}

// White dithered to 565 dips at row 3, column 0 of the pattern, which goes on into an odd last row.
TEST(Decode420, DitherGoesOnIntoTheLastRow) {
  for (const int height : {7, 8}) {
    const auto chroma = static_cast<std::size_t>(3 * ((height + 1) / 2));
    const Words pixels = decoded(
        "YCbCr420ToBGR565Dither_8u16u_P3C3R",
        {Bytes(static_cast<std::size_t>(5 * height), 255), Bytes(chroma, 128), Bytes(chroma, 128)},
        5, height);
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < 5; ++x)
        EXPECT_EQ(pixels[static_cast<std::size_t>(5 * y + x)],
                  y % 4 == 3 && x % 4 == 0 ? 0xFFDFu : 0xFFFFu)
            << height << " rows, " << x << "," << y;
  }
}

TEST(DecodeYuv420, PlainWritesNothingAtWidth1OrHeight1) {
  const Bytes many(8, 200);
  EXPECT_EQ(decoded("YUV420ToBGR565_8u16u_P3C3R", {many, many, many}, 1, 5),
            Words(5, untouchedWord));
  EXPECT_EQ(decoded("YUV420ToRGB444_8u16u_P3C3R", {many, many, many}, 5, 1),
            Words(5, untouchedWord));
  EXPECT_EQ(decoded("YUV420ToRGB555_8u16u_P3C3R", {many, many, many}, 1, 1),
            Words(1, untouchedWord));
}

TEST(DecodeYuv420, DitherWritesEveryPixelAtWidth1AndHeight1) {
  const Bytes white(5, 255), neutral(5, 128);
  EXPECT_EQ(decoded("YUV420ToBGR555Dither_8u16u_P3C3R", {white, neutral, neutral}, 1, 5),
            Words(5, 0x7FFF));
  EXPECT_EQ(decoded("YUV420ToBGR555Dither_8u16u_P3C3R", {white, neutral, neutral}, 5, 1),
            Words(5, 0x7FFF));
}

// Y = 3, U = 128, V = 132 is red 7.56: the nearest level is 8, which shows in five bits, and the
// level below is 7, which does not.
TEST_F(PlainYuv420, RedIsRoundedInWholeBlocksAndCutAtOddEdges) {
  const Words even = decoded("YUV420ToBGR555_8u16u_P3C3R", {Bytes(4, 3), {128}, {132}}, 2, 2);
  for (const unsigned word : even) EXPECT_EQ(word >> 10, 1u);
  const Words odd =
      decoded("YUV420ToBGR555_8u16u_P3C3R", {Bytes(9, 3), Bytes(4, 128), Bytes(4, 132)}, 3, 3);
  for (std::size_t y = 0; y < 3; ++y)
    for (std::size_t x = 0; x < 3; ++x)
      EXPECT_EQ(odd[3 * y + x] >> 10, x < 2 && y < 2 ? 1u : 0u) << x << "," << y;
}

TEST_F(PlainYuv420, ThreeByTwoHasAnOddColumnAndNoOddRow) {
  const Words pixels =
      decoded("YUV420ToBGR555_8u16u_P3C3R", {Bytes(6, 3), Bytes(2, 128), Bytes(2, 132)}, 3, 2);
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(pixels[i] >> 10, i % 3 == 2 ? 0u : 1u) << i;
}

TEST(DecodeYuv420, FullRangeWhiteDipsUnderDither) {
  const Words pixels = decoded("YUV420ToRGB565Dither_8u16u_P3C3R",
                               {Bytes(16, 255), Bytes(4, 128), Bytes(4, 128)}, 4, 4);
  for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(pixels[i], i == 12 ? 0xFFDFu : 0xFFFFu) << i;
}

// Green of Y = 0, U = 0, V = 10 is 118 in the plain forms and 119 in the staged one: 444 with
// threshold 0 makes levels 6 or 7 of them alike, 565 tells them apart: 118 >> 2 is 29, and 119 is
// 29 and a rest of 119 * 256 - 29 * 1036 = 420, above the halved thresholds up to 419.
TEST(DecodeYuv420, GreenIsCutInThePlainForms) {
  const Words plain = decoded("YUV420ToBGR565_8u16u_P3C3R", {Bytes(4, 0), {0}, {10}}, 2, 2);
  for (const unsigned word : plain) EXPECT_EQ(word >> 5 & 63, 118u >> 2);
  const Words dithered =
      decoded("YUV420ToBGR565Dither_8u16u_P3C3R", {Bytes(16, 0), Bytes(4, 0), Bytes(4, 10)}, 4, 4);
  // Thresholds 1678 >> 1 = 839 and 839 >> 1 = 419: above 420, and below it.
  EXPECT_EQ(dithered[4] >> 5 & 63, 29u);
  EXPECT_EQ(dithered[7] >> 5 & 63, 30u);
}

}  // namespace
