// SPDX-License-Identifier: MIT
// How the variants' decoders agree with one another: all with SIMD give one result for every
// conversion, but for two of l9.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "catalogue/conversions.h"
#include "catalogue/variants.h"
#include "tests/support/random.h"

namespace {

// Chains that are not alike differ in one pixel of a few hundred: so many pixels that random ones
// show it always.
constexpr int width = 203, height = 115, pitch = 3 * width + 2, planeBytes = pitch * (height + 1);

// What a variant makes of random samples, the margins of its destination included.
std::vector<std::uint8_t> decodedBy(int variant, const Conversion& conversion) {
  const SelectedVariant selected(variant);
  Random random{std::string(conversion.name)};
  std::vector<std::uint8_t> source(3 * planeBytes), out(planeBytes, 0x5A);
  random.fill(source.data(), source.size());
  CallArguments a = {};
  for (int i = 0; i < 3; ++i) {
    a.src[i] = source.data() + i * planeBytes;
    a.srcStep[i] = pitch;
  }
  a.dst[0] = out.data();
  a.dstStep[0] = pitch;
  a.size = {width, height};
  EXPECT_GE(conversion.call(a), 0);
  return out;
}

bool isOfL9Alone(const Conversion& c) {
  return c.name == "YCbCr422ToBGR555_8u16u_C2C3R" || c.name == "YCbCr422ToBGR565_8u16u_C2C3R";
}

TEST(Variants, OfVectorDecodersAgreeButForTwoOfL9) {
  SCOPED_TRACE(seedMessage());
  const std::vector<int> runnable = runnableVariants();
  const int m7 = variantNamed("m7"), l9 = variantNamed("l9");
  if (std::ranges::count(runnable, m7) == 0) GTEST_SKIP() << "needs m7";
  for (const Conversion& conversion : conversionsOf(Kind::Decode)) {
    const std::vector<std::uint8_t> first = decodedBy(m7, conversion);
    for (const int variant : runnable)
      if (variant > m7) {
        EXPECT_EQ(decodedBy(variant, conversion) == first,
                  variant != l9 || !isOfL9Alone(conversion))
            << conversion.name << " " << variantTags[variant];
      }
  }
}

// Planar 4:4:4, planar 4:2:2, 4:2:0 and everything dithered equal scalar code; the others differ.
TEST(Variants, OfVectorDecodersEqualPlainCodeWhereTheirChainIsItsForm) {
  SCOPED_TRACE(seedMessage());
  const std::vector<int> runnable = runnableVariants();
  const int m7 = variantNamed("m7");
  if (std::ranges::count(runnable, m7) == 0) GTEST_SKIP() << "needs m7";
  for (const Conversion& c : conversionsOf(Kind::Decode)) {
    const bool ownForm =
        !c.has("Dither") && (c.has("YUV") || c.has("411") || c.has("_C2C3R") || c.has("8u16u_C3R"));
    // Under dither an odd corner is followed by two more pixels.
    const bool overruns = c.has("Dither") && c.has("420");
    EXPECT_EQ(decodedBy(m7, c) == decodedBy(0, c), !ownForm && !overruns) << c.name;
  }
}

}  // namespace
