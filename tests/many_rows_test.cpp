// SPDX-License-Identifier: MIT
// 2^24 rows. Written one over the other, by a destination pitch of zero, they leave what the last
// of them leaves; the twist, which takes no such pitch, makes of them what it makes of them in
// pieces.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "catalogue/variants.h"
#include "tests/support/by_oracle.h"
#include "tests/support/cases.h"
#include "tests/support/random.h"
#include "tests/support/stride.h"

namespace {

Cases& cases = casesOf("calls with 2^24 rows");

constexpr int manyRows = 1 << 24;

using Bytes = std::vector<std::uint8_t>;

// Rows of a few pixels, 2 bytes apart, of which the last are random.
Bytes sourceRows(Random& random) {
  Bytes bytes(2 * std::size_t{manyRows} + 256);
  random.fill(bytes.data() + bytes.size() - 4096, 4096);
  return bytes;
}

std::vector<Conversion> withTwist(bool isTwist) {
  std::vector<Conversion> some;
  for (const Conversion& c : conversions())
    if ((c.kind == Kind::Twist) == isTwist) some.push_back(c);
  return some;
}

// In scalar code and in the best variant, or in every stride-th of these.
std::vector<int> someVariants(const Conversion& c) {
  const std::vector<int> all = runnableVariants();
  return inTurn<int>({all.front(), all.back()}, c.name);
}

class RowsInOne : public testing::TestWithParam<Conversion> {};

TEST_P(RowsInOne, TheLastIsWhatStays) {
  constexpr int width = 4, fewRows = 8;  // as pairs and dither count rows, many and few end alike
  SCOPED_TRACE(seedMessage());
  const Conversion& c = GetParam();
  const std::vector<int> variants = someVariants(c);
  if (variants.empty()) return;
  Random random{std::string(c.name)};
  Bytes source = sourceRows(random);
  using Targets = std::array<std::array<std::uint8_t, 64>, 3>;
  Targets before;
  for (auto& target : before) random.fill(target.data(), target.size());
  // Of pairs of rows in SIMD no order is promised where they are encoded into one place: they are
  // the same row then.
  const bool isEncodedPair = c.kind == Kind::Encode && c.has("420_");
  const int srcStep = isEncodedPair ? 0 : 2;
  // The last rows alone, or all of them, into one row.
  const auto convert = [&](int rows, Targets& targets, auto by) {
    CallArguments a = {};
    a.size = {width, rows};
    targets = before;
    for (std::size_t i = 0; i < 3; ++i) {
      a.src[i] = source.data() + std::ptrdiff_t{manyRows - rows} * srcStep;
      // A row of chroma belongs to two rows.
      a.srcStep[i] = c.has("420To") && i > 0 ? 2 * srcStep : srcStep;
      a.dst[i] = targets[i].data() + 16;
    }
    return int{by(a)};
  };
  for (const int variant : variants) {
    const SelectedVariant selected(variant);
    Targets wanted, got;
    const int status = convert(
        fewRows, wanted, [&](const CallArguments& a) { return convertByOracle(c, variant, a); });
    EXPECT_EQ(convert(manyRows, got, c.call), status);
    ASSERT_TRUE(got == wanted) << variantTags[variant];
    ++cases;
  }
}

INSTANTIATE_TEST_SUITE_P(, RowsInOne, testing::ValuesIn(withTwist(false)),
                         [](const auto& info) { return std::string(info.param.name); });

class TallTwist : public testing::TestWithParam<Conversion> {};

TEST_P(TallTwist, IsThatOfItsPieces) {
  constexpr int pieces = 64, rowsOfPiece = manyRows / pieces;
  SCOPED_TRACE(seedMessage());
  const Conversion& c = GetParam();
  const std::vector<int> variants = someVariants(c);
  if (variants.empty()) return;
  Random random{std::string(c.name)};
  const int pitch = c.has("P3") ? 1 : 4;
  const std::size_t planes = c.has("P3") ? 3 : 1;
  std::vector<Bytes> source, before;
  for (std::size_t i = 0; i < planes; ++i) {
    source.emplace_back(std::size_t{manyRows} * static_cast<std::size_t>(pitch));
    random.fill(source[i].data(), source[i].size());
    before.push_back(source[i]);
    random.fill(before[i].data(), 4096);
  }
  const auto convert = [&](std::vector<Bytes>& targets, int firstRow, int rows) {
    CallArguments a = {};
    a.size = {1, rows};
    a.srcStep[0] = a.dstStep[0] = pitch;
    std::memcpy(a.twist, ordinaryTwist, sizeof a.twist);
    for (std::size_t i = 0; i < planes; ++i) {
      a.src[i] = source[i].data() + std::ptrdiff_t{firstRow} * pitch;
      a.dst[i] = targets[i].data() + std::ptrdiff_t{firstRow} * pitch;
    }
    return c.call(a);
  };
  for (const int variant : variants) {
    const SelectedVariant selected(variant);
    std::vector<Bytes> whole = before, inPieces = before;
    EXPECT_EQ(convert(whole, 0, manyRows), pxmStatusOk);
    for (int piece = 0; piece < pieces; ++piece)
      ASSERT_EQ(convert(inPieces, piece * rowsOfPiece, rowsOfPiece), pxmStatusOk);
    ASSERT_TRUE(whole == inPieces) << variantTags[variant];
    ASSERT_FALSE(whole == before) << "nothing was converted";
    ++cases;
  }
}

INSTANTIATE_TEST_SUITE_P(, TallTwist, testing::ValuesIn(withTwist(true)),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
