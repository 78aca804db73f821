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
#include "tests/support/stride.h"

namespace {

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
    for (int plane = 0; plane < 3; ++plane) {
      const Bytes &have = got.planes[plane], &want = expected.planes[plane];
      if (have == want) continue;
      for (std::size_t i = 0; i < want.size(); ++i)
        ASSERT_EQ(have[i], want[i]) << variantTags[variant] << " width " << picture.width
                                    << " plane " << plane << " byte " << i;
    }
  }
}

std::uint16_t wordOf(const Conversion& c, unsigned r, unsigned g, unsigned b) {
  if (c.has("BGR555")) return static_cast<std::uint16_t>(r << 10 | g << 5 | b);
  if (c.has("BGR565")) return static_cast<std::uint16_t>(r << 11 | g << 5 | b);
  return static_cast<std::uint16_t>(b << 11 | g << 5 | r);
}

// Groups of pixels whose fields have every sum that n pixels can have. Neighbours are far apart.
class AllSums {
 public:
  explicit AllSums(const Conversion& c)
      : conversion_(c),
        shape_(groupOf(c)),
        redSums_(31u * static_cast<unsigned>(shape_.size()) + 1),
        greenSums_((c.has("555") ? 31u : 63u) * static_cast<unsigned>(shape_.size()) + 1) {}

  std::uint32_t count() const { return redSums_ * greenSums_ * redSums_; }

  // A picture in which each sum stands once, the first of them in group `shift` of its row.
  Picture picture(int width, int shift) const {
    const auto groupsInRow = static_cast<std::uint32_t>(width / shape_.columns);
    const std::uint32_t rows = (count() + groupsInRow - 1) / groupsInRow;
    Picture p = {width, static_cast<int>(rows) * shape_.rows, {}};
    p.words.resize(static_cast<std::size_t>(p.width) * static_cast<std::size_t>(p.height));
    for (std::uint32_t i = 0; i < rows * groupsInRow; ++i) {
      // 48271 is prime and divides none of the counts, so the order is a permutation.
      const auto sum = static_cast<std::uint32_t>(std::uint64_t{i % count()} * 48271u % count());
      const std::uint32_t place =
          i / groupsInRow * groupsInRow + (i + static_cast<std::uint32_t>(shift)) % groupsInRow;
      put(p, static_cast<int>(place / groupsInRow) * shape_.rows,
          static_cast<int>(place % groupsInRow) * shape_.columns, sum);
    }
    return p;
  }

 private:
  // The pixels of a group are as equal as the sums allow.
  void put(Picture& p, int row, int column, std::uint32_t sum) const {
    const auto n = static_cast<unsigned>(shape_.size());
    const unsigned r = sum % redSums_, b = sum / redSums_ % redSums_, g = sum / redSums_ / redSums_;
    const auto share = [n](unsigned s, unsigned i) { return (s + i) / n; };
    for (unsigned i = 0; i < n; ++i)
      p.at(row + static_cast<int>(i) / shape_.columns,
           column + static_cast<int>(i) % shape_.columns) =
          wordOf(conversion_, share(r, i), share(g, i), share(b, n - 1 - i));
  }

  const Conversion& conversion_;
  GroupShape shape_;
  std::uint32_t redSums_, greenSums_;
};

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
  const AllSums sums(GetParam());
  for (int shift = 0; shift < 8; shift += testStride())
    ASSERT_NO_FATAL_FAILURE(expectLikeOracle(GetParam(), sums.picture(4096, shift))) << shift;
}

// Two columns are no block. 4:1:1 takes no less than four, which are one.
TEST_P(EncodeExhaustive, AllSumsThroughTheTail) {
  if (GetParam().has("411")) GTEST_SKIP() << "has no tail of groups";
  ASSERT_NO_FATAL_FAILURE(expectLikeOracle(GetParam(), AllSums(GetParam()).picture(2, 0)));
}

INSTANTIATE_TEST_SUITE_P(, EncodeExhaustive, testing::ValuesIn(conversionsOf(Kind::Encode)),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
