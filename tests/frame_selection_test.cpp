// SPDX-License-Identifier: MIT
// From mask to variant, to the status of start-up and to the version record.
#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string_view>

#include "catalogue/variants.h"
#include "frame/dispatch.h"
#include "tests/oracle/oracle.h"

namespace {

using pxm::CpuIdRecord;
using pxm::Processor;
using pxm::Selection;

// The tag of the variant that is chosen for a mask.
std::string_view choiceFor(uint64_t mask) {
  return variantTags[pxm::selectVariant(pxmStatusOk, mask).variant];
}

uint64_t enabledFor(uint64_t mask) {
  return pxm::selectVariant(pxmStatusOk, mask).enabled;
}

void expectLikeOracle(uint64_t mask) {
  const oracle::VariantFacts& expected = oracle::factsOf(oracle::variantFor(mask));
  EXPECT_EQ(choiceFor(mask), expected.tag) << std::hex << mask;
  EXPECT_EQ(enabledFor(mask), mask & expected.known) << std::hex << mask;
}

TEST(Selection, EveryCombinationOfTheBitsThatSteerIt) {
  constexpr uint64_t steering[] = {0x8, 0x10, 0x20, 0x40, 0x100, 0x200, 0x8000};
  constexpr uint64_t others[] = {0, 0x7, 0x80, ~uint64_t{0x8378}, 0xB10 | 0x7};
  std::set<std::string_view> seen;
  for (unsigned combination = 0; combination < 128; ++combination)
    for (const uint64_t other : others) {
      uint64_t mask = other & ~uint64_t{0x8378};
      for (int i = 0; i < 7; ++i)
        if (combination >> i & 1) mask |= steering[i];
      expectLikeOracle(mask);
      seen.insert(choiceFor(mask));
    }
  EXPECT_EQ(seen, std::set<std::string_view>(std::begin(variantTags), std::end(variantTags)));
}

TEST(Selection, TheFewestFeaturesOfEachVariant) {
  for (const oracle::VariantFacts& facts : oracle::kVariants) {
    EXPECT_EQ(choiceFor(facts.fewest), facts.tag);
    EXPECT_EQ(enabledFor(facts.fewest), facts.fewest);
    EXPECT_EQ(enabledFor(facts.fewest | 7), facts.fewest | 7);
  }
}

TEST(Selection, LiteralProcessors) {
  EXPECT_EQ(choiceFor(~uint64_t{0}), "l9");
  EXPECT_EQ(enabledFor(~uint64_t{0}), 0xFEFFFu);  // without bits 12 and 31
  EXPECT_EQ(choiceFor(0xFFFF7FFF), "e9");
  EXPECT_EQ(enabledFor(0xFFFF7FFF), 0x86FDFu & 0xFFFF7FFFu);
  EXPECT_EQ(choiceFor(0x1DF), "y8") << "AVX without the state being saved";
  EXPECT_EQ(enabledFor(0x1DF), 0xDFu);
  EXPECT_EQ(choiceFor(0x7F), "y8") << "SSE4.1 before MOVBE";
  EXPECT_EQ(choiceFor(0x2F), "m7") << "MOVBE without SSSE3";
  EXPECT_EQ(choiceFor(0x27), "mx");
}

TEST(Selection, FailedDetectionTakesScalarCode) {
  const Selection got = pxm::selectVariant(pxmStatusCpuUnsupported, ~uint64_t{0});
  EXPECT_EQ(got.variant, 0);
  EXPECT_EQ(got.enabled, 7u);
}

TEST(Selection, E9DropsTheBitsItDoesNotKnow) {
  const uint64_t mask = 0xFFFFF & ~uint64_t{0x8000}, enabled = enabledFor(mask);
  ASSERT_EQ(choiceFor(mask), "e9");
  for (const int dropped : {5, 12, 15, 16, 17, 18}) EXPECT_FALSE(enabled >> dropped & 1) << dropped;
}

CpuIdRecord vendor(const char* text) {
  CpuIdRecord record = {};
  std::memcpy(&record.ebx, text, 4);
  std::memcpy(&record.edx, text + 4, 4);
  std::memcpy(&record.ecx, text + 8, 4);
  return record;
}

TEST(Vendor, AllTwelveCharactersCount) {
  const char favoured[] = "GenuineOrdin";
  EXPECT_EQ(pxm::IsFavouredVendor(vendor(favoured)), 1);
  for (int i = 0; i < 12; ++i) {
    char other[13];
    std::strcpy(other, favoured);
    other[i] ^= 1;
    EXPECT_EQ(pxm::IsFavouredVendor(vendor(other)), 0) << other;
  }
}

TEST(StartUpStatus, ForeignVendorOverridesFailedDetection) {
  EXPECT_EQ(pxm::startUpStatus(0, 1, 1), 0);
  EXPECT_EQ(pxm::startUpStatus(36, 1, 1), 36);
  EXPECT_EQ(pxm::startUpStatus(0, 1, 0), 20);
  EXPECT_EQ(pxm::startUpStatus(36, 1, 0), 20);
  EXPECT_EQ(pxm::startUpStatus(0, 0, 1), 20);
  EXPECT_EQ(pxm::startUpStatus(36, 0, 1), 20);
}

// Start-up writes the process's own index and mask, which are put back.
class StartUp : public testing::Test {
 protected:
  ~StartUp() override { legacy90pxmccInit(); }
};

TEST_F(StartUp, WithoutCpuIdAnswers20AndStillHasAVariant) {
  const Processor none = {[] { return 0; },
                          [](CpuIdRecord*, uint32_t, uint32_t) { FAIL() << "CPUID executed"; },
                          [] { return uint64_t{0}; }};
  pxm::FeatureMaskCache cache = {};
  VariantIndex = -1;
  EXPECT_EQ(pxm::startUp(none, cache), 20);
  EXPECT_EQ(VariantIndex, 0);
  EXPECT_EQ(pxm::TestEnabledFeatures(7), 1);
  EXPECT_EQ(pxm::TestEnabledFeatures(8), 0);
}

TEST_F(StartUp, OfTheFavouredVendorAnswers0) {
  const Processor ordin = {
      [] { return 1; },
      [](CpuIdRecord* record, uint32_t leaf, uint32_t) {
        *record = leaf == 0 ? vendor("GenuineOrdin") : CpuIdRecord{0, 0, 0x80201, 1u << 26};
      },
      [] { return uint64_t{0}; }};
  pxm::FeatureMaskCache cache = {};
  EXPECT_EQ(pxm::startUp(ordin, cache), 0);
  EXPECT_STREQ(variantTags[VariantIndex], "y8");
}

TEST_F(StartUp, ARepeatReachesTheSameChoice) {
  const pxmStatus first = legacy90pxmccInit();
  const int index = VariantIndex;
  EXPECT_EQ(legacy90pxmccInit(), first);
  EXPECT_EQ(VariantIndex, index);
}

TEST_F(StartUp, TheLoadTimeEntryActsAtAttachOnlyAndNeverRefuses) {
  for (const unsigned reason : {0u, 2u, 3u}) {
    VariantIndex = -1;
    EXPECT_EQ(pxmLibraryEntry(nullptr, reason, nullptr), 1);
    EXPECT_EQ(VariantIndex, -1);
  }
  EXPECT_EQ(pxmLibraryEntry(nullptr, 1, nullptr), 1);
  EXPECT_GE(VariantIndex, 0);
}

TEST_F(StartUp, VersionRecordsOfAllVariants) {
  pxm::SetEnabledFeatures(0x7F);
  for (const oracle::VariantFacts& expected : oracle::kVariants) {
    const SelectedVariant selected(variantNamed(expected.tag));
    const pxmVersionRecord* record = legacy90pxmccGetLibVersion();
    EXPECT_EQ(record->versionMajor, 9);
    EXPECT_EQ(record->versionMinor, 0);
    EXPECT_EQ(record->versionPatch, 0);
    EXPECT_EQ(record->buildNumber, -1);
    char tag[8] = {};
    expected.tag.copy(tag, 2);
    EXPECT_EQ(std::memcmp(record->variantTag, tag, 8), 0) << expected.tag;
    EXPECT_EQ(record->label, expected.label);
    EXPECT_STREQ(record->releaseText, "9.0 Legacy (r48491) (-)");
    EXPECT_STREQ(record->dateText, "Oct 14 2015");
  }
}

TEST_F(StartUp, Y8WithSse42HasThePlusLabel) {
  const SelectedVariant selected(variantNamed("y8"));
  pxm::SetEnabledFeatures(0xFF);
  EXPECT_STREQ(legacy90pxmccGetLibVersion()->label, "pxmCC SSE4.1/4.2 (y8)+");
  pxm::SetEnabledFeatures(0x7);  // as before start-up has stored its mask
  EXPECT_STREQ(legacy90pxmccGetLibVersion()->label, "pxmCC SSE4.1/4.2 (y8)");
}

TEST(Threads, ServicesAnswerAPositiveOne) {
  int number = 77;
  EXPECT_EQ(legacy90pxmccGetNumThreads(&number), 1);
  EXPECT_EQ(number, 1);
  EXPECT_EQ(legacy90pxmccGetNumThreads(nullptr), -8);
  for (const int wanted : {-1, 0, 1, 64}) EXPECT_EQ(legacy90pxmccSetNumThreads(wanted), 1);
  EXPECT_EQ(legacy90pxmccGetNumThreads(&number), 1);
  EXPECT_EQ(number, 1);
}

TEST(Threads, ServicesWorkBeforeAVariantIsChosen) {
  const SelectedVariant none(-1);
  int number = 0;
  EXPECT_EQ(legacy90pxmccGetNumThreads(&number), 1);
  EXPECT_EQ(legacy90pxmccSetNumThreads(4), 1);
  EXPECT_EQ(VariantIndex, -1);
}

}  // namespace
