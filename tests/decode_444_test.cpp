// SPDX-License-Identifier: MIT
// Literal pixels through the exported names.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "catalogue/conversions.h"

namespace {

struct Triple {
  std::uint8_t y, cb, cr;
};

// A region of width x height pixels of one colour, row after row.
std::vector<unsigned> convert(std::string_view name, Triple colour, int width = 1, int height = 1) {
  const Conversion& conversion = conversionNamed(name);
  const auto count = static_cast<std::size_t>(width * height);
  std::vector<std::uint8_t> planes[3], packed;
  for (std::size_t i = 0; i < count; ++i)
    for (int k = 0; k < 3; ++k) {
      const std::uint8_t sample = k == 0 ? colour.y : k == 1 ? colour.cb : colour.cr;
      planes[k].push_back(sample);
      packed.push_back(sample);
    }
  std::vector<unsigned short> pixels(count + 2, 0x5A5A);
  CallArguments a = {};
  a.size = {width, height};
  a.dst[0] = reinterpret_cast<std::uint8_t*>(pixels.data());
  a.dstStep[0] = 2 * width;
  a.srcStep[0] = conversion.has("P3C3R") ? width : 3 * width;
  for (int i = 0; i < 3; ++i) a.src[i] = planes[i].data();
  if (!conversion.has("P3C3R")) a.src[0] = packed.data();
  EXPECT_EQ(conversion.call(a), pxmStatusOk) << name;
  EXPECT_EQ(pixels[count], 0x5A5A) << name;
  return {pixels.begin(), pixels.end() - 2};
}

unsigned pixel(std::string_view name, Triple colour) {
  return convert(name, colour)[0];
}

TEST(Decode444, NominalBlackIsZeroInEveryFormat) {
  for (const Conversion& c : conversions())
    if (c.name.starts_with("YCbCrTo")) {
      EXPECT_EQ(convert(c.name, {16, 128, 128}, 4, 4), std::vector<unsigned>(16, 0)) << c.name;
    }
}

TEST(Decode444, NominalWhiteIs254AndFillsPlainFields) {
  for (const Conversion& c : conversions())
    if (c.name.starts_with("YCbCrTo") && !c.has("Dither")) {
      const unsigned full = c.has("444") ? 0x0FFF : c.has("555") ? 0x7FFF : 0xFFFF;
      EXPECT_EQ(pixel(c.name, {235, 128, 128}), full) << c.name;
    }
}

TEST(Decode444, PlainInterleavedAndPlanarDifferByOneLevel) {
  EXPECT_EQ(pixel("YCbCrToRGB555_8u16u_P3C3R", {79, 112, 98}), 0x15A3u);
  EXPECT_EQ(pixel("YCbCrToRGB555_8u16u_C3R", {79, 112, 98}), 0x1583u);
  EXPECT_EQ(pixel("YCbCrToRGB565_8u16u_P3C3R", {240, 255, 235}), 0xFBFFu);
  EXPECT_EQ(pixel("YCbCrToRGB565_8u16u_C3R", {240, 255, 235}), 0xFBDFu);
}

// Y = 235 gives 254, which five bits show as 31 and dithered six bits as 62 or 63.
TEST(Decode444, DitheredNominalWhiteDipsAtFourPlaces) {
  for (const char* name : {"YCbCrToBGR565Dither_8u16u_C3R", "YCbCrToBGR565Dither_8u16u_P3C3R",
                           "YCbCrToRGB565Dither_8u16u_C3R", "YCbCrToRGB565Dither_8u16u_P3C3R"}) {
    const std::vector<unsigned> pixels = convert(name, {235, 128, 128}, 4, 4);
    for (int row = 0; row < 4; ++row)
      for (int column = 0; column < 4; ++column) {
        const bool dips = (row == 1 || row == 3) && (column == 0 || column == 2);
        EXPECT_EQ(pixels[static_cast<std::size_t>(4 * row + column)] >> 5 & 63, dips ? 62u : 63u)
            << name << " row " << row << " column " << column;
      }
  }
}

TEST(Decode444, DitheredFullWhiteDipsAtRow3Column0Only) {
  for (const char* name : {"YCbCrToBGR565Dither_8u16u_C3R", "YCbCrToRGB565Dither_8u16u_P3C3R"}) {
    const std::vector<unsigned> pixels = convert(name, {255, 128, 128}, 8, 8);
    for (int row = 0; row < 8; ++row)
      for (int column = 0; column < 8; ++column)
        EXPECT_EQ(pixels[static_cast<std::size_t>(8 * row + column)],
                  row % 4 == 3 && column % 4 == 0 ? 0xFFDFu : 0xFFFFu)
            << name << " row " << row << " column " << column;
  }
}

TEST(Decode444, DitherOfOnePixelUsesTheZeroThreshold) {
  // Y = 17 is 1 in all components: any residue at all raises the level.
  EXPECT_EQ(pixel("YCbCrToBGR444Dither_8u16u_C3R", {17, 128, 128}), 0x0111u);
  EXPECT_EQ(pixel("YCbCrToBGR555Dither_8u16u_C3R", {17, 128, 128}), 0x0421u);
  EXPECT_EQ(pixel("YCbCrToBGR565Dither_8u16u_C3R", {17, 128, 128}), 0x0821u);
}

TEST(Decode444, ColourSpelledFirstSitsInTheLowBits) {
  // Y = 81, Cb = 90, Cr = 240 is a red with little green and no blue: (254, 0, 0).
  EXPECT_EQ(pixel("YCbCrToBGR444_8u16u_P3C3R", {81, 90, 240}), 0x0F00u);
  EXPECT_EQ(pixel("YCbCrToRGB444_8u16u_P3C3R", {81, 90, 240}), 0x000Fu);
  EXPECT_EQ(pixel("YCbCrToBGR555_8u16u_P3C3R", {81, 90, 240}), 0x7C00u);
  EXPECT_EQ(pixel("YCbCrToRGB555_8u16u_P3C3R", {81, 90, 240}), 0x001Fu);
  EXPECT_EQ(pixel("YCbCrToBGR565_8u16u_P3C3R", {81, 90, 240}), 0xF800u);
  EXPECT_EQ(pixel("YCbCrToRGB565_8u16u_P3C3R", {81, 90, 240}), 0x001Fu);
}

}  // namespace
