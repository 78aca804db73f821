// SPDX-License-Identifier: MIT
// Chains and packers of the vector decoders on portable lanes, over all of their inputs.
#define PXM_VARIANT portable
#include <gtest/gtest.h>

#include "tests/oracle/oracle.h"
#include "tests/support/portable_lanes.inl"
#include "vector/forms.inl"
#include "vector/packers.inl"

namespace pxm::portable {
namespace {

using L = I16xPortable;

// Eight luma samples from y on, each in the high byte of a lane.
L inHighBytes(int y) {
  L lanes;
  for (int i = 0; i < 8; ++i) lanes.e[i] = static_cast<int16_t>((y + i) << 8);
  return lanes;
}

int clamped(int level) {
  return level < 0 ? 0 : level > 255 ? 255 : level;
}

template <class Chain>
void expectChainOverAllTriples(oracle::Rgb (*expected)(int, int, int)) {
  for (int cb = 0; cb < 256; ++cb)
    for (int cr = 0; cr < 256; ++cr) {
      const LaneTerms<L> terms = Chain::chroma(all<L>(cb << 8), all<L>(cr << 8));
      for (int y = 0; y < 256; y += 8) {
        const LaneChannels<L> c = join(Chain::luma(inHighBytes(y)), terms);
        for (int i = 0; i < 8; ++i) {
          const oracle::Rgb want = expected(y + i, cb, cr);
          if (clamped(c.red.e[i] >> 4) != want.r || clamped(c.green.e[i] >> 4) != want.g ||
              clamped(c.blue.e[i] >> 4) != want.b)
            FAIL() << y + i << " " << cb << " " << cr;
        }
      }
    }
}

TEST(Chains, NarrowChainOverAllTriples) {
  expectChainOverAllTriples<NarrowChain>(oracle::narrowChain);
}
TEST(Chains, RoundedNarrowChainOverAllTriples) {
  expectChainOverAllTriples<RoundedNarrowChain>(oracle::roundedNarrowChain);
}
TEST(Chains, StagedYuvChainOverAllTriples) {
  expectChainOverAllTriples<StagedYuvChain>(oracle::stagedYuvChain);
}

// More than any chain reaches: a luma of up to 4450 sixteenths, and terms of up to 4131.
constexpr int leastSixteenths = -8700, mostSixteenths = 8700;

// A register of pixels of one value in each row, and of another beside it.
template <class Packer>
void expectPackedAs(int row, int otherRow, bool bgr, int red, int green, int blue) {
  const LaneRow<Packer, L> lanes(row), otherLanes(otherRow);
  const LaneTerms<L> terms = {all<L>(red), all<L>(-green), all<L>(blue)};
  const LaneTerms<L> other = {all<L>(blue), all<L>(-red), all<L>(green)};
  const TwoOfPixels<L> words =
      bgr ? packTwo<true>(lanes, all<L>(0), terms, otherLanes, all<L>(0), other)
          : packTwo<false>(lanes, all<L>(0), terms, otherLanes, all<L>(0), other);
  const auto packed = [bgr](const oracle::Rgb& levels, int y, int x) {
    return Packer::dithers ? oracle::packDither(levels, Packer::depth, bgr, y, x)
                           : oracle::packPlain(levels, Packer::depth, bgr);
  };
  const int r = clamped(red >> 4), g = clamped(green >> 4), b = clamped(blue >> 4);
  for (int i = 0; i < 8; ++i) {
    ASSERT_EQ(static_cast<uint16_t>(words.first.e[i]), packed({r, g, b}, row, i))
        << red << " " << green << " " << blue << " at " << row << "," << i;
    ASSERT_EQ(static_cast<uint16_t>(words.second.e[i]), packed({b, r, g}, otherRow, i))
        << blue << " " << red << " " << green << " at " << otherRow << "," << i;
  }
}

// Every value that a component can take, in each channel and at every place of the dither.
template <class Packer>
void expectPackingOfAllValues() {
  for (const bool bgr : {false, true})
    for (int row = 0; row < 4; ++row)
      for (int v = leastSixteenths; v <= mostSixteenths; ++v)
        ASSERT_NO_FATAL_FAILURE(
            expectPackedAs<Packer>(row, (row + 1) & 3, bgr, v, v * 7 % 8192, -v));
}

TEST(LanePacking, Of444OverAllValuesAndPlaces) {
  expectPackingOfAllValues<PackPlain<444>>();
  expectPackingOfAllValues<PackDither<444>>();
}
TEST(LanePacking, Of555OverAllValuesAndPlaces) {
  expectPackingOfAllValues<PackPlain<555>>();
  expectPackingOfAllValues<PackDither<555>>();
}
TEST(LanePacking, Of565OverAllValuesAndPlaces) {
  expectPackingOfAllValues<PackPlain<565>>();
  expectPackingOfAllValues<PackDither<565>>();
}

TEST(Cuts, VectorColumnsByLiteralWidths) {
  const struct {
    int width, byEight, byEightFour, byEightFourTwo;
  } rows[] = {{1, 0, 0, 0},    {2, 0, 0, 2},     {3, 0, 0, 2},    {4, 0, 4, 4},
              {7, 0, 4, 6},    {8, 8, 8, 8},     {9, 8, 8, 8},    {12, 8, 12, 12},
              {15, 8, 12, 14}, {16, 16, 16, 16}, {39, 32, 36, 38}};
  for (const auto& row : rows) {
    EXPECT_EQ(VectorColumns(cutByEight, row.width), row.byEight);
    EXPECT_EQ(VectorColumns(cutByEightFour, row.width), row.byEightFour);
    EXPECT_EQ(VectorColumns(cutByEightFourTwo, row.width), row.byEightFourTwo);
  }
}

}  // namespace
}  // namespace pxm::portable
