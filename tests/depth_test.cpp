// SPDX-License-Identifier: MIT
// 565 to 888 and back over all of their inputs.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "catalogue/conversions.h"
#include "catalogue/variants.h"
#include "tests/oracle/oracle.h"
#include "tests/support/by_oracle.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

// A call whose images have tight rows.
CallArguments tight(const Conversion& conversion, const Bytes& source, Bytes& out, pxmSize size) {
  const bool expands = conversion.has("_16u8u_");
  CallArguments a = {};
  a.src[0] = source.data();
  a.dst[0] = out.data();
  a.srcStep[0] = (expands ? 2 : 3) * size.width;
  a.dstStep[0] = (expands ? 3 : 2) * size.width;
  a.size = size;
  return a;
}

void expectLikeOracle(const Conversion& conversion, const Bytes& source, std::size_t outBytes,
                      pxmSize size) {
  for (const int variant : runnableVariants()) {
    Bytes got(outBytes, 0x5A), expected(outBytes, 0x5A);
    const SelectedVariant selected(variant);
    EXPECT_EQ(conversion.call(tight(conversion, source, got, size)), pxmStatusOk);
    convertByOracle(conversion, variant, tight(conversion, source, expected, size));
    EXPECT_TRUE(got == expected) << conversion.name << " " << variantTags[variant];
  }
}

TEST(Depth, ExpansionOfAllPixels) {
  Bytes pixels(2 * 65536);
  for (std::size_t i = 0; i < 65536; ++i) {
    pixels[2 * i] = static_cast<std::uint8_t>(i);
    pixels[2 * i + 1] = static_cast<std::uint8_t>(i >> 8);
  }
  for (const char* name : {"BGR565ToBGR_16u8u_C3R", "RGB565ToRGB_16u8u_C3R"})
    expectLikeOracle(conversionNamed(name), pixels, 3 * 65536, {256, 256});
}

TEST(Depth, PackingOfAllTriplesOfBytes) {
  Bytes triples(3u << 24);
  for (std::size_t i = 0; i < 1u << 24; ++i)
    for (unsigned k = 0; k < 3; ++k) triples[3 * i + k] = static_cast<std::uint8_t>(i >> 8 * k);
  for (const char* name : {"BGRToBGR565_8u16u_C3R", "RGBToRGB565_8u16u_C3R"})
    expectLikeOracle(conversionNamed(name), triples, 2u << 24, {4096, 4096});
}

Bytes converted(const char* name, const Bytes& source, std::size_t outBytes) {
  const Conversion& conversion = conversionNamed(name);
  Bytes out(outBytes, 0x5A);
  EXPECT_EQ(conversion.call(tight(conversion, source, out, {1, 1})), pxmStatusOk);
  return out;
}

TEST(Depth, ExpandingAndPackingGivesThePixelBack) {
  for (unsigned word = 0; word < 65536; ++word) {
    const Bytes pixel = {static_cast<std::uint8_t>(word), static_cast<std::uint8_t>(word >> 8)};
    const Bytes bytes = converted("BGR565ToBGR_16u8u_C3R", pixel, 3);
    ASSERT_EQ(converted("BGRToBGR565_8u16u_C3R", bytes, 2), pixel) << word;
  }
}

}  // namespace
