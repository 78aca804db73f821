// SPDX-License-Identifier: MIT
// The scalar code of the decoders, compiled once more for this test, over all of its inputs.
#define PXM_LEVEL tested
#include <gtest/gtest.h>

#include "decode/clamp_table.h"
#include "decode/dither.inl"
#include "decode/dither_matrix.h"
#include "decode/row.inl"
#include "tests/oracle/oracle.h"

namespace pxm::tested {
namespace {

template <class Form>
void expectFormOverAllTriples(oracle::Rgb (*expected)(int, int, int)) {
  for (int y = 0; y < 256; ++y)
    for (int cb = 0; cb < 256; ++cb)
      for (int cr = 0; cr < 256; ++cr) {
        const Channels got = decodePixel<Form>(y, {cb, cr});
        const oracle::Rgb want =
            expected(y, cb, cr);  // compared first without the test's machinery
        if (got.red != want.r || got.green != want.g || got.blue != want.b)
          FAIL() << y << " " << cb << " " << cr << ": " << got.red << " " << got.green << " "
                 << got.blue;
      }
}

TEST(Forms, DecodeStagedOverAllTriples) {
  expectFormOverAllTriples<DecodeStaged>(oracle::decodeStaged);
}
TEST(Forms, DecodeWideOverAllTriples) {
  expectFormOverAllTriples<DecodeWide>(oracle::decodeWide);
}
TEST(Forms, DecodeFoldedOverAllTriples) {
  expectFormOverAllTriples<DecodeFolded>(oracle::decodeFolded);
}
TEST(Forms, DecodeRoundedOverAllTriples) {
  expectFormOverAllTriples<DecodeRounded>(oracle::decodeRounded);
}
TEST(Forms, DecodeYuvPlainOverAllTriples) {
  expectFormOverAllTriples<DecodeYuvPlain>(oracle::decodeYuvPlain);
}
TEST(Forms, DecodeYuvRoundedOverAllTriples) {
  expectFormOverAllTriples<DecodeYuvRounded>(oracle::decodeYuvRounded);
}
TEST(Forms, DecodeYuvStagedOverAllTriples) {
  expectFormOverAllTriples<DecodeYuvStaged>(oracle::decodeYuvStaged);
}

TEST(Forms, ClampTableOverItsWholeRange) {
  static_assert(sizeof ClampTable == 1000);
  for (int i = -370; i <= 629; ++i) ASSERT_EQ(clampToByte(i), i < 0 ? 0 : i > 255 ? 255 : i) << i;
}

TEST(Dither, MatricesAreTheOracles) {
  for (int row = 0; row < 4; ++row)
    for (int column = 0; column < 4; ++column) {
      EXPECT_EQ(DitherMatrix444[row][column], oracle::threshold(444, row, column));
      EXPECT_EQ(DitherMatrix555[row][column], oracle::threshold(555, row, column));
      EXPECT_EQ(DitherMatrix555[row][column], oracle::threshold(565, row, column));
    }
}

TEST(Dither, LevelsOfEveryValueAtEveryThreshold) {
  for (int v = 0; v < 256; ++v)
    for (int t = 0; t <= 4400; ++t) {
      ASSERT_EQ(DitherLevel4(v, t), oracle::ditherLevel4(v, t)) << v << " at " << t;
      ASSERT_EQ(DitherLevel5(v, t), oracle::ditherLevel5(v, t)) << v << " at " << t;
      ASSERT_EQ(DitherLevel6(v, t), oracle::ditherLevel6(v, t)) << v << " at " << t;
    }
}

// Every component value at every place of the matrix and beyond it, in each channel by itself.
template <int format>
void expectPackingOverAllValuesAndPlaces() {
  for (const bool bgr : {false, true}) {
    const PackPlain<format> plain(bgr);
    const PackDither<format> dither(bgr);
    for (int v = 0; v < 256; ++v)
      for (int channel = 0; channel < 3; ++channel) {
        const int other = 255 - v;
        const oracle::Rgb expected = {channel == 0 ? v : other, channel == 1 ? v : other,
                                      channel == 2 ? v : other};
        const Channels given = {expected.r, expected.g, expected.b};
        for (int row = 0; row < 8; ++row)
          for (int column = 0; column < 8; ++column) {
            ASSERT_EQ(plain.pack(given, row, column), oracle::packPlain(expected, format, bgr))
                << format << " channel " << channel << " value " << v;
            ASSERT_EQ(dither.pack(given, row, column),
                      oracle::packDither(expected, format, bgr, row, column))
                << format << " channel " << channel << " value " << v << " at " << row << ","
                << column;
          }
      }
  }
}

// Any value but 0 means BGR.
TEST(Packing, OrderIsATruthValue) {
  for (const int isBgr : {1, 2, -1, -2147483647 - 1}) {
    const PackPlain<565> packer(isBgr);
    EXPECT_EQ(packer.pack({255, 0, 0}, 0, 0), 0xF800) << isBgr;
  }
  EXPECT_EQ(PackPlain<565>(0).pack({255, 0, 0}, 0, 0), 0x001F);
}

// A row of no columns reads and writes nothing.
TEST(Columns, NothingBelowWidth1) {
  const ScalarRow<InterleavedRow444, DecodeWide, PackPlain<565>> row = {
      {nullptr}, {{nullptr, 0}}, PackPlain<565>(1)};
  row.columns(0, 0);
  row.columns(0, -1);
}

TEST(Packing, Of444OverAllValuesAndPlaces) {
  expectPackingOverAllValuesAndPlaces<444>();
}
TEST(Packing, Of555OverAllValuesAndPlaces) {
  expectPackingOverAllValuesAndPlaces<555>();
}
TEST(Packing, Of565OverAllValuesAndPlaces) {
  expectPackingOverAllValuesAndPlaces<565>();
}

}  // namespace
}  // namespace pxm::tested
