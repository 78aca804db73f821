// SPDX-License-Identifier: MIT
// All inputs of the depth conversions of every level, at every place of a block and in the scalar
// loop.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "catalogue/conversions.h"
#include "catalogue/variants.h"
#include "tests/oracle/oracle.h"
#include "tests/support/cases.h"
#include "tests/support/stride.h"

namespace {

Cases& cases = casesOf("pixels compared with the oracle");

using Bytes = std::vector<std::uint8_t>;

// Pixels of `from` bytes that become pixels of `to` bytes.
struct Pixels {
  std::size_t from, to;
  Bytes source, expected;

  // Moves each to the next place; the last becomes the first.
  void rotate() {
    std::rotate(source.begin(), source.end() - static_cast<std::ptrdiff_t>(from), source.end());
    std::rotate(expected.begin(), expected.end() - static_cast<std::ptrdiff_t>(to), expected.end());
  }
};

Pixels allWords() {
  Pixels p = {2, 3, {}, {}};
  for (std::uint32_t i = 0; i < 1u << 16; ++i) {
    const auto word = static_cast<std::uint16_t>(i * 40503u);
    p.source.insert(p.source.end(),
                    {static_cast<std::uint8_t>(word), static_cast<std::uint8_t>(word >> 8)});
    for (const std::uint8_t byte : oracle::expandDepth(word)) p.expected.push_back(byte);
  }
  return p;
}

Pixels allTriples() {
  Pixels p = {3, 2, {}, {}};
  for (std::uint32_t i = 0; i < 1u << 24; ++i) {
    std::array<std::uint8_t, 3> bytes;
    for (unsigned k = 0; k < 3; ++k) bytes[k] = static_cast<std::uint8_t>(i * 0x9E3779B1u >> 8 * k);
    p.source.insert(p.source.end(), bytes.begin(), bytes.end());
    const std::uint16_t word = oracle::packDepth(bytes);
    p.expected.push_back(static_cast<std::uint8_t>(word));
    p.expected.push_back(static_cast<std::uint8_t>(word >> 8));
  }
  return p;
}

class DepthExhaustive : public testing::TestWithParam<Conversion> {
 protected:
  const Pixels pixels_ = GetParam().has("_16u8u_") ? allWords() : allTriples();

  // Rows of `width` pixels; a row that is not whole is left out.
  static void expectAll(const Pixels& p, int width) {
    const auto count = p.source.size() / p.from;
    const int height = static_cast<int>(count) / width;
    CallArguments a = {};
    a.src[0] = p.source.data();
    a.srcStep[0] = static_cast<int>(p.from) * width;
    a.dstStep[0] = static_cast<int>(p.to) * width;
    a.size = {width, height};
    for (const int variant : runnableLevels(Kind::Depth)) {
      const SelectedVariant selected(variant);
      Bytes got(p.expected.size(), 0x5A);
      a.dst[0] = got.data();
      ASSERT_EQ(GetParam().call(a), pxmStatusOk);
      cases += static_cast<unsigned long>(width) * static_cast<unsigned long>(height);
      const auto written = static_cast<std::ptrdiff_t>(p.to) * width * height;
      ASSERT_TRUE(std::equal(got.begin(), got.begin() + written, p.expected.begin()))
          << variantTags[variant] << " width " << width;
    }
  }
};

TEST_P(DepthExhaustive, AllInputsAtEveryPlaceOfABlock) {
  Pixels p = pixels_;
  for (int place = 0; place < 16; ++place, p.rotate())
    if (place % testStride() == 0) {
      ASSERT_NO_FATAL_FAILURE(expectAll(p, 4096));
    }
}

// Narrower than a block, and with pixels left over after one.
TEST_P(DepthExhaustive, AllInputsThroughTheScalarLoop) {
  for (const int width : {1, 3, 5, 7, 15, 21, 23})
    ASSERT_NO_FATAL_FAILURE(expectAll(pixels_, width));
}

INSTANTIATE_TEST_SUITE_P(, DepthExhaustive, testing::ValuesIn(conversionsOf(Kind::Depth)),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
