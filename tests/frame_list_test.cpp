// SPDX-License-Identifier: MIT
// The list of names against the oracle's, the public header and the slot tables.
#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>
#include <type_traits>
#include <vector>

#include "catalogue/conversions.h"
#include "catalogue/variants.h"
#include "frame/dispatch.h"
#include "frame/signatures.h"
#include "tests/oracle/oracle.h"

namespace {

constexpr std::string_view everyExport[] = {
#define SERVICE(name) "legacy90pxmcc" #name,
#define CONVERSION(name, family) "legacy90pxmi" #name,
#include "frame/conversions.def"
};
static_assert(std::size(everyExport) == 102);
static_assert(std::ranges::is_sorted(everyExport), "a row's place is its ordinal");

// Each prototype of the public header has the argument list of its family.
#define CONVERSION(name, family) \
  static_assert(std::is_same_v<decltype(legacy90pxmi##name), pxmStatus PARAMETERS(family)>);
#include "frame/conversions.def"
static_assert(std::is_same_v<decltype(legacy90pxmccGetLibVersion), const pxmVersionRecord*()>);
static_assert(std::is_same_v<decltype(legacy90pxmccInit), pxmStatus()>);
static_assert(std::is_same_v<decltype(legacy90pxmccGetNumThreads), pxmStatus(int*)>);
static_assert(std::is_same_v<decltype(legacy90pxmccSetNumThreads), pxmStatus(int)>);

static_assert(sizeof(pxmStatus) == 4 && std::is_signed_v<pxmStatus>);
static_assert(sizeof(pxmSize) == 8 && offsetof(pxmSize, height) == 4);
static_assert(offsetof(pxmVersionRecord, buildNumber) == 12 &&
              offsetof(pxmVersionRecord, variantTag) == 16 &&
              offsetof(pxmVersionRecord, label) == 24 &&
              offsetof(pxmVersionRecord, dateText) == 40 && sizeof(pxmVersionRecord) == 48);

TEST(List, Holds98ConversionsInTheOrderOfTheirOrdinals) {
  std::vector<std::string_view> conversions;
  for (const std::string_view name : everyExport)
    if (name.starts_with("legacy90pxmi")) conversions.push_back(name.substr(12));
  EXPECT_EQ(conversions.size(), 98u);
  EXPECT_EQ(conversions, oracle::conversionNames());
}

TEST(List, ServicesComeFirst) {
  EXPECT_EQ(everyExport[0], "legacy90pxmccGetLibVersion");
  EXPECT_EQ(everyExport[1], "legacy90pxmccGetNumThreads");
  EXPECT_EQ(everyExport[2], "legacy90pxmccInit");
  EXPECT_EQ(everyExport[3], "legacy90pxmccSetNumThreads");
  EXPECT_EQ(everyExport[101], "legacy90pxmiYUV420ToRGB565_8u16u_P3C3R");
}

TEST(List, EveryKindHasItsCount) {
  EXPECT_EQ(conversionsOf(Kind::Decode).size(), 74u);
  EXPECT_EQ(conversionsOf(Kind::Encode).size(), 14u);
  EXPECT_EQ(conversionsOf(Kind::Depth).size(), 4u);
  EXPECT_EQ(conversionsOf(Kind::Twist).size(), 6u);
}

// What tests expect of a variant as such stands in the oracle.
TEST(List, TheOracleKnowsEveryVariantInTheOrderOfTheSlots) {
  for (int slot = 0; slot < variantCount; ++slot) {
    const auto known = oracle::variantOfTag(variantTags[slot]);
    ASSERT_TRUE(known) << "the oracle does not know variant '" << variantTags[slot] << "'";
    EXPECT_EQ(static_cast<int>(*known), slot) << variantTags[slot];
  }
  EXPECT_EQ(static_cast<std::size_t>(variantCount), oracle::kVariantCount);
}

}  // namespace
