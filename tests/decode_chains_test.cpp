// SPDX-License-Identifier: MIT
// Chains and packers of the SIMD decoders on portable lanes, over all of their inputs.
#define PXM_LEVEL portable
#define PXM_SIMD
#include <gtest/gtest.h>

#include "tests/oracle/oracle.h"
#include "tests/support/portable_lanes.inl"
#include "vector/decode/pack.inl"
#include "vector/decode/plan.inl"

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
      const LaneTerms<L> terms =
          Chain::chroma(broadcast<L>((cb - 128) * 256), broadcast<L>((cr - 128) * 256));
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
template <class Packer, class Order>
void expectPackedAs(const Order& order, bool bgr, int row, int red, int green, int blue) {
  const LaneRow<Packer, L> lanes(row);
  const ByParity<L> luma = {broadcast<L>(100), broadcast<L>(-100)};
  const ByParity<LaneTerms<L>> terms = {
      {broadcast<L>(red - 100), broadcast<L>(100 - green), broadcast<L>(blue - 100)},
      {broadcast<L>(blue + 100), broadcast<L>(-100 - red), broadcast<L>(green + 100)}};
  const PackedColumns<L> words = packColumns(order, lanes, luma, terms);
  const int r = clamped(red >> 4), g = clamped(green >> 4), b = clamped(blue >> 4);
  for (int x = 0; x < 16; ++x) {
    const oracle::Rgb levels = x % 2 == 0 ? oracle::Rgb{r, g, b} : oracle::Rgb{b, r, g};
    const L& half = x < 8 ? words.first : words.second;
    ASSERT_EQ(static_cast<uint16_t>(half.e[x % 8]),
              Packer::dithers ? oracle::packDither(levels, Packer::format, bgr, row, x)
                              : oracle::packPlain(levels, Packer::format, bgr))
        << red << " " << green << " " << blue << " at " << row << "," << x;
  }
}

// Every value that a component can take, in each channel and at every place of the dither.
template <class Packer, class Order>
void expectPackingOfAllValuesIn(const Order& order, bool bgr) {
  for (int row = 0; row < 4; ++row)
    for (int v = leastSixteenths; v <= mostSixteenths; ++v)
      ASSERT_NO_FATAL_FAILURE(expectPackedAs<Packer>(order, bgr, row, v, v * 7 % 8192, -v));
}

template <class Packer>
void expectPackingOfAllValues() {
  expectPackingOfAllValuesIn<Packer>(FixedOrder<false>(), false);
  expectPackingOfAllValuesIn<Packer>(FixedOrder<true>(), true);
  for (const bool bgr : {false, true}) expectPackingOfAllValuesIn<Packer>(MaskedOrder{bgr}, bgr);
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
TEST(Samples, WithTheirBiasRemovedAreLess128) {
  const PortableBytes bytes = bytesOf(sixteenBytes());
  const L paired = PairedBytes<L>{sixteenBytes()}.biasRemoved().scaled<8>().odd;
  const L split = SplitBytes<L>{sixteenBytes()}.biasRemoved().scaled<8>().odd;
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(paired.e[i], (bytes.b[2 * i + 1] - 128) * 256);
    EXPECT_EQ(split.e[i], (bytes.b[8 + i] - 128) * 256);
  }
}

TEST(DecodePlans, VectorColumnsByLiteralWidths) {
  const struct {
    int width, byEight, byEightFour, byEightFourTwo, bySixteenEight;
  } rows[] = {{1, 0, 0, 0, 0},      {2, 0, 0, 2, 0},      {3, 0, 0, 2, 0},
              {4, 0, 4, 4, 0},      {7, 0, 4, 6, 0},      {8, 8, 8, 8, 8},
              {9, 8, 8, 8, 8},      {12, 8, 12, 12, 8},   {15, 8, 12, 14, 8},
              {16, 16, 16, 16, 16}, {23, 16, 20, 22, 16}, {24, 24, 24, 24, 24},
              {31, 24, 28, 30, 24}, {39, 32, 36, 38, 32}};
  for (const auto& row : rows) {
    EXPECT_EQ(VectorColumns(planByEight, row.width), row.byEight);
    EXPECT_EQ(VectorColumns(planByEightFour, row.width), row.byEightFour);
    EXPECT_EQ(VectorColumns(planByEightFourTwo, row.width), row.byEightFourTwo);
    EXPECT_EQ(VectorColumns(planBySixteenEight, row.width), row.bySixteenEight);
  }
}

}  // namespace
}  // namespace pxm::portable
