// SPDX-License-Identifier: MIT
// Every size, pitch and place of an image against the oracle: the bytes written, and those that
// must not be. Guard pages stand on both sides of every source and destination.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include "tests/support/images.h"

namespace {

constexpr int mostWidth = 40, mostHeight = 6, mostPadding = 37;

// Pitches and places for one size. Each value of each property meets each side of the memory.
std::vector<Layout> layoutsOf(int width, int height) {
  struct Pitch {
    int padding;
    bool upwards;
  };
  const Pitch srcPitches[] = {{0, false}, {13, false}, {0, true}, {37, true}};
  const Pitch dstPitches[] = {{0, false}, {1, false}, {22, false}, {37, false},
                              {0, true},  {1, true},  {22, true},  {37, true}};
  std::vector<Layout> layouts;
  for (const Pitch src : srcPitches)
    for (const Pitch dst : dstPitches)
      for (const Against side : {Against::FirstPage, Against::LastPage})
        for (const int distance : {0, 1})
          layouts.push_back(
              {width, height, src.padding, dst.padding, src.upwards, dst.upwards, side, distance});
  return layouts;
}

class DecodeGeometry : public testing::TestWithParam<Decoder> {};

TEST_P(DecodeGeometry, WidthsTo40ByHeightsTo6) {
  SCOPED_TRACE(seedMessage());
  const Decoder& decoder = GetParam();
  Random random{std::string(decoder.name)};
  DecodeMemory memory(mostWidth, mostHeight, mostPadding);
  int calls = 0;
  for (const int variant : variantsToTest(decoder))
    for (int width = 1; width <= mostWidth; ++width)
      for (int height = 1; height <= mostHeight; ++height)
        for (const Layout& layout : layoutsOf(width, height)) {
          ASSERT_TRUE(memory.matchesOracle(decoder, variant, layout, random));
          ++calls;
        }
  RecordProperty("calls", calls);
}

INSTANTIATE_TEST_SUITE_P(, DecodeGeometry, testing::ValuesIn(decoders()),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(DecodePitch, OddDestinationPitchLosesItsLowBit) {
  const unsigned char white[3 * 2] = {255, 128, 128, 255, 128, 128};
  for (const auto& [pitch, secondRow] : {std::pair{641, 640}, {-641, -642}}) {
    std::vector<unsigned char> memory(2000, 0x5A);
    unsigned char* first = memory.data() + 1000;
    EXPECT_EQ(legacy90pxmiYCbCrToBGR565_8u16u_C3R(
                  white, 3, reinterpret_cast<unsigned short*>(first), pitch, {1, 2}),
              0);
    for (int i = -1000; i < 1000; ++i) {
      const bool written = i == 0 || i == 1 || i == secondRow || i == secondRow + 1;
      EXPECT_EQ(first[i], written ? 0xFF : 0x5A) << "pitch " << pitch << ", byte " << i;
    }
  }
}

TEST(DecodePitch, ZeroWritesEveryRowOverTheFirst) {
  const unsigned char rows[3][3] = {{16, 128, 128}, {235, 128, 128}, {16, 128, 128}};
  unsigned short pixels[2] = {0x5A5A, 0x5A5A};
  EXPECT_EQ(legacy90pxmiYCbCrToBGR444_8u16u_C3R(rows[0], 3, pixels, 0, {1, 2}), 0);
  EXPECT_EQ(pixels[0], 0x0FFF);
  EXPECT_EQ(legacy90pxmiYCbCrToBGR444_8u16u_C3R(rows[0], 3, pixels, 0, {1, 3}), 0);
  EXPECT_EQ(pixels[0], 0);
  EXPECT_EQ(pixels[1], 0x5A5A);
}

TEST(DecodePitch, SourcePitchOfZeroReadsTheFirstRowAgain) {
  const unsigned char row[3] = {235, 128, 128};
  unsigned short pixels[3] = {0, 0, 0x5A5A};
  EXPECT_EQ(legacy90pxmiYCbCrToBGR444_8u16u_C3R(row, 0, pixels, 2, {1, 2}), 0);
  EXPECT_EQ(pixels[0], 0x0FFF);
  EXPECT_EQ(pixels[1], 0x0FFF);
  EXPECT_EQ(pixels[2], 0x5A5A);
}

}  // namespace
