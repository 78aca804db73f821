// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <algorithm>

#include "oracle.h"

namespace oracle {
namespace {

TEST(OracleVariants, TagsAreInTheOrderOfTheEnumeration) {
  EXPECT_EQ(factsOf(Variant::mx).tag, "mx");
  EXPECT_EQ(factsOf(Variant::n8).tag, "n8");
  EXPECT_EQ(factsOf(Variant::l9).tag, "l9");
  for (const VariantFacts& facts : kVariants) {
    EXPECT_EQ(factsOf(variantOfTag(facts.tag).value()).tag, facts.tag);
    // A label ends in the tag and a bracket.
    EXPECT_EQ(facts.label.substr(facts.label.size() - 3, 2), facts.tag) << facts.label;
  }
  EXPECT_EQ(variantOfTag("z1"), std::nullopt);
}

TEST(OracleVariants, AllButTheScalarOneAreVectorVariants) {
  EXPECT_EQ(kVectorVariants.size(), 6u);
  EXPECT_EQ(kVectorVariants.front(), Variant::m7);
  EXPECT_EQ(kVectorVariants.back(), Variant::l9);
  EXPECT_EQ(std::ranges::count(kVectorVariants, Variant::mx), 0);
}

// Every bit of the fewest is needed.
TEST(OracleVariants, TheFewestFeaturesChooseTheirVariant) {
  for (const VariantFacts& facts : kVariants) {
    const Variant variant = variantOfTag(facts.tag).value();
    EXPECT_EQ(variantFor(facts.fewest), variant) << facts.tag;
    EXPECT_EQ(facts.fewest & ~facts.known, 0u) << facts.tag;
    for (int bit = 0; bit < 64; ++bit) {
      const std::uint64_t fewer = facts.fewest & ~(std::uint64_t{1} << bit);
      if (fewer != facts.fewest) {
        EXPECT_NE(variantFor(fewer), variant) << facts.tag << " without bit " << bit;
      }
    }
  }
}

}  // namespace
}  // namespace oracle
