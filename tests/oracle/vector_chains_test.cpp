// SPDX-License-Identifier: MIT
// Holds the forms of the SIMD variants to known values, for all samples.
#include "tests/oracle/vector_chains.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <ostream>
#include <utility>

#include "tests/oracle/oracle.h"
#include "tests/oracle/samples.h"

namespace oracle {
namespace {

using Form = Rgb (*)(int, int, int);
using LaneForm = ChainLanes (*)(int, int, int);

struct Bounds {
  Lane low = std::numeric_limits<Lane>::max();
  Lane high = std::numeric_limits<Lane>::min();
  void add(Lane value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
  friend bool operator==(const Bounds&, const Bounds&) = default;
};

void PrintTo(const Bounds& bounds, std::ostream* out) {
  *out << bounds.low << " to " << bounds.high;
}

struct ChainBounds {
  Bounds a, u, v, luma, terms, sums;
};

ChainBounds boundsOf(LaneForm form) {
  ChainBounds all;
  forAllSamples([&](int y, int first, int second) {
    const ChainLanes c = form(y, first, second);
    all.a.add(c.a);
    all.u.add(c.u);
    all.v.add(c.v);
    all.luma.add(c.luma);
    for (Lane term : {c.red, c.greenU, c.greenV, c.blue}) all.terms.add(term);
    for (Lane sum : {c.sumRed, c.sumGreen, c.sumBlue}) all.sums.add(sum);
  });
  return all;
}

// How two forms differ over all samples: in how many of them, per component and at all, and by how
// much at most.
struct Difference {
  std::int64_t red = 0, green = 0, blue = 0, any = 0;
  int largest = 0;
  void add(Rgb p, Rgb q) {
    red += p.r != q.r;
    green += p.g != q.g;
    blue += p.b != q.b;
    any += p != q;
    largest = std::max({largest, std::abs(p.r - q.r), std::abs(p.g - q.g), std::abs(p.b - q.b)});
  }
  friend bool operator==(const Difference&, const Difference&) = default;
};

void PrintTo(const Difference& d, std::ostream* out) {
  *out << d.red << " red, " << d.green << " green, " << d.blue << " blue, " << d.any
       << " in all, by up to " << d.largest;
}

Difference between(Form p, Form q) {
  Difference d;
  forAllSamples([&](int y, int u, int v) { d.add(p(y, u, v), q(y, u, v)); });
  return d;
}

constexpr std::int64_t kAllSamples = 1 << 24;

// ---- Equality ----------------------------------------------------------------------------------

// The dithering conversions, planar 4:4:4, planar 4:2:2 and 4:2:0 rest on this.
TEST(OracleVectorChains, NarrowChainEqualsTheStagedForm) {
  EXPECT_EQ(between(narrowChain, decodeStaged), Difference{});
}

TEST(OracleVectorChains, StagedYuvChainEqualsTheStagedYuvForm) {
  EXPECT_EQ(between(stagedYuvChain, decodeYuvStaged), Difference{});
}

// ---- Differences -------------------------------------------------------------------------------

// Every difference of two forms is one code. The shares are what the forms come to.
TEST(OracleVectorChains, NarrowChainDiffersFromTheWideFormInASmallShare) {
  EXPECT_EQ(between(narrowChain, decodeWide), (Difference{369152, 681391, 310272, 1330189, 1}));
  EXPECT_LT(1330189, kAllSamples / 12);
}

TEST(OracleVectorChains, NarrowChainDiffersFromTheFoldedFormInASmallShare) {
  EXPECT_EQ(between(narrowChain, decodeFolded), (Difference{349184, 684643, 307200, 1311835, 1}));
  EXPECT_LT(1311835, kAllSamples / 12);
}

TEST(OracleVectorChains, StagedYuvChainDiffersFromTheRoundedYuvFormFrequently) {
  EXPECT_EQ(between(stagedYuvChain, decodeYuvRounded),
            (Difference{5935104, 1298749, 4079616, 9242538, 1}));
  EXPECT_GT(9242538, kAllSamples / 2);
}

// The columns beyond the blocks take the plain form.
TEST(OracleVectorChains, StagedYuvChainDiffersFromThePlainYuvFormInGreenAlone) {
  EXPECT_EQ(between(stagedYuvChain, decodeYuvPlain), (Difference{0, 1298749, 0, 1298749, 1}));
}

TEST(OracleVectorChains, RoundedNarrowChainDiffersFromTheRoundedForm) {
  EXPECT_EQ(between(roundedNarrowChain, decodeRounded),
            (Difference{370944, 681690, 309760, 1331722, 1}));
}

TEST(OracleVectorChains, RoundedNarrowChainDiffersFromTheNarrowChainByAtMostOneUpwards) {
  std::int64_t wrong = 0;
  forAllSamples([&](int y, int cb, int cr) {
    const Rgb p = narrowChain(y, cb, cr), q = roundedNarrowChain(y, cb, cr);
    for (int raise : {q.r - p.r, q.g - p.g, q.b - p.b}) wrong += raise != 0 && raise != 1;
  });
  EXPECT_EQ(wrong, 0);
}

TEST(OracleVectorChains, TailOfTheWideLanesIsUnlikeEveryOtherForm) {
  for (Form other :
       {decodeStaged, decodeWide, decodeFolded, decodeRounded, narrowChain, roundedNarrowChain}) {
    const Difference d = between(decodeWideLanesTail, other);
    EXPECT_GT(d.red, 0);
    EXPECT_GT(d.green, 0);
    EXPECT_GT(d.blue, 0);
    EXPECT_EQ(d.largest, 1);
  }
}

// ---- Ranges ------------------------------------------------------------------------------------

TEST(OracleVectorChains, NarrowChainStaysInsideItsLanes) {
  const ChainBounds all = boundsOf(narrowLanes);
  EXPECT_EQ(all.a, (Bounds{-2048, 30592}));
  EXPECT_EQ(all.u, (Bounds{-16384, 16256}));
  EXPECT_EQ(all.v, (Bounds{-16384, 16256}));
  EXPECT_EQ(all.luma, (Bounds{-298, 4450}));
  EXPECT_GE(all.terms.low, -4131);
  EXPECT_LE(all.terms.high, 4131);
  EXPECT_EQ(all.terms.low, -4131);
  EXPECT_GT(all.sums.low, -32768);
  EXPECT_LT(all.sums.high, 32767);
}

TEST(OracleVectorChains, RoundedNarrowChainIsEightAbove) {
  EXPECT_EQ(16 >> 1, 8);
  const ChainBounds all = boundsOf(roundedNarrowLanes);
  EXPECT_EQ(all.luma, (Bounds{-290, 4458}));
  EXPECT_GT(all.sums.low, -32768);
  EXPECT_LT(all.sums.high, 32767);
}

TEST(OracleVectorChains, StagedYuvChainStaysInsideItsLanes) {
  const ChainBounds all = boundsOf(stagedYuvLanes);
  EXPECT_EQ(all.luma, (Bounds{0, 4080}));
  EXPECT_EQ(all.u, (Bounds{-16384, 16256}));
  EXPECT_GT(all.sums.low, -32768);
  EXPECT_LT(all.sums.high, 32767);
}

// In wide numbers that neither wrap nor saturate the chains come to the same.
TEST(OracleVectorChains, NoStepOfAChainWrapsOrSaturates) {
  std::int64_t wrong = 0;
  forAllSamples([&](int y, int first, int second) {
    const int u = first * 128 - 16384, v = second * 128 - 16384;
    const auto holds = [&](const ChainLanes& c, int luma, int red, int greenU, int greenV,
                           int blue) {
      return c.sumRed == luma + (v * red >> 16) &&
             c.sumGreen == luma - (u * greenU >> 16) - (v * greenV >> 16) &&
             c.sumBlue == luma + (u * blue >> 16);
    };
    const int luma = (y * 128 - 2048) * 9535 >> 16;
    wrong += !holds(narrowLanes(y, first, second), luma, 13074, 3211, 6660, 16523);
    wrong += !holds(roundedNarrowLanes(y, first, second), luma + 8, 13074, 3211, 6660, 16523);
    wrong += !holds(stagedYuvLanes(y, first, second), y * 16, 9338, 3227, 4759, 16646);
  });
  EXPECT_EQ(wrong, 0);
}

// ---- Single values -----------------------------------------------------------------------------

TEST(OracleVectorChains, BlackestLumaPacksToZero) {
  EXPECT_EQ(narrowLanes(0, 128, 128).luma, -298);
  EXPECT_EQ(narrowChain(0, 128, 128), (Rgb{0, 0, 0}));
}

TEST(OracleVectorChains, NominalWhiteIs254AndRoundedTo255) {
  EXPECT_EQ(narrowChain(235, 128, 128), (Rgb{254, 254, 254}));
  EXPECT_EQ(roundedNarrowChain(235, 128, 128), (Rgb{255, 255, 255}));
  EXPECT_EQ(decodeWideLanesTail(235, 128, 128), (Rgb{255, 255, 255}));
}

// ---- Tail of the wide lanes --------------------------------------------------------------------

TEST(OracleVectorTail, FormInTheOpen) {
  std::int64_t wrong = 0;
  int low = 0, high = 0;
  forAllSamples([&](int y, int cb, int cr) {
    const int a = (y - 16) * 76282;
    const int r = (a + (cr - 128) * 104593 + 32768) >> 16;
    const int g = (a - (cb - 128) * 25689 - (cr - 128) * 53279 + 32768) >> 16;
    const int b = (a + (cb - 128) * 132184 + 32768) >> 16;
    const Rgb held{std::clamp(r, 0, 255), std::clamp(g, 0, 255), std::clamp(b, 0, 255)};
    wrong += decodeWideLanesTail(y, cb, cr) != held;
    low = std::min({low, r, g, b});
    high = std::max({high, r, g, b});
  });
  EXPECT_EQ(wrong, 0);
  EXPECT_GE(low, -370);
  EXPECT_LE(high, 629);
}

// ---- Dither in SIMD ---------------------------------------------------------------------------

template <typename Visit>
void forAllPlacesAndValues(Visit visit) {
  for (int depth : {444, 555}) {
    for (int place = 0; place < 16; ++place) {
      for (int value = 0; value < 256; ++value) {
        visit(depth, threshold(depth, place / 4, place % 4), value);
      }
    }
  }
}

TEST(OracleVectorDither, EqualsTheScalarDitherForAllValuesAndPlaces) {
  forAllPlacesAndValues([](int depth, int t, int value) {
    if (depth == 444) {
      EXPECT_EQ(laneDither4(value, t), ditherLevel4(value, t)) << value << " at " << t;
    } else {
      EXPECT_EQ(laneDither5(value, t), ditherLevel5(value, t)) << value << " at " << t;
      EXPECT_EQ(laneDither6(value, t), ditherLevel6(value, t)) << value << " at " << t;
    }
  });
}

TEST(OracleVectorDither, ProductsFitTheirLanes) {
  EXPECT_EQ(std::max({(255 * 31 >> 8) * 2105, (255 * 63 >> 8) * 1036, (255 * 15 >> 8) * 4352}),
            64232);
  EXPECT_EQ(31 * 2105, 65255);
  EXPECT_EQ(63 * 1036, 65268);
  EXPECT_EQ(15 * 4352, 65280);
  EXPECT_EQ(31 << 8, 7936);
  EXPECT_EQ(63 << 8, 16128);
  EXPECT_EQ(15 << 8, 3840);
  for (int value = 0; value < 256; ++value) {
    for (auto [levels, step] : {std::pair{31, 2105}, {63, 1036}, {15, 4352}}) {
      const int residue = value * 256 - (value * levels >> 8) * step;
      EXPECT_GE(residue, 0);
      EXPECT_LE(residue, 32767);
    }
  }
}

}  // namespace
}  // namespace oracle
