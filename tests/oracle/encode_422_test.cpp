// SPDX-License-Identifier: MIT
// Holds the encoding to 4:2:2 to known bytes.
#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_encode.h"

namespace oracle {
namespace {

constexpr std::string_view k555Packed = "BGR555ToYCbCr422_16u8u_C3C2R";
constexpr std::string_view k565Packed = "BGR565ToYCbCr422_16u8u_C3C2R";
constexpr std::string_view k555Planar = "BGR555ToYCbCr422_16u8u_C3P3R";
constexpr std::string_view k565Planar = "BGR565ToYCbCr422_16u8u_C3P3R";

Rgb pixel(std::string_view name, const EncodeScene& scene, int srcStep, int row, int column) {
  return unpackFor(name, scene.word(row * srcStep + 2 * column));
}

GroupSums pairSums(std::string_view name, const EncodeScene& scene, int srcStep, int row, int i) {
  GroupSums sums;
  for (int k = 0; k < 2; ++k) sums.add(pixel(name, scene, srcStep, row, 2 * i + k));
  return sums;
}

// A source of exactly the bytes of a region.
EncodeScene sceneOf(int srcStep, int width, int height) {
  return EncodeScene(noise(static_cast<std::size_t>(srcStep * (height - 1) + 2 * width), 6));
}

void expectPacked(std::string_view name, int srcStep, int width, int height, int dstStep = 24) {
  EncodeScene scene = sceneOf(srcStep, width, height);
  scene.step[0] = dstStep;
  EXPECT_EQ(scene.run(name, srcStep, width, height), 0);
  Canvas wanted;
  for (int row = 0; row < height; ++row) {
    for (int x = 0; x < width; ++x) {
      const Rgb c = pixel(name, scene, srcStep, row, x);
      const int at = row * dstStep + 2 * x;
      wanted.putByte(at, encodeLuma(c));
      if (x == width - 1 && width % 2 == 1) {
        wanted.putByte(at + 1, encodeCbSingle(c));
      } else {
        const GroupSums s = pairSums(name, scene, srcStep, row, x / 2);
        wanted.putByte(at + 1,
                       x % 2 == 0 ? encodeCb(s.r, s.g, s.b, 2) : encodeCr(s.r, s.g, s.b, 2));
      }
    }
  }
  EXPECT_EQ(scene.plane[0], wanted) << name << " " << width << " by " << height;
}

void expectPlanar(std::string_view name, int srcStep, int width, int height, int sign = 1) {
  EncodeScene scene = sceneOf(srcStep, width, height);
  for (int& step : scene.step) step *= sign;
  EXPECT_EQ(scene.run(name, srcStep, width, height), 0);
  Canvas wanted[3];
  for (int row = 0; row < height; ++row) {
    for (int x = 0; x < width; ++x) {
      wanted[0].putByte(row * scene.step[0] + x, encodeLuma(pixel(name, scene, srcStep, row, x)));
    }
    for (int i = 0; i < width / 2; ++i) {
      const GroupSums s = pairSums(name, scene, srcStep, row, i);
      wanted[1].putByte(row * scene.step[1] + i, encodeCb(s.r, s.g, s.b, 2));
      wanted[2].putByte(row * scene.step[2] + i, encodeCr(s.r, s.g, s.b, 2));
    }
  }
  for (int k = 0; k < 3; ++k) EXPECT_EQ(scene.plane[k], wanted[k]) << name << " " << width;
}

TEST(OracleEncode422, Width1IsRefusedAndHeight1IsNot) {
  for (std::string_view name : {k555Packed, k565Packed, k555Planar, k565Planar}) {
    EXPECT_EQ(rejectionOf(name, {.nulls = {}, .width = 1}), -6);
    EXPECT_EQ(rejectionOf(name, {.nulls = {}, .width = 2, .height = 1}), 0);
  }
}

TEST(OracleEncode422, Width2IsFourBytes) {
  EncodeScene scene(Words{0x7C00, 0x001F});
  EXPECT_EQ(scene.run(k555Packed, 4, 2, 1), 0);
  EXPECT_EQ(scene.plane[0], byteRows({{80, 164, 40, 173}}, 4));
}

TEST(OracleEncode422, RowOfThree555PixelsInterleaved) {
  EncodeScene scene(Words{0x7C00, 0x001F, 0x03E0});
  EXPECT_EQ(scene.run(k555Packed, 6, 3, 1), 0);
  EXPECT_EQ(scene.plane[0], byteRows({{80, 164, 40, 173, 141, 55}}, 6));
  EXPECT_EQ(scene.plane[1], Canvas());
  EXPECT_EQ(scene.plane[2], Canvas());
}

TEST(OracleEncode422, RowOfThree555PixelsInPlanes) {
  EncodeScene scene(Words{0x7C00, 0x001F, 0x03E0});
  EXPECT_EQ(scene.run(k555Planar, 6, 3, 1), 0);
  EXPECT_EQ(scene.plane[0], byteRows({{80, 40, 141}}, 3));
  EXPECT_EQ(scene.plane[1], byteRows({{164}}, 1));
  EXPECT_EQ(scene.plane[2], byteRows({{173}}, 1));
}

TEST(OracleEncode422, RowOfThree565PixelsInterleaved) {
  EncodeScene scene(Words{0xF800, 0x001F, 0x07E0});
  EXPECT_EQ(scene.run(k565Packed, 6, 3, 1), 0);
  EXPECT_EQ(scene.plane[0], byteRows({{80, 164, 40, 173, 143, 54}}, 6));
}

TEST(OracleEncode422, Width5InterleavedWritesTenBytesPerRow) {
  EncodeScene scene(Words(15, 0));
  EXPECT_EQ(scene.run(k555Packed, 10, 5, 3), 0);
  const std::vector<int> row = {16, 128, 16, 128, 16, 128, 16, 128, 16, 128};
  EXPECT_EQ(scene.plane[0], byteRows({row, row, row}, 24));
}

TEST(OracleEncode422, EverySizeFromTwoToNine) {
  for (int width = 2; width <= 9; ++width) {
    for (int height = 1; height <= 4; ++height) {
      for (std::string_view name : {k555Packed, k565Packed}) {
        expectPacked(name, 2 * width + 2, width, height);
      }
      for (std::string_view name : {k555Planar, k565Planar}) {
        expectPlanar(name, 2 * width + 2, width, height);
      }
    }
  }
}

TEST(OracleEncode422, OddSourcePitchStaysOdd) {
  for (std::string_view name : {k555Packed, k565Packed}) expectPacked(name, 21, 7, 4);
  for (std::string_view name : {k555Planar, k565Planar}) expectPlanar(name, 21, 7, 4);
}

TEST(OracleEncode422, DestinationPitchesNegativeZeroAndSmall) {
  for (int step : {-24, 0, 1, 3}) expectPacked(k555Packed, 14, 7, 4, step);
  expectPlanar(k565Planar, 14, 7, 4, -1);
  expectPlanar(k565Planar, 14, 7, 4, 0);
}

TEST(OracleEncode422, EveryVariantAnswersAsTheReferenceBelowTheSmallestBlock) {
  for (int slot = 0; slot < 7; ++slot) {
    EncodeScene scene(Words{0xF800, 0x001F, 0x07E0});
    EXPECT_EQ(scene.run(k565Packed, 6, 3, 1, static_cast<Variant>(slot)), 0);
    EXPECT_EQ(scene.plane[0], byteRows({{80, 164, 40, 173, 143, 54}}, 6));
  }
}

}  // namespace
}  // namespace oracle
