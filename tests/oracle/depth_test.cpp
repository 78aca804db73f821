// SPDX-License-Identifier: MIT
// Holds the depth conversion to known values.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_images.h"

namespace oracle {
namespace {

using Three = std::array<std::uint8_t, 3>;

constexpr std::string_view kExpanding[] = {"BGR565ToBGR_16u8u_C3R", "RGB565ToRGB_16u8u_C3R"};
constexpr std::string_view kPacking[] = {"BGRToBGR565_8u16u_C3R", "RGBToRGB565_8u16u_C3R"};

TEST(OracleDepth, PixelsExpand) {
  EXPECT_EQ(expandDepth(0xFFFF), (Three{248, 252, 248}));
  EXPECT_EQ(expandDepth(0x0821), (Three{8, 4, 8}));
  EXPECT_EQ(expandDepth(0x0000), (Three{0, 0, 0}));
  EXPECT_EQ(expandDepth(0x001F), (Three{248, 0, 0}));
  EXPECT_EQ(expandDepth(0x07E0), (Three{0, 252, 0}));
  EXPECT_EQ(expandDepth(0xF800), (Three{0, 0, 248}));
}

TEST(OracleDepth, BytesPack) {
  EXPECT_EQ(packDepth({255, 255, 255}), 0xFFFF);
  EXPECT_EQ(packDepth({7, 3, 7}), 0x0000);
  EXPECT_EQ(packDepth({8, 4, 8}), 0x0821);
  EXPECT_EQ(packDepth({255, 0, 0}), 0x001F);
  EXPECT_EQ(packDepth({0, 255, 0}), 0x07E0);
  EXPECT_EQ(packDepth({0, 0, 255}), 0xF800);
}

TEST(OracleDepth, EveryPixelComesBackFromItsBytes) {
  for (int word = 0; word < 65536; ++word) {
    const auto pixel = static_cast<std::uint16_t>(word);
    const Three bytes = expandDepth(pixel);
    ASSERT_EQ(bytes[0], ((word & 31) << 3));
    ASSERT_EQ(bytes[1], (word & 0xFFE0) >> 3 & 255);
    ASSERT_EQ(bytes[2], (word & 0xF800) >> 8);
    ASSERT_EQ(packDepth(bytes), pixel);
  }
}

TEST(OracleDepth, EveryTripleLosesThreeTwoAndThreeBits) {
  std::int64_t wrong = 0;
  for (int i = 0; i < 1 << 24; ++i) {
    const Three bytes = {static_cast<std::uint8_t>(i), static_cast<std::uint8_t>(i >> 8),
                         static_cast<std::uint8_t>(i >> 16)};
    const std::uint16_t word = packDepth(bytes);
    const Three back = expandDepth(word);
    wrong += word != ((bytes[0] >> 3) | ((bytes[1] >> 2) << 5) | ((bytes[2] >> 3) << 11));
    wrong += back[0] != (bytes[0] & 0xF8) || back[1] != (bytes[1] & 0xFC);
    wrong += back[2] != (bytes[2] & 0xF8);
  }
  EXPECT_EQ(wrong, 0);
}

TEST(OracleDepth, OnePixelIsExactlyOne) {
  const std::uint8_t word[2] = {0x21, 0x08};
  const std::uint8_t bytes[3] = {8, 4, 8};
  for (std::string_view name : kExpanding) {
    Canvas canvas, wanted;
    EXPECT_EQ(convertDepth(name, Variant::mx, {word, 2, canvas.origin(), 3, 1, 1}), 0);
    for (int k = 0; k < 3; ++k) wanted.putByte(k, bytes[k]);
    EXPECT_EQ(canvas, wanted);
  }
  for (std::string_view name : kPacking) {
    Canvas canvas, wanted;
    EXPECT_EQ(convertDepth(name, Variant::mx, {bytes, 3, canvas.origin(), 2, 1, 1}), 0);
    wanted.putWord(0, 0x0821);
    EXPECT_EQ(canvas, wanted);
  }
}

// An image of the bytes of a region alone, with rows a pitch apart.
Bytes image(int rowBytes, int step, int height) {
  return noise(static_cast<std::size_t>((height - 1) * step + rowBytes), 12);
}

void expectExpanded(int width, int height, int evenSrcStep, int srcStep, int dstStep,
                    Variant variant = Variant::mx) {
  const Bytes source = image(2 * width, evenSrcStep, height);
  for (std::string_view name : kExpanding) {
    Canvas canvas, wanted;
    EXPECT_EQ(convertDepth(name, variant,
                           {source.data(), srcStep, canvas.origin(), dstStep, width, height}),
              0);
    for (int i = 0; i < width * height; ++i) {
      const int row = i / width, x = i % width;
      const auto at = static_cast<std::size_t>(row * evenSrcStep + 2 * x);
      const Three bytes = expandDepth(static_cast<std::uint16_t>(source[at] | source[at + 1] << 8));
      for (int k = 0; k < 3; ++k) {
        wanted.putByte(row * dstStep + 3 * x + k, bytes[static_cast<std::size_t>(k)]);
      }
    }
    EXPECT_EQ(canvas, wanted) << name << " " << width << " by " << height;
  }
}

void expectPacked(int width, int height, int srcStep, int dstStep, int evenDstStep,
                  Variant variant = Variant::mx) {
  const Bytes source = image(3 * width, srcStep, height);
  for (std::string_view name : kPacking) {
    Canvas canvas;
    EXPECT_EQ(convertDepth(name, variant,
                           {source.data(), srcStep, canvas.origin(), dstStep, width, height}),
              0);
    const Canvas wanted = wordCanvas(width, height, evenDstStep, [&](int row, int x) {
      const auto at = static_cast<std::size_t>(row * srcStep + 3 * x);
      return packDepth({source[at], source[at + 1], source[at + 2]});
    });
    EXPECT_EQ(canvas, wanted) << name << " " << width << " by " << height;
  }
}

TEST(OracleDepth, TellingWidths) {
  for (int width : {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 33}) {
    expectExpanded(width, 3, 2 * width + 4, 2 * width + 4, 3 * width + 1);
    expectPacked(width, 3, 3 * width + 1, 2 * width + 4, 2 * width + 4);
  }
}

TEST(OracleDepth, OddPitchOfThe16BitSideLosesItsLowBit) {
  expectExpanded(5, 4, 20, 21, 17);
  expectPacked(5, 4, 17, 21, 20);
  expectPacked(5, 4, 17, -21, -22);
  expectPacked(5, 4, 17, 1, 0);
}

TEST(OracleDepth, OddPitchOfTheByteSideStaysOdd) {
  expectExpanded(5, 4, 10, 10, -17);
  expectExpanded(5, 4, 10, 10, 1);
  expectPacked(4, 4, 13, -12, -12);
}

TEST(OracleDepth, NegativeOddSourcePitchGrows) {
  Bytes source(50);
  source[26] = 0x21;  // 22 bytes before the first row
  source[27] = 0x08;
  Canvas canvas;
  convertDepth(kExpanding[0], Variant::mx, {source.data() + 48, -21, canvas.origin(), 3, 1, 2});
  EXPECT_EQ(canvas.byteAt(3), 8);
  EXPECT_EQ(canvas.byteAt(4), 4);
}

TEST(OracleDepth, NegativeSourcePitchOfTheByteSide) {
  const std::uint8_t source[] = {8, 4, 8, 99, 255, 255, 255};
  Canvas canvas, wanted;
  convertDepth(kPacking[1], Variant::mx, {source + 4, -4, canvas.origin(), 2, 1, 2});
  wanted.putWord(0, 0xFFFF);
  wanted.putWord(2, 0x0821);
  EXPECT_EQ(canvas, wanted);
}

TEST(OracleDepth, EveryVariantAnswersAsTheReference) {
  for (int slot = 0; slot < 7; ++slot) {
    expectExpanded(17, 2, 34, 34, 51, static_cast<Variant>(slot));
    expectPacked(17, 2, 51, 34, 34, static_cast<Variant>(slot));
  }
}

TEST(OracleDepth, OtherNamesAreRefusedAloud) {
  const std::uint8_t none[8] = {};
  Canvas canvas;
  for (const char* name : {"BGR565ToYUV420_16u8u_C3P3R", "BGR555ToBGR_16u8u_C3R", ""}) {
    EXPECT_THROW(convertDepth(name, Variant::mx, {none, 2, canvas.origin(), 3, 1, 1}),
                 std::invalid_argument);
  }
}

}  // namespace
}  // namespace oracle
