// SPDX-License-Identifier: MIT
// Every pixel and every sum of a chroma group through the encoders of every level: at every place
// of a block, and in the scalar tail.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "catalogue/conversions.h"
#include "catalogue/variants.h"
#include "tests/oracle/oracle.h"
#include "tests/support/by_oracle.h"
#include "tests/support/cases.h"
#include "tests/support/pixel_sums.h"
#include "tests/support/stride.h"

namespace {

Cases& cases = casesOf("pixels compared with the oracle");

using Words = std::vector<std::uint16_t>;
using Bytes = std::vector<std::uint8_t>;

// Pixels that share their chroma.
struct GroupShape {
  int columns, rows;
  int size() const { return columns * rows; }
};

GroupShape groupOf(const Conversion& c) {
  return {c.has("411") ? 4 : 2, c.has("420_") ? 2 : 1};
}

// A picture of tight rows, and what an encoder makes of it: planes one after the other.
struct Picture {
  int width, height;
  Words words;
  std::uint16_t& at(int row, int column) {
    return words[static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                 static_cast<std::size_t>(column)];
  }
};

struct Encoded {
  Bytes planes[3];
  bool operator==(const Encoded&) const = default;
};

template <class Convert>
Encoded encodedBy(const Conversion& c, const Picture& picture, Convert convert) {
  const auto pixels =
      static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
  Encoded out;
  CallArguments a = {};
  a.size = {picture.width, picture.height};
  a.src[0] = reinterpret_cast<const std::uint8_t*>(picture.words.data());
  a.srcStep[0] = 2 * picture.width;
  const bool packed = c.has("C3C2R");
  for (std::size_t i = 0; i < (packed ? 1u : 3u); ++i) {
    out.planes[i].assign(packed ? 2 * pixels : pixels, 0x5A);
    a.dst[i] = out.planes[i].data();
    a.dstStep[i] = packed ? 2 * picture.width : i == 0 ? picture.width : picture.width / 2;
  }
  convert(a);
  return out;
}

// The SIMD variants give one result, so the oracle is asked twice.
void expectLikeOracle(const Conversion& c, const Picture& picture) {
  Encoded expected;
  int asked = -1;
  for (const int variant : runnableLevels(Kind::Encode)) {
    if (asked <= 0)
      expected =
          encodedBy(c, picture, [&](const CallArguments& a) { convertByOracle(c, variant, a); });
    asked = variant;
    const SelectedVariant selected(variant);
    const Encoded got =
        encodedBy(c, picture, [&](const CallArguments& a) { EXPECT_GE(c.call(a), 0); });
    cases += picture.words.size();
    for (int plane = 0; plane < 3; ++plane) {
      const Bytes &have = got.planes[plane], &want = expected.planes[plane];
      if (have == want) continue;
      for (std::size_t i = 0; i < want.size(); ++i)
        ASSERT_EQ(have[i], want[i]) << variantTags[variant] << " width " << picture.width
                                    << " plane " << plane << " byte " << i;
    }
  }
}

// A picture in which each sum of a chroma group stands once, the first of them in group `shift` of
// its row.
Picture pictureOfAllSums(const Conversion& c, int width, int shift) {
  const GroupShape shape = groupOf(c);
  const PixelSums sums(formatOf(c.name), static_cast<unsigned>(shape.size()));
  const auto groupsInRow = static_cast<std::uint32_t>(width / shape.columns);
  const std::uint32_t rows = (sums.count() + groupsInRow - 1) / groupsInRow;
  Picture p = {width, static_cast<int>(rows) * shape.rows, {}};
  p.words.resize(static_cast<std::size_t>(p.width) * static_cast<std::size_t>(p.height));
  for (std::uint32_t i = 0; i < rows * groupsInRow; ++i) {
    const auto row = static_cast<int>(i / groupsInRow) * shape.rows,
               column = static_cast<int>((i + static_cast<std::uint32_t>(shift)) % groupsInRow) *
                        shape.columns;
    int pixel = 0;
    for (const std::uint16_t word : sums.pixels(i)) {
      p.at(row + pixel / shape.columns, column + pixel % shape.columns) = word;
      ++pixel;
    }
  }
  return p;
}

class EncodeExhaustive : public testing::TestWithParam<Conversion> {};

// Blocks take at most 32 columns at once.
TEST_P(EncodeExhaustive, AllPixelsAtEveryPlaceOfABlock) {
  for (int shift = 0; shift < 32; shift += testStride()) {
    Picture p = {1024, 64, Words(65536)};
    for (std::uint32_t i = 0; i < 65536; ++i)
      p.words[i / 1024 * 1024 + (i + static_cast<std::uint32_t>(shift)) % 1024] =
          static_cast<std::uint16_t>(i * 40503u);
    ASSERT_NO_FATAL_FAILURE(expectLikeOracle(GetParam(), p)) << shift;
  }
}

// Widths of all kinds of tails: with and without blocks before them, of groups and of columns.
TEST_P(EncodeExhaustive, AllPixelsThroughTheTails) {
  for (const int width : {4, 5, 6, 7, 9, 10, 11, 15, 19, 22, 23, 30, 47}) {
    Picture p = {width, 2 * (65536 / 2 / width + 1), {}};
    p.words.resize(static_cast<std::size_t>(p.width) * static_cast<std::size_t>(p.height));
    for (int start = 0; start < width; start += testStride()) {
      for (std::size_t i = 0; i < p.words.size(); ++i)
        p.words[i] = static_cast<std::uint16_t>((i + static_cast<std::size_t>(start)) * 40503u);
      ASSERT_NO_FATAL_FAILURE(expectLikeOracle(GetParam(), p)) << width;
    }
  }
}

// Blocks make at most eight groups at once.
TEST_P(EncodeExhaustive, AllSumsAtEveryPlaceOfABlock) {
  for (int shift = 0; shift < 8; shift += testStride())
    ASSERT_NO_FATAL_FAILURE(expectLikeOracle(GetParam(), pictureOfAllSums(GetParam(), 4096, shift)))
        << shift;
}

// Two columns are no block. 4:1:1 takes no less than four, which are one.
TEST_P(EncodeExhaustive, AllSumsThroughTheTail) {
  if (GetParam().has("411")) GTEST_SKIP() << "has no tail of groups";
  ASSERT_NO_FATAL_FAILURE(expectLikeOracle(GetParam(), pictureOfAllSums(GetParam(), 2, 0)));
}

INSTANTIATE_TEST_SUITE_P(, EncodeExhaustive, testing::ValuesIn(conversionsOf(Kind::Encode)),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
