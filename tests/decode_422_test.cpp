// SPDX-License-Identifier: MIT
// 4:2:2 and 4:1:1 by literal pixels: the odd last pixel, the path of one pixel's width, remainders.
#include <gtest/gtest.h>

#include <cstring>

#include "catalogue/variants.h"
#include "include/pxmcc90lgc.h"
#include "tests/support/small_images.h"

namespace {

// What holds in scalar code and not in every variant.
class Plain422 : public testing::Test {
 private:
  const SelectedVariant plain_{0};
};

TEST(Decode422, Width2IsOnePairInEveryLayout) {
  const Words interleaved = decoded("YCbCr422ToBGR565_8u16u_C2C3R", {{81, 90, 81, 240}}, 2, 1);
  EXPECT_EQ(interleaved, (Words{0xF800, 0xF800}));
  EXPECT_EQ(decoded("YCbCr422ToBGR565_8u16u_P3C3R", {{81, 81}, {90}, {240}}, 2, 1), interleaved);
}

// Y = 128 with Cb = Cr = 128 is grey 130. The last pixel's own byte is p[5]; the Cr ahead is p[3].
// Blue takes Cb = p[5] either way. Red of Cr = 240 is 255 and of Cr = 16 is 0.
TEST(Decode422, OddLastPixelWithoutDitherTakesTheCrAheadOfIt) {
  for (const std::uint8_t before : {std::uint8_t{16}, std::uint8_t{240}}) {
    const Words row =
        decoded("YCbCr422ToBGR565_8u16u_C2C3R", {{128, 128, 128, before, 128, 128}}, 3, 1);
    EXPECT_EQ(row[2] >> 11, before == 240 ? 31u : 0u);
    EXPECT_EQ(row[2] & 31, 130u >> 3);
  }
}

TEST(Decode422, OddLastPixelUnderDitherTakesItsOwnByteTwice) {
  const Words low =
      decoded("YCbCr422ToBGR444Dither_8u16u_C2C3R", {{16, 128, 16, 240, 128, 240}}, 3, 1);
  const Words high =
      decoded("YCbCr422ToBGR444Dither_8u16u_C2C3R", {{16, 128, 16, 16, 128, 240}}, 3, 1);
  EXPECT_EQ(low[2], high[2]) << "the byte ahead has no part in it";
  EXPECT_EQ(low[2] >> 8, 15u);  // red of Cr = 240
  EXPECT_EQ(low[2] & 15, 15u);  // blue of Cb = 240
}

TEST(Decode422, Width1UnderDitherIsAnOrdinaryPixel) {
  EXPECT_EQ(decoded("YCbCr422ToBGR565Dither_8u16u_C2C3R", {{16, 128, 235, 128}}, 1, 2),
            (Words{0, 31u << 11 | 62u << 5 | 31u}));
}

TEST_F(Plain422, Width1PlanarIsAnOrdinaryPixel) {
  EXPECT_EQ(decoded("YCbCr422ToBGR565_8u16u_P3C3R", {{81, 16}, {90, 128}, {240, 128}}, 1, 2),
            (Words{0xF800, 0}));
}

// Three bytes a row, R, G, B, whatever the name says; rows half a pitch apart. (81, 128, 128) is
// grey 75.
TEST_F(Plain422, Width1InterleavedStoresThreeBytesARow) {
  const unsigned char source[4] = {81, 128, 81, 200};
  using Convert = pxmStatus(const unsigned char*, int, unsigned short*, int, pxmSize);
  Convert* const all[] = {
      legacy90pxmiYCbCr422ToBGR444_8u16u_C2C3R, legacy90pxmiYCbCr422ToRGB444_8u16u_C2C3R,
      legacy90pxmiYCbCr422ToBGR555_8u16u_C2C3R, legacy90pxmiYCbCr422ToRGB555_8u16u_C2C3R,
      legacy90pxmiYCbCr422ToBGR565_8u16u_C2C3R, legacy90pxmiYCbCr422ToRGB565_8u16u_C2C3R};
  for (Convert* const convert : all) {
    unsigned char out[12];
    std::memset(out, 0x5A, sizeof out);
    EXPECT_EQ(convert(source, 2, reinterpret_cast<unsigned short*>(out), 8, {1, 2}), 0);
    EXPECT_EQ(out[0], 75);
    EXPECT_EQ(out[1], 75);
    EXPECT_EQ(out[2], 75);
    EXPECT_EQ(out[3], 0x5A);
    // C = 200: red 75.66 + 1.596 * 72 = 190, green 75.66 - 1.205 * 72 < 0, blue 75.66 + 2.017 * 72.
    EXPECT_EQ(out[4], 190);
    EXPECT_EQ(out[5], 0);
    EXPECT_EQ(out[6], 220);
    EXPECT_EQ(out[7], 0x5A);
  }
}

TEST(Decode411, Width6WarnsAndGivesLeftoversTheLastGroupsChroma) {
  const Words row = decoded("YCbCr411ToBGR565_8u16u_P3C3R", {Bytes(6, 81), {90}, {240}}, 6, 1, 35);
  EXPECT_EQ(row, Words(6, 0xF800));
}

TEST(Decode411, SizesAndStatuses) {
  EXPECT_EQ(decoded("YCbCr411ToBGR555_8u16u_P3C3R", {Bytes(3, 81), {90}, {240}}, 3, 1, -6),
            Words(3, untouchedWord));
  EXPECT_EQ(decoded("YCbCr411ToBGR555_8u16u_P3C3R", {Bytes(4, 81), {90}, {240}}, 4, 1, 0),
            Words(4, 0x7C00));
}

TEST(Decode411, LiteralColours) {
  struct Example {
    std::uint8_t y, cb, cr;
    unsigned bgr555, bgr565;
  };
  const Example examples[] = {
      {16, 128, 128, 0x0000, 0x0000}, {235, 128, 128, 0x7FFF, 0xFFFF},
      {81, 90, 240, 0x7C00, 0xF800},  {145, 54, 34, 0x03E0, 0x07E0},
      {41, 240, 110, 0x001F, 0x001F}, {255, 255, 255, 0x7DFF, 0xFBFF},
      {0, 0, 0, 0x0220, 0x0440},
  };
  for (const Example& e : examples) {
    EXPECT_EQ(decoded("YCbCr411ToBGR555_8u16u_P3C3R", {Bytes(4, e.y), {e.cb}, {e.cr}}, 4, 1),
              Words(4, e.bgr555));
    EXPECT_EQ(decoded("YCbCr411ToBGR565_8u16u_P3C3R", {Bytes(4, e.y), {e.cb}, {e.cr}}, 4, 1),
              Words(4, e.bgr565));
  }
}

TEST(Decode411, OddPitchStaysOdd) {
  const unsigned char luma[12] = {235, 235, 235, 235, 235, 235, 235, 235, 235, 235, 235, 235};
  const unsigned char neutral[3] = {128, 128, 128};
  const unsigned char* src[3] = {luma, neutral, neutral};
  int srcStep[3] = {4, 1, 1};
  unsigned char out[60];
  std::memset(out, 0x5A, sizeof out);
  EXPECT_EQ(legacy90pxmiYCbCr411ToBGR565_8u16u_P3C3R(
                src, srcStep, reinterpret_cast<unsigned short*>(out), 21, {4, 3}),
            0);
  for (int i = 0; i < 60; ++i) EXPECT_EQ(out[i], i % 21 < 8 && i < 50 ? 0xFF : 0x5A) << i;
}

}  // namespace
