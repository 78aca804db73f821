// SPDX-License-Identifier: MIT
// Every conversion over more than 8 GiB of addresses, up and down: pitches of nearly 2 GiB and of
// five quarters of one, against the oracle in the same memory. Pages are open where any rule for
// row offsets puts a row, full or wrapped, so that a row in the wrong place is seen as one.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "catalogue/shapes.h"
#include "catalogue/variants.h"
#include "tests/support/by_oracle.h"
#include "tests/support/cases.h"
#include "tests/support/least_size.h"
#include "tests/support/random.h"
#include "tests/support/sparse_range.h"

namespace {

Cases& cases = casesOf("calls over more than 8 GiB of addresses");

constexpr int height = 5;

// Pitches of source and destination.
struct Pitches {
  int src, dst;
};
constexpr int nearly2GiB = 2147483584, odd = 2147483583, quarters = 1342177280;
constexpr Pitches allPitches[] = {{nearly2GiB, nearly2GiB},
                                  {-nearly2GiB, -nearly2GiB},
                                  {nearly2GiB, -nearly2GiB},
                                  {quarters, quarters},
                                  {-quarters, -quarters},
                                  {-quarters, quarters},
                                  {odd, odd},
                                  {-odd, -odd},
                                  {INT_MIN + 128, INT_MIN + 128}};

std::int64_t wrapped(std::int64_t product) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(product));
}

// Where a row may be expected: full products and those that wrap, in bytes and in pixels, the pitch
// as it is and as even; half of it; and a lower row one pitch below its upper one.
Offsets anyOffsets(int pitch) {
  std::set<std::int64_t> offsets;
  const std::int64_t full = pitch, pixels = pitch >> 1;
  for (int y = 0; y < height; ++y) {
    for (const std::int64_t step : {full, 2 * pixels, pixels}) offsets.insert(y * step);
    for (const std::int64_t row : {y * full, y * full + full, y * full + 2 * pixels})
      offsets.insert(wrapped(row));
    for (const std::int64_t below : {std::int64_t{0}, full, 2 * pixels}) {
      offsets.insert(wrapped(y * full) + below);
      offsets.insert(2 * wrapped(y * pixels) + below);
      offsets.insert(y * full + below);
    }
  }
  std::erase_if(offsets, [](std::int64_t offset) { return std::abs(offset) > 9 * GiB; });
  return {offsets.begin(), offsets.end()};
}

using Bytes = std::vector<std::uint8_t>;

// One plane: its open rows, and what stands in and around them.
class SparsePlane {
 public:
  void open(int pitch) {
    offsets_ = anyOffsets(pitch);
    range_.open(offsets_);
  }
  std::uint8_t* origin() const { return range_.origin(); }

  void write(const Bytes& bytes) {
    forAll([from = bytes.data()](std::uint8_t* room) mutable {
      std::memcpy(room, from, roomBytes);
      from += roomBytes;
    });
  }
  Bytes read() {
    Bytes bytes;
    forAll([&](const std::uint8_t* room) { bytes.insert(bytes.end(), room, room + roomBytes); });
    return bytes;
  }
  // Rooms of rows may overlap, so what is there is read back.
  Bytes fill(Random& random) {
    Bytes bytes(offsets_.size() * roomBytes);
    random.fill(bytes.data(), bytes.size());
    write(bytes);
    return read();
  }

 private:
  static constexpr std::size_t roomBytes = SparseRange::roomBefore + SparseRange::roomBehind;

  template <typename Visit>
  void forAll(Visit visit) {
    for (const std::int64_t offset : offsets_)
      visit(range_.origin() + offset - SparseRange::roomBefore);
  }

  SparseRange range_;
  Offsets offsets_;
};

class Spans : public testing::TestWithParam<Conversion> {};

TEST_P(Spans, RowsAreWhereTheOracleHasThem) {
  SCOPED_TRACE(seedMessage());
  const Conversion& c = GetParam();
  Random random{std::string(c.name)};
  std::array<SparsePlane, 3> src, dst;
  const Shape planes = shapeOf(c, 0, 5, height);
  CallArguments a = {};
  std::memcpy(a.twist, ordinaryTwist, sizeof a.twist);
  for (const Pitches& pitches : allPitches) {
    if (c.kind == Kind::Twist && (pitches.src < 0 || pitches.dst < 0)) continue;
    for (std::size_t i = 0; i < planes.src.size(); ++i) {
      a.srcStep[i] = pitches.src;
      a.src[i] = src[i].origin();
      src[i].open(pitches.src);
      src[i].fill(random);
    }
    for (std::size_t i = 0; i < planes.dst.size(); ++i) {
      a.dstStep[i] = pitches.dst;
      a.dst[i] = dst[i].origin();
      dst[i].open(pitches.dst);
    }
    for (const int width : {leastSize(c).width, 5, 37})
      for (const int variant : runnableVariants()) {
        a.size = {width, height};
        std::array<Bytes, 3> before, expected;
        for (std::size_t i = 0; i < planes.dst.size(); ++i) before[i] = dst[i].fill(random);
        const int status = convertByOracle(c, variant, a);
        for (std::size_t i = 0; i < planes.dst.size(); ++i) {
          expected[i] = dst[i].read();
          dst[i].write(before[i]);
        }
        const SelectedVariant selected(variant);
        ASSERT_EQ(c.call(a), status);
        for (std::size_t i = 0; i < planes.dst.size(); ++i)
          ASSERT_TRUE(dst[i].read() == expected[i])
              << variantTags[variant] << ", width " << width << ", pitches " << pitches.src
              << " and " << pitches.dst << ", plane " << i;
        ++cases;
      }
  }
}

INSTANTIATE_TEST_SUITE_P(, Spans, testing::ValuesIn(conversions()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
