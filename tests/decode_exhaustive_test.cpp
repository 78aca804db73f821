// SPDX-License-Identifier: MIT
// All 16,777,216 triples of samples through every 4:4:4 conversion, as one image of 4096x4096.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/oracle/oracle.h"
#include "tests/support/catalog.h"

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

class DecodeExhaustive : public testing::TestWithParam<Decoder> {};

TEST_P(DecodeExhaustive, AllTriplesOfSamples) {
  static const AllTriples triples;
  const Decoder& decoder = GetParam();
  const oracle::DecodeName name = *oracle::parseDecodeName(decoder.name);
  std::vector<unsigned short> pixels(tripleCount);
  for (const int variant : variantsToTest(decoder)) {
    const SelectedVariant selected(variant);
    DecodeArguments a = {
        {triples.plane[0].data(), triples.plane[1].data(), triples.plane[2].data()},
        {side, side, side},
        pixels.data(),
        2 * side,
        {side, side}};
    if (!decoder.planar) {
      a.src[0] = triples.packed.data();
      a.srcStep[0] = 3 * side;
    }
    ASSERT_EQ(decoder.call(a), pxmStatusOk);
    for (std::uint32_t i = 0; i < tripleCount; ++i) {
      const int y = triples.plane[0][i], cb = triples.plane[1][i], cr = triples.plane[2][i];
      ASSERT_EQ(pixels[i],
                oracle::decodePixel444(name, oracle::Variant{variant}, y, cb, cr,
                                       static_cast<int>(i / side), static_cast<int>(i % side)))
          << variantTags[variant] << " " << y << " " << cb << " " << cr;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, DecodeExhaustive, testing::ValuesIn(decoders()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
