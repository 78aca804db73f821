// SPDX-License-Identifier: MIT
// All 16,777,216 triples of samples through every 4:4:4 conversion, as one image of 4096x4096.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/oracle/oracle.h"
#include "tests/support/calls.h"
#include "tests/support/variants.h"

namespace {

constexpr int side = 4096;
constexpr std::uint32_t tripleCount = 1u << 24;

// Sample planes that hold each triple once. The multiplier is odd: neighbouring pixels differ in
// all three samples, and no sample keeps step with the columns.
struct AllTriples {
  std::vector<std::uint8_t> plane[3], packed;
  AllTriples() {
    for (auto& p : plane) p.resize(tripleCount);
    packed.resize(3 * std::size_t{tripleCount});
    for (std::uint32_t i = 0; i < tripleCount; ++i) {
      const std::uint32_t triple = i * 0x9E3779B1u & (tripleCount - 1);
      for (unsigned k = 0; k < 3; ++k)
        plane[k][i] = packed[3 * std::size_t{i} + k] = static_cast<std::uint8_t>(triple >> 8 * k);
    }
  }
};

class DecodeExhaustive : public testing::TestWithParam<Conversion> {};

TEST_P(DecodeExhaustive, AllTriplesOfSamples) {
  static const AllTriples triples;
  const Conversion& conversion = GetParam();
  const oracle::DecodeName name = *oracle::parseDecodeName(conversion.name);
  const bool planar = conversion.has("P3C3R");
  std::vector<unsigned short> pixels(tripleCount);
  CallArguments a = {};
  a.size = {side, side};
  a.srcStep[0] = planar ? side : 3 * side;
  for (int i = 0; i < 3; ++i) a.src[i] = triples.plane[i].data();
  if (!planar) a.src[0] = triples.packed.data();
  a.dst[0] = reinterpret_cast<std::uint8_t*>(pixels.data());
  a.dstStep[0] = 2 * side;
  for (const int variant : variantsToTest(conversion)) {
    const SelectedVariant selected(variant);
    ASSERT_EQ(conversion.call(a), pxmStatusOk);
    for (std::uint32_t i = 0; i < tripleCount; ++i) {
      const int y = triples.plane[0][i], cb = triples.plane[1][i], cr = triples.plane[2][i];
      ASSERT_EQ(pixels[i],
                oracle::decodePixel444(name, oracle::Variant{variant}, y, cb, cr,
                                       static_cast<int>(i / side), static_cast<int>(i % side)))
          << variantTags[variant] << " " << y << " " << cb << " " << cr;
    }
  }
}

std::vector<Conversion> conversionsOf444() {
  std::vector<Conversion> some;
  for (const Conversion& conversion : conversions())
    if (conversion.name.starts_with("YCbCrTo")) some.push_back(conversion);
  return some;
}

INSTANTIATE_TEST_SUITE_P(, DecodeExhaustive, testing::ValuesIn(conversionsOf444()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
