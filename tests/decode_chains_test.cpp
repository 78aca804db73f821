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

// Eight samples from y on, each `scale` times as large.
L eightFrom(int y, int scale) {
  L lanes;
  for (int i = 0; i < 8; ++i) lanes.e[i] = static_cast<int16_t>((y + i) * scale);
  return lanes;
}

int clamped(int level) {
  return level < 0 ? 0 : level > 255 ? 255 : level;
}

template <class Chain>
void expectChainOverAllTriples(oracle::Rgb (*expected)(int, int, int)) {
  for (int cb = 0; cb < 256; ++cb)
    for (int cr = 0; cr < 256; ++cr) {
      const LaneTerms<L> terms = Chain::chroma(all<L>((cb - 128) * 256), all<L>((cr - 128) * 256));
      for (int y = 0; y < 256; y += 8) {
        const LaneChannels<L> c = join(Chain::luma(eightFrom(y, 1 << Chain::lumaScale)), terms);
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

// Even columns of one colour, odd ones of another.
template <class Packer>
void expectPackedAs(int row, bool bgr, int red, int green, int blue) {
  const LaneRow<Packer, L> lanes(row);
  const ByParity<L> luma = {all<L>(100), all<L>(-100)};
  const ByParity<LaneTerms<L>> terms = {
      {all<L>(red - 100), all<L>(100 - green), all<L>(blue - 100)},
      {all<L>(blue + 100), all<L>(-100 - red), all<L>(green + 100)}};
  const PackedColumns<L> words = packColumns(bgr, lanes, luma, terms);
  const int r = clamped(red >> 4), g = clamped(green >> 4), b = clamped(blue >> 4);
  for (int x = 0; x < 16; ++x) {
    const oracle::Rgb levels = x % 2 == 0 ? oracle::Rgb{r, g, b} : oracle::Rgb{b, r, g};
    const L& half = x < 8 ? words.first : words.second;
    ASSERT_EQ(static_cast<uint16_t>(half.e[x % 8]),
              Packer::dithers ? oracle::packDither(levels, Packer::depth, bgr, row, x)
                              : oracle::packPlain(levels, Packer::depth, bgr))
        << red << " " << green << " " << blue << " at " << row << "," << x;
  }
}

// Every value that a component can take, in each channel and at every place of the dither.
template <class Packer>
void expectPackingOfAllValues() {
  for (const bool bgr : {false, true})
    for (int row = 0; row < 4; ++row)
      for (int v = leastSixteenths; v <= mostSixteenths; ++v)
        ASSERT_NO_FATAL_FAILURE(expectPackedAs<Packer>(row, bgr, v, v * 7 % 8192, -v));
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

// Sixteen different bytes, some of them above 127.
L sixteenBytes() {
  PortableBytes bytes;
  for (int i = 0; i < 16; ++i) bytes.b[i] = static_cast<uint8_t>(3 + 7 * i + 64 * (i & 2));
  return lanesOf(bytes);
}
template <int n, class Samples>
void expectScaled(const Samples& samples, int evenFrom, int oddFrom, int step) {
  const PortableBytes bytes = bytesOf(sixteenBytes());
  const ByParity<L> lanes = samples.template scaled<n>();
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(lanes.even.e[i], static_cast<int16_t>(bytes.b[evenFrom + step * i] << n)) << i;
    EXPECT_EQ(lanes.odd.e[i], static_cast<int16_t>(bytes.b[oddFrom + step * i] << n)) << i;
  }
}

TEST(Samples, AreSplitByParityAtEveryScaleInUse) {
  const PairedBytes<L> paired = {sixteenBytes()};
  expectScaled<4>(paired, 0, 1, 2);
  expectScaled<7>(paired, 0, 1, 2);
  expectScaled<8>(paired, 0, 1, 2);
  const SplitBytes<L> split = {sixteenBytes()};
  expectScaled<4>(split, 0, 8, 1);
  expectScaled<7>(split, 0, 8, 1);
  expectScaled<8>(split, 0, 8, 1);
}
TEST(Samples, CentredAreLess128) {
  const PortableBytes bytes = bytesOf(sixteenBytes());
  const L paired = PairedBytes<L>{sixteenBytes()}.centred().scaled<8>().odd;
  const L split = SplitBytes<L>{sixteenBytes()}.centred().scaled<8>().odd;
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(paired.e[i], (bytes.b[2 * i + 1] - 128) * 256);
    EXPECT_EQ(split.e[i], (bytes.b[8 + i] - 128) * 256);
  }
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
