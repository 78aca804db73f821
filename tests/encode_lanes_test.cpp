// SPDX-License-Identifier: MIT
// The lane forms of the encoders on portable lanes: every pixel, and every sum that a group can
// have.
#define PXM_LEVEL portable
#define PXM_SIMD
#include <gtest/gtest.h>

#include "tests/oracle/oracle.h"
#include "tests/support/portable_lanes.inl"
#include "vector/encode/plan.inl"

namespace pxm::portable {
namespace {

using L = I16xPortable;

L lanesFrom(int first) {
  L lanes;
  for (int i = 0; i < 8; ++i) lanes.e[i] = static_cast<int16_t>(first + i);
  return lanes;
}

// Luma of each of eight pixels against the oracle's.
template <class Form>
void expectLumaOfAllPixels(int (*luma)(std::uint16_t)) {
  for (int word = 0; word < 65536; word += 8) {
    const auto pixels = Form::pixels(lanesFrom(word));
    for (int i = 0; i < 8; ++i)
      ASSERT_EQ(pixels.luma.e[i], luma(static_cast<std::uint16_t>(word + i))) << word + i;
  }
}

TEST(LaneLuma, YCbCrOfAllBgr555Pixels) {
  expectLumaOfAllPixels<LaneYCbCr<UnpackBgr555>>(
      [](std::uint16_t w) { return oracle::laneLuma(oracle::unpackBgr555(w)); });
}
TEST(LaneLuma, YCbCrOfAllBgr565Pixels) {
  expectLumaOfAllPixels<LaneYCbCr<UnpackBgr565>>(
      [](std::uint16_t w) { return oracle::laneLuma(oracle::unpackBgr565(w)); });
}
TEST(LaneLuma, YuvOfAllBgr555Pixels) {
  expectLumaOfAllPixels<LaneYuvOfBgr<UnpackBgr555>>([](std::uint16_t w) {
    return oracle::laneBgrLuma(oracle::laneBgrLevel(oracle::unpackBgr555(w)));
  });
}
TEST(LaneLuma, YuvOfAllBgr565Pixels) {
  expectLumaOfAllPixels<LaneYuvOfBgr<UnpackBgr565>>([](std::uint16_t w) {
    return oracle::laneBgrLuma(oracle::laneBgrLevel(oracle::unpackBgr565(w)));
  });
}
TEST(LaneLuma, YuvOfAllRgb565Pixels) {
  expectLumaOfAllPixels<LaneYuvOfRgb565>([](std::uint16_t w) {
    return oracle::laneRgbLuma(oracle::laneRgbWeight(oracle::unpackRgb565(w)));
  });
}

// The parts that columns give, added up, are the group's sums: 32 times its eight-bit components.
template <class Pixels>
void expectPartsOfAllPixels(oracle::Rgb (*unpack)(std::uint16_t)) {
  using Form = LaneYCbCr<Pixels>;
  for (int word = 0; word < 65536; word += 8) {
    const L upper = lanesFrom(word), lower = lanesFrom(65528 - word);
    const LaneParts<L> one = Form::columns(Form::pixels(upper));
    const LaneParts<L> two = Form::columns(Form::pixels(upper), Form::pixels(lower));
    const LaneParts<L> pairs = Form::neighbours(two, one);
    for (int i = 0; i < 8; ++i) {
      const auto up = [&](int k) { return unpack(static_cast<std::uint16_t>(upper.e[k])); };
      const auto low = [&](int k) { return unpack(static_cast<std::uint16_t>(lower.e[k])); };
      ASSERT_EQ(one.first.e[i], 32 * up(i).r);
      ASSERT_EQ(one.second.e[i], 32 * up(i).g);
      ASSERT_EQ(one.third.e[i], 32 * up(i).b);
      ASSERT_EQ(two.first.e[i], 32 * (up(i).r + low(i).r));
      ASSERT_EQ(two.second.e[i], 32 * (up(i).g + low(i).g));
      ASSERT_EQ(two.third.e[i], 32 * (up(i).b + low(i).b));
      const LaneParts<L>& columns = i < 4 ? two : one;
      const int k = 2 * (i % 4);
      ASSERT_EQ(pairs.first.e[i], columns.first.e[k] + columns.first.e[k + 1]);
      ASSERT_EQ(pairs.second.e[i], columns.second.e[k] + columns.second.e[k + 1]);
      ASSERT_EQ(pairs.third.e[i], columns.third.e[k] + columns.third.e[k + 1]);
    }
  }
}

TEST(LaneParts, OfAllBgr555Pixels) {
  expectPartsOfAllPixels<UnpackBgr555>(oracle::unpackBgr555);
}
TEST(LaneParts, OfAllBgr565Pixels) {
  expectPartsOfAllPixels<UnpackBgr565>(oracle::unpackBgr565);
}

int asByte(int lane) {
  return lane < 0 ? 0 : lane > 255 ? 255 : lane;
}

// Sums of n pixels in steps of a component's least bit.
template <int n>
void expectYCbCrChromaOfAllSums(int greenStep, int mostGreen) {
  for (int r = 0; r <= n * 248; r += 8)
    for (int g = 0; g <= n * mostGreen; g += greenStep)
      for (int b = 0; b <= n * 248; b += 64) {
        L blue;
        for (int i = 0; i < 8; ++i) blue.e[i] = static_cast<int16_t>(32 * (b + 8 * i));
        const LaneChromaPair<L> c = LaneYCbCr<UnpackBgr565>::chroma<n>(
            LaneParts<L>{broadcast<L>(32 * r), broadcast<L>(32 * g), blue});
        for (int i = 0; i < 8 && b + 8 * i <= n * 248; ++i) {
          ASSERT_EQ(c.first.e[i], oracle::laneCb(r, g, b + 8 * i, n)) << r << " " << g << " " << b;
          ASSERT_EQ(c.second.e[i], oracle::laneCr(r, g, b + 8 * i, n)) << r << " " << g << " " << b;
        }
      }
}

TEST(LaneChroma, YCbCrOfAllSumsOfFour) {
  expectYCbCrChromaOfAllSums<4>(4, 252);
}
TEST(LaneChroma, YCbCrOfAllSumsOfTwo) {
  expectYCbCrChromaOfAllSums<2>(4, 252);
}

// U sees blue and luma, V sees red and luma: every sum of four against every sum of luma to 4 *
// 251.
TEST(LaneChroma, YuvOfBgrOfAllSums) {
  for (int component = 0; component <= 4 * 31; ++component)
    for (int luma = 0; luma <= 4 * 251; ++luma) {
      // Lanes hold 256 times five bits, and 32 times luma.
      const L scaled = broadcast<L>(256 * component), levels = broadcast<L>(32 * luma);
      const LaneChromaPair<L> c =
          LaneYuvOfBgr<UnpackBgr565>::chroma<4>(LaneParts<L>{scaled, scaled, levels});
      ASSERT_EQ(asByte(c.first.e[0]), oracle::laneBgrU(8 * component, luma)) << component;
      ASSERT_EQ(asByte(c.second.e[0]), oracle::laneBgrV(8 * component, luma)) << component;
    }
}

template <int n>
void expectYuvOfRgbChroma() {
  for (int component = 0; component <= n * 31; ++component)
    for (int weights = 0; weights <= n * 504; ++weights) {
      const L scaled = broadcast<L>(32 * component), sums = broadcast<L>(weights);
      const LaneChromaPair<L> c = LaneYuvOfRgb565::chroma<n>(LaneParts<L>{scaled, scaled, sums});
      ASSERT_EQ(asByte(c.first.e[0]), oracle::laneRgbU(8 * component, weights, n)) << component;
      ASSERT_EQ(asByte(c.second.e[0]), oracle::laneRgbV(8 * component, weights, n)) << component;
    }
}

TEST(LaneChroma, YuvOfRgbOfAllSumsOfFour) {
  expectYuvOfRgbChroma<4>();
}
TEST(LaneChroma, YuvOfRgbOfAllSumsOfTwo) {
  expectYuvOfRgbChroma<2>();
}

// 187 * 16121 lies below 46 * 65536 and 187 * 16122 above: one component of 31 is 248, luma 61.
TEST(LaneChroma, TheWeightOfBlueFromRgbIs16121) {
  const LaneChromaPair<L> c = LaneYuvOfRgb565::chroma<2>(
      LaneParts<L>{broadcast<L>(0), broadcast<L>(32 * 31), broadcast<L>(2 * 61)});
  EXPECT_EQ(c.first.e[0], 128 + 45);
}

TEST(EncodePlans, VectorColumnsByLiteralWidths) {
  constexpr BlockPlan to422 = EncodePlan<YCbCrGroup<2>, PlanarTarget<1, 1>>::plan;
  constexpr BlockPlan to422Interleaved = EncodePlan<YCbCrGroup<2>, InterleavedTarget422>::plan;
  constexpr BlockPlan to420 = EncodePlan<YCbCrGroup<4>, PlanarTarget<2, 1>>::plan;
  constexpr BlockPlan to411 = EncodePlan<YCbCrGroup<4>, PlanarTarget<1, 2>>::plan;
  constexpr BlockPlan bgrToYuv = EncodePlan<YuvGroupOfBgr<4>, PlanarTarget<2, 1>>::plan;
  constexpr BlockPlan rgbToYuv420 = EncodePlan<YuvGroupOfRgb<4>, PlanarTarget<2, 1>>::plan;
  constexpr BlockPlan rgbToYuv422 = EncodePlan<YuvGroupOfRgb<2>, PlanarTarget<1, 1>>::plan;
  const struct {
    int width, to422, to420, to411, bgrToYuv, rgbToYuv;
  } rows[] = {{3, 0, 0, 0, 0, 0},       {4, 0, 4, 4, 4, 0},       {7, 0, 4, 4, 4, 0},
              {8, 8, 0, 8, 8, 0},       {11, 8, 0, 8, 8, 0},      {12, 8, 4, 12, 12, 0},
              {15, 8, 4, 12, 12, 0},    {16, 0, 16, 16, 16, 16},  {20, 0, 20, 20, 20, 16},
              {23, 0, 20, 20, 20, 16},  {24, 8, 16, 24, 24, 16},  {31, 8, 20, 28, 28, 16},
              {32, 32, 32, 32, 32, 32}, {39, 32, 36, 36, 36, 32}, {40, 40, 32, 40, 40, 32},
              {47, 40, 36, 44, 44, 32}, {48, 32, 48, 48, 48, 48}, {55, 32, 52, 52, 52, 48}};
  for (const auto& row : rows) {
    EXPECT_EQ(VectorColumns(to422, row.width), row.to422) << row.width;
    EXPECT_EQ(VectorColumns(to422Interleaved, row.width), row.to422) << row.width;
    EXPECT_EQ(VectorColumns(to420, row.width), row.to420) << row.width;
    EXPECT_EQ(VectorColumns(to411, row.width), row.to411) << row.width;
    EXPECT_EQ(VectorColumns(bgrToYuv, row.width), row.bgrToYuv) << row.width;
    EXPECT_EQ(VectorColumns(rgbToYuv420, row.width), row.rgbToYuv) << row.width;
    EXPECT_EQ(VectorColumns(rgbToYuv422, row.width), row.rgbToYuv) << row.width;
  }
}

}  // namespace
}  // namespace pxm::portable
