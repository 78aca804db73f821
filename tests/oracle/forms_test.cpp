// SPDX-License-Identifier: MIT
// Holds the decode forms to known values, so that a comparison with them means something.
#include "tests/oracle/forms.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <ostream>

#include "tests/oracle/arithmetic.h"
#include "tests/oracle/oracle.h"
#include "tests/oracle/samples.h"

namespace oracle {
namespace {

using Form = Rgb (*)(int, int, int);
using IndexForm = Indices (*)(int, int, int);

constexpr std::array<Form, 3> kYCbCrForms = {decodeStaged, decodeWide, decodeFolded};
constexpr std::array<Form, 3> kYuvForms = {decodeYuvPlain, decodeYuvRounded, decodeYuvStaged};

struct Range {
  std::int64_t low = std::numeric_limits<std::int64_t>::max();
  std::int64_t high = std::numeric_limits<std::int64_t>::min();
  void add(std::int64_t value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
  friend bool operator==(const Range&, const Range&) = default;
};

void PrintTo(const Range& range, std::ostream* out) {
  *out << range.low << " to " << range.high;
}

struct Ranges {
  Range r, g, b;
};

Ranges rangesOf(IndexForm form) {
  Ranges all;
  forAllSamples([&](int y, int u, int v) {
    const Indices i = form(y, u, v);
    all.r.add(i.r);
    all.g.add(i.g);
    all.b.add(i.b);
  });
  return all;
}

void expectRanges(IndexForm form, Range r, Range g, Range b) {
  const Ranges all = rangesOf(form);
  EXPECT_EQ(all.r, r);
  EXPECT_EQ(all.g, g);
  EXPECT_EQ(all.b, b);
}

TEST(OracleArithmetic, FloorShiftRoundsTowardsMinusInfinity) {
  for (std::int64_t value = -5000; value <= 5000; ++value) {
    for (int bits : {1, 4, 8}) {
      const double quotient = static_cast<double>(value) / (1 << bits);
      ASSERT_EQ(floorShift(value, bits), static_cast<std::int64_t>(std::floor(quotient)));
    }
  }
}

TEST(OracleArithmetic, SaturateCoversTheRangeOfTheClampTable) {
  for (int index = -370; index < 0; ++index) ASSERT_EQ(saturate(index), 0);
  for (int index = 0; index < 256; ++index) ASSERT_EQ(saturate(index), index);
  for (int index = 256; index <= 629; ++index) ASSERT_EQ(saturate(index), 255);
}

TEST(OracleForms, NominalBlackIsZeroInAllYCbCrForms) {
  for (Form form : kYCbCrForms) EXPECT_EQ(form(16, 128, 128), (Rgb{0, 0, 0}));
  const Indices staged = stagedIndices(16, 128, 128);
  EXPECT_EQ(staged.r, 0);
  EXPECT_EQ(staged.g, 0);
  EXPECT_EQ(staged.b, 0);
}

TEST(OracleForms, NominalWhiteIs254InAllYCbCrForms) {
  for (Form form : kYCbCrForms) EXPECT_EQ(form(235, 128, 128), (Rgb{254, 254, 254}));
}

TEST(OracleForms, YuvWhiteIs255AndYuvBlackIs0InAllYuvForms) {
  for (Form form : kYuvForms) {
    EXPECT_EQ(form(255, 128, 128), (Rgb{255, 255, 255}));
    EXPECT_EQ(form(0, 128, 128), (Rgb{0, 0, 0}));
  }
}

// The component that the rounding raises, or does not, in samples of each colour.
TEST(OracleForms, RoundedIsTheWideFormHalfALevelUp) {
  EXPECT_EQ(kRounding, 65536 / 2);
  EXPECT_EQ(kRounding - kWideBlack, -1187776);
  EXPECT_EQ(decodeRounded(16, 128, 128), (Rgb{0, 0, 0}));
  EXPECT_EQ(decodeRounded(235, 128, 128), (Rgb{255, 255, 255}));
  EXPECT_EQ(decodeRounded(81, 90, 240), (Rgb{254, 0, 0}));
  EXPECT_EQ(decodeRounded(145, 54, 34), (Rgb{0, 255, 1}));
  EXPECT_EQ(decodeRounded(255, 255, 255), (Rgb{255, 125, 255}));
  EXPECT_EQ(decodeRounded(0, 0, 0), (Rgb{0, 136, 0}));
  EXPECT_EQ(decodeWide(0, 0, 0).g, 135);
}

// The same samples with the chroma exchanged do not tell the two forms apart.
TEST(OracleForms, StagedAndWideGreenDifferAt0And0And2) {
  EXPECT_EQ(decodeStaged(0, 0, 2).g, 134);
  EXPECT_EQ(decodeWide(0, 0, 2).g, 133);
  EXPECT_EQ(decodeStaged(0, 2, 0).g, decodeWide(0, 2, 0).g);
}

TEST(OracleForms, StagedAndWideRedDifferAt1And0And154) {
  EXPECT_EQ(decodeStaged(1, 0, 154).r, 23);
  EXPECT_EQ(decodeWide(1, 0, 154).r, 24);
}

TEST(OracleForms, StagedAndWideBlueDifferAt1And156And0) {
  EXPECT_EQ(decodeStaged(1, 156, 0).b, 38);
  EXPECT_EQ(decodeWide(1, 156, 0).b, 39);
}

TEST(OracleForms, WideAndFoldedGreenDifferAt0And13And40) {
  EXPECT_EQ(decodeWide(0, 13, 40).g, 98);
  EXPECT_EQ(decodeFolded(0, 13, 40).g, 97);
}

TEST(OracleForms, YuvPlainAndRoundedRedDifferAt0And0And132) {
  EXPECT_EQ(decodeYuvPlain(0, 0, 132).r, 4);
  EXPECT_EQ(decodeYuvRounded(0, 0, 132).r, 5);
}

TEST(OracleForms, YuvPlainAndRoundedBlueDifferAt0And144And0) {
  EXPECT_EQ(decodeYuvPlain(0, 144, 0).b, 32);
  EXPECT_EQ(decodeYuvRounded(0, 144, 0).b, 33);
}

TEST(OracleForms, YuvPlainAndStagedGreenDifferAt0And0And10) {
  EXPECT_EQ(decodeYuvPlain(0, 0, 10).g, 118);
  EXPECT_EQ(decodeYuvStaged(0, 0, 10).g, 119);
}

TEST(OracleForms, LumaOffsetsAreSixteenLevels) {
  EXPECT_EQ(kStagedBlack, 19527680);
  EXPECT_EQ(kStagedBlack, 16 * 128 * 9535);
  EXPECT_EQ(kWideBlack, 1220544);
  EXPECT_EQ(kWideBlack, 16 * 76284);
}

TEST(OracleForms, YuvRoundingIsHalfALevel) {
  EXPECT_EQ(kYuvRounding, 32768);
  EXPECT_EQ(kYuvRounding, 65536 / 2);
}

// The offsets that the wide form implies are the folded ones and 57, 14 and 13.
TEST(OracleForms, FoldedOffsetsAreBelowTheWideOnes) {
  EXPECT_EQ(1220544 + 128 * 104595, 14608704);
  EXPECT_EQ(128 * 25690 + 128 * 53281 - 1220544, 8887744);
  EXPECT_EQ(1220544 + 128 * 132186, 18140352);
  EXPECT_EQ(kFoldedOffsetR, -14608704 - 57);
  EXPECT_EQ(kFoldedOffsetG, 8887744 - 14);
  EXPECT_EQ(kFoldedOffsetB, -18140352 - 13);
}

// What each sample contributes to a component: luma to all, the second chroma sample to red, both
// to green, the first to blue.
struct Multipliers {
  std::int64_t luma, red, greenFirst, greenSecond, blue;
  friend bool operator==(const Multipliers&, const Multipliers&) = default;
};

// Reads the multipliers out of a form by moving one sample so far that no shift loses a bit of
// the product. step is the distance that brings out a multiplier as it stands.
Multipliers multipliersOf(IndexForm form, int step) {
  const Indices rest = form(16, 128, 128);
  const Indices luma = form(16 + step, 128, 128);
  const Indices first = form(16, 128 + step, 128);
  const Indices second = form(16, 128, 128 + step);
  return {luma.r - rest.r, second.r - rest.r, rest.g - first.g, rest.g - second.g,
          first.b - rest.b};
}

TEST(OracleForms, MultipliersOfTheWideFoldedAndRoundedForms) {
  const Multipliers wanted{76284, 104595, 25690, 53281, 132186};
  EXPECT_EQ(multipliersOf(wideIndices, 65536), wanted);
  EXPECT_EQ(multipliersOf(foldedIndices, 65536), wanted);
  EXPECT_EQ(multipliersOf(roundedIndices, 65536), wanted);
}

// Each is an eighth of the wide form's, truncated.
TEST(OracleForms, MultipliersOfTheStagedForm) {
  const Multipliers wanted{9535, 13074, 3211, 6660, 16523};
  EXPECT_EQ(multipliersOf(stagedIndices, 8192), wanted);
  EXPECT_EQ(wanted, (Multipliers{76284 / 8, 104595 / 8, 25690 / 8, 53281 / 8, 132186 / 8}));
}

TEST(OracleForms, MultipliersOfTheYuvForms) {
  const Multipliers wanted{65536, 74711, 25821, 38076, 133169};
  EXPECT_EQ(multipliersOf(yuvPlainIndices, 65536), wanted);
  EXPECT_EQ(multipliersOf(yuvRoundedIndices, 65536), wanted);
  // Luma is not multiplied in the staged form.
  EXPECT_EQ(multipliersOf(yuvStagedIndices, 8192), (Multipliers{8192, 9338, 3227, 4759, 16646}));
}

TEST(OracleForms, IndexRangesOfStaged) {
  expectRanges(stagedIndices, {-223, 480}, {-172, 432}, {-277, 534});
}

TEST(OracleForms, IndexRangesOfWide) {
  expectRanges(wideIndices, {-223, 480}, {-172, 432}, {-277, 534});
}

TEST(OracleForms, IndexRangesOfFolded) {
  expectRanges(foldedIndices, {-223, 480}, {-172, 432}, {-277, 534});
}

TEST(OracleForms, IndexRangesOfRounded) {
  expectRanges(roundedIndices, {-223, 481}, {-172, 432}, {-277, 534});
}

TEST(OracleForms, IndexRangesOfYuvPlain) {
  expectRanges(yuvPlainIndices, {-146, 399}, {-124, 379}, {-261, 513});
}

TEST(OracleForms, IndexRangesOfYuvStaged) {
  expectRanges(yuvStagedIndices, {-146, 399}, {-124, 379}, {-261, 513});
}

TEST(OracleForms, IndexRangesOfYuvRounded) {
  expectRanges(yuvRoundedIndices, {-146, 400}, {-124, 379}, {-260, 513});
}

TEST(OracleForms, YuvStagedDiffersFromYuvPlainByOneLevelOfGreenOnly) {
  std::int64_t outer = 0;
  int largest = 0;
  forAllSamples([&](int y, int u, int v) {
    const Rgb plain = decodeYuvPlain(y, u, v);
    const Rgb staged = decodeYuvStaged(y, u, v);
    outer += plain.r != staged.r || plain.b != staged.b;
    largest = std::max(largest, std::abs(plain.g - staged.g));
  });
  EXPECT_EQ(outer, 0);
  EXPECT_EQ(largest, 1);
}

TEST(OracleForms, YuvRoundedKeepsTheGreenOfYuvPlain) {
  std::int64_t different = 0;
  forAllSamples([&](int y, int u, int v) {
    different += decodeYuvPlain(y, u, v).g != decodeYuvRounded(y, u, v).g;
  });
  EXPECT_EQ(different, 0);
}

}  // namespace
}  // namespace oracle
