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

template <class Chain>
void expectChainOverAllTriples(oracle::Rgb (*expected)(int, int, int)) {
  for (int cb = 0; cb < 256; ++cb)
    for (int cr = 0; cr < 256; ++cr) {
      const LaneTerms<L> terms = Chain::chroma(all<L>(cb << 8), all<L>(cr << 8));
      for (int y = 0; y < 256; y += 8) {
        const LaneChannels<L> c = join(Chain::luma(inHighBytes(y)), terms);
        for (int i = 0; i < 8; ++i) {
          const oracle::Rgb want = expected(y + i, cb, cr);
          if (c.red.e[i] >> 4 != want.r || c.green.e[i] >> 4 != want.g ||
              c.blue.e[i] >> 4 != want.b || ((c.red.e[i] | c.green.e[i] | c.blue.e[i]) & ~4095))
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

// Every twelve-bit value in each channel, at every place of the dither.
template <int depth>
void expectPackingOfAllTwelveBits() {
  for (const bool bgr : {false, true})
    for (int row = 0; row < 4; ++row) {
      const LanePackPlain<depth> plain(PackPlain<depth>(bgr), row);
      const LanePackDither<depth> dither(PackDither<depth>(bgr), row);
      for (int v = 0; v < 4096; ++v)
        for (int channel = 0; channel < 3; ++channel) {
          const int other = 4095 - v;
          const int r = channel == 0 ? v : other, g = channel == 1 ? v : other,
                    b = channel == 2 ? v : other;
          const LaneChannels<L> c = {all<L>(r), all<L>(g), all<L>(b)};
          const oracle::Rgb levels = {r >> 4, g >> 4, b >> 4};
          const L plainWords = plain.pack(c), ditherWords = dither.pack(c);
          for (int i = 0; i < 8; ++i) {
            ASSERT_EQ(static_cast<uint16_t>(plainWords.e[i]), oracle::packPlain(levels, depth, bgr))
                << v;
            ASSERT_EQ(static_cast<uint16_t>(ditherWords.e[i]),
                      oracle::packDither(levels, depth, bgr, row, i))
                << v << " in channel " << channel << " at " << row << "," << i;
          }
        }
    }
}

TEST(LanePacking, Of444OverAllTwelveBitsAndPlaces) {
  expectPackingOfAllTwelveBits<444>();
}
TEST(LanePacking, Of555OverAllTwelveBitsAndPlaces) {
  expectPackingOfAllTwelveBits<555>();
}
TEST(LanePacking, Of565OverAllTwelveBitsAndPlaces) {
  expectPackingOfAllTwelveBits<565>();
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
