// SPDX-License-Identifier: MIT
// The encoders by literal samples, in scalar code and in SIMD.
#include <gtest/gtest.h>

#include <cstring>

#include "catalogue/variants.h"
#include "include/pxmcc90lgc.h"
#include "tests/support/small_images.h"

namespace {

constexpr std::uint8_t U = untouchedByte;
using Planes = std::vector<Bytes>;

class Encode : public testing::Test {
 private:
  const SelectedVariant plain{0};
};

TEST_F(Encode, Bgr555BlocksTo420) {
  const Words redsAndGreen = {0x7C00, 0x7C00, 0x7C00, 0x03E0};
  EXPECT_EQ(encoded("BGR555ToYCbCr420_16u8u_C3P3R", redsAndGreen, 2, 2),
            (Planes{{80, 80, 80, 141}, {82, U}, {186, U}}));
  EXPECT_EQ(encoded("BGR555ToYCrCb420_16u8u_C3P3R", redsAndGreen, 2, 2),
            (Planes{{80, 80, 80, 141}, {186, U}, {82, U}}));
  EXPECT_EQ(encoded("BGR555ToYCbCr420_16u8u_C3P3R", {0x7C00, 0x03E0, 0x001F, 0x7FFF}, 2, 2),
            (Planes{{80, 141, 40, 229}, {128, U}, {128, U}}));
}

TEST_F(Encode, Bgr565BlocksTo420) {
  EXPECT_EQ(encoded("BGR565ToYCbCr420_16u8u_C3P3R", {0xF800, 0x07E0, 0x001F, 0xFFFF}, 2, 2),
            (Planes{{80, 143, 40, 231}, {127, U}, {127, U}}));
  EXPECT_EQ(encoded("BGR565ToYCrCb420_16u8u_C3P3R", {0xF800, 0xF800, 0xF800, 0x07E0}, 2, 2),
            (Planes{{80, 80, 80, 143}, {186, U}, {82, U}}));
}

TEST_F(Encode, WhitesAndBlacks) {
  EXPECT_EQ(encoded("BGR555ToYCbCr420_16u8u_C3P3R", Words(4, 0), 2, 2),
            (Planes{Bytes(4, 16), {128, U}, {128, U}}));
  EXPECT_EQ(encoded("BGR555ToYCbCr420_16u8u_C3P3R", Words(4, 0x7FFF), 2, 2),
            (Planes{Bytes(4, 229), {128, U}, {128, U}}));
  // The 252 of green against 248 of red and blue.
  EXPECT_EQ(encoded("BGR565ToYCbCr420_16u8u_C3P3R", Words(4, 0xFFFF), 2, 2),
            (Planes{Bytes(4, 231), {126, U}, {126, U}}));
}

TEST_F(Encode, OddSizesTo420GiveLumaAndNoChroma) {
  EXPECT_EQ(encoded("BGR555ToYCbCr420_16u8u_C3P3R",
                    {0x7C00, 0x7C00, 0x001F, 0x7C00, 0x03E0, 0x001F, 0x7FFF, 0, 0x03E0}, 3, 3),
            (Planes{{80, 80, 40, 80, 141, 40, 229, 16, 141}, {82, U, U}, {186, U, U}}));
}

TEST_F(Encode, BelowTwoByTwoIsRefusedFrom420) {
  EXPECT_EQ(encoded("BGR565ToYCbCr420_16u8u_C3P3R", Words(4, 0), 1, 4, -6)[0], Bytes(4, U));
  EXPECT_EQ(encoded("BGR565ToYCbCr420_16u8u_C3P3R", Words(4, 0), 4, 1, -6)[0], Bytes(4, U));
}

// A pitch of 21 reads rows at bytes 0, 20, 42, 62.
TEST_F(Encode, OddPitchLosesItsLowBitForTheLowerRowOnly) {
  std::uint8_t source[66] = {};
  for (const int row : {0, 20, 42, 62}) {
    const std::uint16_t words[2] = {0x7C00, 0x7C00};
    std::memcpy(source + row, words, sizeof words);
  }
  std::uint8_t y[8], cb[2], cr[2];
  unsigned char* dst[3] = {y, cb, cr};
  int dstStep[3] = {2, 1, 1};
  EXPECT_EQ(legacy90pxmiBGR555ToYCbCr420_16u8u_C3P3R(
                reinterpret_cast<const unsigned short*>(source), 21, dst, dstStep, {2, 4}),
            0);
  for (const std::uint8_t luma : y) EXPECT_EQ(luma, 80);
}

// From RGB565 the lower row is one exact pitch down: 0, 21, 42, 63. Full red 0x001F is luma 74.
TEST_F(Encode, OddPitchStaysOddFromRgb565) {
  std::uint8_t source[67] = {};
  for (const int row : {0, 21, 42, 63}) {
    const std::uint16_t words[2] = {0x001F, 0x001F};
    std::memcpy(source + row, words, sizeof words);
  }
  std::uint8_t y[8], u[2], v[2];
  unsigned char* dst[3] = {y, u, v};
  int dstStep[3] = {2, 1, 1};
  EXPECT_EQ(legacy90pxmiRGB565ToYUV420_16u8u_C3P3R(reinterpret_cast<const unsigned short*>(source),
                                                   21, dst, dstStep, {2, 4}),
            0);
  for (const std::uint8_t luma : y) EXPECT_EQ(luma, 74);
}

TEST_F(Encode, OddRowInterleavedEndsOnACbOfItsOwn) {
  EXPECT_EQ(encoded("BGR555ToYCbCr422_16u8u_C3C2R", {0x7C00, 0x001F, 0x03E0}, 3, 1),
            (Planes{{80, 164, 40, 173, 141, 55}}));
  EXPECT_EQ(encoded("BGR565ToYCbCr422_16u8u_C3C2R", {0xF800, 0x001F, 0x07E0}, 3, 1),
            (Planes{{80, 164, 40, 173, 143, 54}}));
}

TEST_F(Encode, OddRowPlanarHasLumaAlone) {
  EXPECT_EQ(encoded("BGR555ToYCbCr422_16u8u_C3P3R", {0x7C00, 0x001F, 0x03E0}, 3, 1),
            (Planes{{80, 40, 141}, {164}, {173}}));
}

TEST_F(Encode, LeftoversOf411AreNotTouched) {
  EXPECT_EQ(
      encoded("BGR555ToYCbCr411_16u8u_C3P3R", {0x7C00, 0x7C00, 0x7C00, 0x03E0, 0x1234}, 5, 1, 35),
      (Planes{{80, 80, 80, 141, U}, {82}, {186}}));
  EXPECT_EQ(encoded("BGR565ToYCbCr411_16u8u_C3P3R", {0xF800, 0x07E0, 0x001F, 0xFFFF}, 4, 1)[0],
            (Bytes{80, 143, 40, 231}));
  EXPECT_EQ(encoded("BGR555ToYCbCr411_16u8u_C3P3R", Words(3, 0), 3, 1, -6)[0], Bytes(3, U));
}

TEST_F(Encode, BgrToYuv420) {
  EXPECT_EQ(encoded("BGR555ToYUV420_16u8u_C3P3R", {0x7C00, 0x03E0, 0x001F, 0x7FFF}, 2, 2),
            (Planes{{74, 146, 28, 248}, {128, U}, {128, U}}));
  EXPECT_EQ(encoded("BGR565ToYUV420_16u8u_C3P3R", {0xF800, 0x07E0, 0x001F, 0xFFFF}, 2, 2),
            (Planes{{74, 148, 28, 250}, {127, U}, {127, U}}));
  EXPECT_EQ(encoded("BGR565ToYUV420_16u8u_C3P3R", {0xF800, 0xF800, 0xF800, 0x07E0}, 2, 2),
            (Planes{{74, 74, 74, 148}, {82, U}, {210, U}}));
}

TEST_F(Encode, VIsClampedAtBothEnds) {
  EXPECT_EQ(encoded("BGR565ToYUV420_16u8u_C3P3R", Words(4, 0xF800), 2, 2),
            (Planes{Bytes(4, 74), {91, U}, {255, U}}));
  const Planes cyan = encoded("BGR565ToYUV420_16u8u_C3P3R", Words(4, 0x07FF), 2, 2);
  EXPECT_EQ(cyan[1][0], 163);
  EXPECT_EQ(cyan[2][0], 0);
}

TEST_F(Encode, Rgb565ToYuvIsNotRounded) {
  EXPECT_EQ(encoded("RGB565ToYUV420_16u8u_C3P3R", {0xF800, 0x07E0, 0x001F, 0xFFFF}, 2, 2),
            (Planes{{28, 147, 74, 250}, {127, U}, {127, U}}));
  EXPECT_EQ(encoded("RGB565ToYUV420_16u8u_C3P3R", {0xF800, 0xF800, 0xF800, 0x07E0}, 2, 2),
            (Planes{{28, 28, 28, 147}, {191, U}, {77, U}}));
  EXPECT_EQ(encoded("RGB565ToYUV422_16u8u_C3P3R", {0xF800, 0xF800}, 2, 1),
            (Planes{{28, 28}, {236}, {103}}));
}

TEST_F(Encode, OddSizesToYuvWarnAndLeaveTheRest) {
  const Planes odd = encoded("BGR565ToYUV420_16u8u_C3P3R", Words(9, 0xF800), 3, 3, 35);
  EXPECT_EQ(odd, (Planes{{74, 74, U, 74, 74, U, U, U, U}, {91, U, U}, {255, U, U}}));
  EXPECT_EQ(encoded("RGB565ToYUV420_16u8u_C3P3R", Words(2, 0), 2, 1, 35),
            (Planes{{U, U}, {U}, {U}}));
  EXPECT_EQ(encoded("BGR565ToYUV420_16u8u_C3P3R", Words(2, 0), 2, 1, -6),
            (Planes{{U, U}, {U}, {U}}));
  EXPECT_EQ(encoded("RGB565ToYUV422_16u8u_C3P3R", Words(2, 0), 2, 1, 0),
            (Planes{{0, 0}, {128}, {128}}));
  EXPECT_EQ(encoded("RGB565ToYUV422_16u8u_C3P3R", Words(1, 0), 1, 1, 35), (Planes{{U}, {U}, {U}}));
}

// In each variant with blocks.
class EncodeInBlocks : public testing::TestWithParam<int> {
 private:
  const SelectedVariant selected{GetParam()};
};

// Luma of all pixels alike, one chroma sample for each group; the byte after stays as it was.
Planes uniform(const char* name, int width, int height, std::uint16_t word) {
  return encoded(name, Words(static_cast<std::size_t>(width * height), word), width, height);
}

TEST_P(EncodeInBlocks, Black) {
  for (const char* name : {"BGR555ToYCbCr422_16u8u_C3P3R", "BGR565ToYCbCr422_16u8u_C3P3R"}) {
    const Planes black = uniform(name, 32, 1, 0);
    EXPECT_EQ(black[0], Bytes(32, 16));   // 2112 >> 7
    EXPECT_EQ(black[1], Bytes(16, 128));  // 8200 >> 6
    EXPECT_EQ(black[2], Bytes(16, 128));
  }
  for (const char* name : {"BGR555ToYCbCr420_16u8u_C3P3R", "BGR565ToYCbCr420_16u8u_C3P3R"})
    EXPECT_EQ(uniform(name, 16, 2, 0)[0], Bytes(32, 16));
  for (const char* name : {"BGR555ToYUV420_16u8u_C3P3R", "RGB565ToYUV420_16u8u_C3P3R"}) {
    const Planes black = uniform(name, 16, 2, 0);
    EXPECT_EQ(black[0], Bytes(32, 0));
    EXPECT_EQ(Bytes(black[1].begin(), black[1].begin() + 8), Bytes(8, 128));  // 8224 >> 6
    EXPECT_EQ(Bytes(black[2].begin(), black[2].begin() + 8), Bytes(8, 128));
  }
}

// 8158 + 15998 + 3111 + 2112 is 29379, and that >> 7 is 229.
TEST_P(EncodeInBlocks, White) {
  EXPECT_EQ(uniform("BGR555ToYCbCr422_16u8u_C3P3R", 32, 1, 0x7FFF)[0], Bytes(32, 229));
  EXPECT_EQ(uniform("BGR555ToYCbCr411_16u8u_C3P3R", 4, 1, 0x7FFF)[0], Bytes(4, 229));
}

// Sixteen columns of 4:2:2 are scalar, and thirty-two are not: over all pixels the two differ.
TEST_P(EncodeInBlocks, SixteenColumnsTo422AreScalarAndThirtyTwoAreNot) {
  for (const char* name : {"BGR555ToYCbCr422_16u8u_C3P3R", "BGR565ToYCbCr422_16u8u_C3P3R"}) {
    Words words(65536);
    for (std::size_t i = 0; i < words.size(); ++i)
      words[i] = static_cast<std::uint16_t>(i * 40503u);
    const auto inPlainCode = [&](int width) {
      const SelectedVariant plain(0);
      return encoded(name, words, width, 65536 / width);
    };
    EXPECT_TRUE(encoded(name, words, 16, 4096) == inPlainCode(16));
    EXPECT_FALSE(encoded(name, words, 32, 2048) == inPlainCode(32));
  }
}

// Five columns are a block of four and one more, which has luma from BGR555 alone.
TEST_P(EncodeInBlocks, LeftoversOf411HaveLumaFromBgr555) {
  const Words greens = {0x7C00, 0x7C00, 0x7C00, 0x03E0, 0x03E0};
  EXPECT_EQ(encoded("BGR555ToYCbCr411_16u8u_C3P3R", greens, 5, 1, 35),
            (Planes{{80, 80, 80, 141, 141}, {82}, {186}}));
  EXPECT_EQ(encoded("BGR565ToYCbCr411_16u8u_C3P3R", greens, 5, 1, 35)[0][4], U);
}

INSTANTIATE_TEST_SUITE_P(, EncodeInBlocks, testing::ValuesIn([] {
                           std::vector<int> variants = runnableVariants();
                           std::erase(variants, 0);
                           return variants;
                         }()),
                         [](const auto& info) { return variantTags[info.param]; });

}  // namespace
