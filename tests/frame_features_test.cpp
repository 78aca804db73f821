// SPDX-License-Identifier: MIT
// The feature mask on made-up processors: it is a function of what CPUID and XCR0 answer.
#include <cpuid.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <map>
#include <utility>
#include <vector>

#include "frame/dispatch.h"
#include "frame/features.h"
#include "tests/support/pages.h"

namespace {

using pxm::CpuIdRecord;
using pxm::FeatureMaskCache;
using pxm::Processor;

using Query = std::pair<uint32_t, uint32_t>;  // leaf, sub-leaf

constexpr uint64_t untouched = 0xDEADBEEFCAFEF00D;

// What the made-up processor answers and what it was asked.
struct MadeUp {
  bool hasCpuId = true;
  uint64_t xcr0 = 7;
  std::map<Query, CpuIdRecord> answers;
  std::vector<Query> asked;
  int xcr0Reads = 0;
};
MadeUp* madeUp;

const Processor madeUpProcessor = {
    [] { return madeUp->hasCpuId ? 1 : 0; },
    [](CpuIdRecord* record, uint32_t leaf, uint32_t subleaf) {
      madeUp->asked.push_back({leaf, subleaf});
      *record = madeUp->answers[{leaf, subleaf}];
    },
    [] {
      ++madeUp->xcr0Reads;
      return madeUp->xcr0;
    },
};

class Features : public testing::Test {
 protected:
  Features() {
    madeUp = &cpu;
    cpu.answers[{0, 0}].eax = 7;
    cpu.answers[{0x80000000, 0}].eax = 0x80000008;
  }
  CpuIdRecord& leaf1() { return cpu.answers[{1, 0}]; }
  CpuIdRecord& leaf7() { return cpu.answers[{7, 0}]; }

  uint64_t mask() {
    FeatureMaskCache cache = {};
    uint64_t result = untouched;
    EXPECT_EQ(pxm::DetectFeatures(madeUpProcessor, cache, &result), 1u);
    EXPECT_EQ(cache.mask, result);
    EXPECT_EQ(cache.valid, 1u);
    return result;
  }

  MadeUp cpu;
};

constexpr uint32_t bit(int n) {
  return uint32_t{1} << n;
}

TEST_F(Features, ProcessorThatOffersNothingGivesAnEmptyMask) {
  EXPECT_EQ(mask(), 0u);
}

TEST_F(Features, EachBitOfLeaf1SetsItsOwnBitOnly) {
  const std::pair<int, uint64_t> ecxBits[] = {{0, 0x8},     {9, 0x10},   {22, 0x20},  {19, 0x40},
                                              {20, 0x80},   {28, 0x100}, {25, 0x400}, {1, 0x800},
                                              {30, 0x2000}, {29, 0x4000}};
  const std::pair<int, uint64_t> edxBits[] = {{23, 0x1}, {25, 0x2}, {26, 0x4}};
  for (int i = 0; i < 32; ++i) {
    uint64_t fromEcx = 0, fromEdx = 0;
    for (const auto& [n, feature] : ecxBits)
      if (n == i) fromEcx = feature;
    for (const auto& [n, feature] : edxBits)
      if (n == i) fromEdx = feature;
    leaf1() = {0, bit(i), bit(i), 0};
    EXPECT_EQ(mask(), fromEcx) << "leaf 1 ecx bit " << i;
    leaf1() = {0, bit(i), 0, bit(i)};
    EXPECT_EQ(mask(), fromEdx) << "leaf 1 edx bit " << i;
  }
}

TEST_F(Features, EachBitOfLeaf7SetsItsOwnBitOnly) {
  for (int i = 0; i < 32; ++i) {
    leaf7() = {bit(i), bit(i), bit(i), bit(i)};
    EXPECT_EQ(mask(), i == 19   ? 0x10000u
                      : i == 18 ? 0x20000u
                      : i == 29 ? 0x80000u
                                : 0u)
        << "leaf 7 ebx bit " << i;
  }
}

TEST_F(Features, PrefetchwComesFromExtendedLeaf1) {
  cpu.answers[{0x80000001, 0}] = {0, 0, bit(8), 0};
  EXPECT_EQ(mask(), 0x40000u);
  cpu.answers[{0x80000000, 0}].eax = 0x80000001;
  EXPECT_EQ(mask(), 0x40000u);
  cpu.answers[{0x80000000, 0}].eax = 0x80000000;
  EXPECT_EQ(mask(), 0u);
}

TEST_F(Features, Avx2LevelNeedsFmaAvx2AndBothBmi) {
  constexpr uint32_t avx2Bmi1Bmi2 = 0x128;
  leaf1().ecx = bit(12);
  leaf7().ebx = avx2Bmi1Bmi2;
  EXPECT_EQ(mask(), 0x8000u);
  for (const int missing : {3, 5, 8}) {
    leaf7().ebx = avx2Bmi1Bmi2 & ~bit(missing);
    EXPECT_EQ(mask(), 0u) << "leaf 7 without bit " << missing;
  }
  leaf7().ebx = avx2Bmi1Bmi2;
  leaf1().ecx = 0;
  EXPECT_EQ(mask(), 0u);
}

TEST_F(Features, AvxWithoutOsxsaveKeepsBit8AndNeverReadsXcr0) {
  leaf1().ecx = bit(28);
  EXPECT_EQ(mask(), 0x100u);
  EXPECT_EQ(cpu.xcr0Reads, 0);
}

TEST_F(Features, OsxsaveWithoutAvxNeverReadsXcr0) {
  leaf1().ecx = bit(27);
  EXPECT_EQ(mask(), 0u);
  EXPECT_EQ(cpu.xcr0Reads, 0);
}

TEST_F(Features, AvxStateNeedsBothXmmAndYmm) {
  leaf1().ecx = bit(27) | bit(28);
  for (uint64_t xcr0 = 0; xcr0 < 16; ++xcr0) {
    cpu.xcr0 = xcr0;
    EXPECT_EQ(mask(), (xcr0 & 6) == 6 ? 0x300u : 0x100u) << "XCR0 " << xcr0;
  }
  cpu.xcr0 = 0x600000000;  // only the low word counts
  EXPECT_EQ(mask(), 0x100u);
}

TEST_F(Features, OsSavesAvxStateAsksLeaf1Again) {
  leaf1().ecx = bit(27) | bit(28);
  EXPECT_EQ(pxm::OsSavesAvxState(madeUpProcessor), 1);
  EXPECT_EQ(cpu.asked, (std::vector<Query>{{1, 0}}));
  leaf1().ecx = bit(28);
  EXPECT_EQ(pxm::OsSavesAvxState(madeUpProcessor), 0);
}

TEST_F(Features, HighestLeaf6LeavesLeaf7Unasked) {
  cpu.answers[{0, 0}].eax = 6;
  leaf1().ecx = bit(12);
  leaf7().ebx = 0xFFFFFFFF;
  EXPECT_EQ(mask(), 0u);
  for (const Query& query : cpu.asked) EXPECT_NE(query.first, 7u);
}

TEST_F(Features, HighestLeafIsComparedUnsigned) {
  cpu.answers[{0, 0}].eax = 0xFFFFFFFF;
  leaf7().ebx = bit(19);
  EXPECT_EQ(mask(), 0x10000u);
  cpu.answers[{0x80000000, 0}].eax = 0;  // no extended leaves
  cpu.answers[{0x80000001, 0}].ecx = bit(8);
  EXPECT_EQ(mask(), 0x10000u);
}

TEST_F(Features, FamilyBAsksItsCoprocessorLeaf) {
  cpu.answers[{0x20000001, 0}].edx = bit(1);
  leaf1().eax = 0xB00;
  EXPECT_EQ(mask(), 0x1000u);
  leaf1().eax = 0xB10;
  EXPECT_EQ(mask(), 0x80001000u);
  leaf1().eax = 0xB20;
  EXPECT_EQ(mask(), 0x1000u);
  leaf1().eax = 0xFFFFFB1F;  // no other bit has a say
  EXPECT_EQ(mask(), 0x80001000u);
  leaf1().eax = 0xFFFFFBFF;
  EXPECT_EQ(mask(), 0x1000u);
  leaf1().eax = 0xA10;
  cpu.asked.clear();
  EXPECT_EQ(mask(), 0u);
  for (const Query& query : cpu.asked) EXPECT_NE(query.first, 0x20000001u);
}

TEST_F(Features, QueriesAreThoseThatTheProcessorOffersAndNoMore) {
  leaf1() = {0xB00, 0, bit(27) | bit(28), 0};
  mask();
  const std::vector<Query> all = {{0, 0},          {0x80000000, 0}, {1, 0},         {1, 0},
                                  {0x20000001, 0}, {7, 0},          {0x80000001, 0}};
  EXPECT_EQ(cpu.asked, all);
  EXPECT_EQ(cpu.xcr0Reads, 1);

  cpu.asked.clear();
  cpu.answers[{0, 0}].eax = 1;
  cpu.answers[{0x80000000, 0}].eax = 0;
  leaf1() = {};
  mask();
  EXPECT_EQ(cpu.asked, (std::vector<Query>{{0, 0}, {0x80000000, 0}, {1, 0}}));
}

TEST_F(Features, SecondDetectionQueriesNothing) {
  leaf1().edx = bit(26);
  FeatureMaskCache cache = {};
  uint64_t first = 0, second = 0;
  EXPECT_EQ(pxm::DetectFeatures(madeUpProcessor, cache, &first), 1u);
  leaf1().edx = 0xFFFFFFFF;
  cpu.hasCpuId = false;
  cpu.asked.clear();
  EXPECT_EQ(pxm::DetectFeatures(madeUpProcessor, cache, &second), 1u);
  EXPECT_TRUE(cpu.asked.empty());
  EXPECT_EQ(first, 4u);
  EXPECT_EQ(second, 4u);
}

TEST_F(Features, WithoutCpuIdNothingIsWritten) {
  cpu.hasCpuId = false;
  FeatureMaskCache cache = {};
  uint64_t mask = untouched;
  EXPECT_EQ(pxm::DetectFeatures(madeUpProcessor, cache, &mask), 0u);
  EXPECT_EQ(mask, untouched);
  EXPECT_EQ(cache.valid, 0u);
  EXPECT_TRUE(cpu.asked.empty());
}

TEST_F(Features, ProcessorInfoRefuses36BeforeNull) {
  FeatureMaskCache cache = {};
  uint64_t word = untouched;
  CpuIdRecord record = {1, 2, 3, 4};
  cpu.hasCpuId = false;
  EXPECT_EQ(pxm::GetProcessorInfo(madeUpProcessor, cache, nullptr, &record), 36);
  EXPECT_EQ(pxm::GetProcessorInfo(madeUpProcessor, cache, &word, &record), 36);
  EXPECT_EQ(word, untouched);
  cpu.hasCpuId = true;
  EXPECT_EQ(pxm::GetProcessorInfo(madeUpProcessor, cache, nullptr, &record), -8);
  EXPECT_EQ(record.eax, 1u);
  EXPECT_EQ(record.edx, 4u);
}

TEST_F(Features, ProcessorInfoGivesMaskAndLeaf1) {
  leaf1() = {11, 22, 33, bit(26)};
  FeatureMaskCache cache = {};
  uint64_t word = 0;
  CpuIdRecord record = {4, 0, 1, 0};
  EXPECT_EQ(pxm::GetProcessorInfo(madeUpProcessor, cache, &word, nullptr), 0);
  EXPECT_EQ(word, 12u);  // SSE3 from bit 0 of 33, SSE2
  cpu.asked.clear();
  EXPECT_EQ(pxm::GetProcessorInfo(madeUpProcessor, cache, &word, &record), 0);
  EXPECT_EQ(cpu.asked, (std::vector<Query>{{1, 0}}));
  EXPECT_EQ(record.eax, 11u);
  EXPECT_EQ(record.ebx, 22u);
  EXPECT_EQ(record.ecx, 33u);
  EXPECT_EQ(record.edx, bit(26));
}

TEST_F(Features, ProcessorInfoWithTheMagicWordAsksTheCallersLeaf) {
  leaf1().edx = bit(26);
  cpu.answers[{4, 1}] = {41, 42, 43, 44};
  FeatureMaskCache cache = {};
  uint64_t word;
  memcpy(&word, "getinfoa", sizeof word);
  CpuIdRecord record = {4, 99, 1, 99};
  EXPECT_EQ(pxm::GetProcessorInfo(madeUpProcessor, cache, &word, &record), 0);
  EXPECT_EQ(cpu.asked.back(), Query(4, 1));
  EXPECT_EQ(record.eax, 41u);
  EXPECT_EQ(record.ebx, 42u);
  EXPECT_EQ(record.ecx, 43u);
  EXPECT_EQ(record.edx, 44u);
  EXPECT_EQ(word, 4u);
}

TEST_F(Features, ProcessorInfoComparesAllEightCharactersOfTheMagicWord) {
  FeatureMaskCache cache = {};
  for (int i = 0; i < 8; ++i) {
    char text[9] = "getinfoa";
    text[i] ^= 1;
    uint64_t word;
    memcpy(&word, text, sizeof word);
    CpuIdRecord record = {4, 0, 1, 0};
    EXPECT_EQ(pxm::GetProcessorInfo(madeUpProcessor, cache, &word, &record), 0);
    EXPECT_EQ(cpu.asked.back(), Query(1, 0)) << text;
  }
}

// A start-up asks what detection asks, then leaf 1 for a record that it drops, then the vendor. The
// second one has the mask in its cache.
TEST_F(Features, StartUpQueriesTheMaskOnce) {
  FeatureMaskCache cache = {};
  EXPECT_EQ(pxm::startUp(madeUpProcessor, cache), 20);
  EXPECT_EQ(cpu.asked,
            (std::vector<Query>{
                {0, 0}, {0x80000000, 0}, {1, 0}, {7, 0}, {0x80000001, 0}, {1, 0}, {0, 0}}));
  cpu.asked.clear();
  EXPECT_EQ(pxm::startUp(madeUpProcessor, cache), 20);
  EXPECT_EQ(cpu.asked, (std::vector<Query>{{1, 0}, {0, 0}}));
  legacy90pxmccInit();
}

TEST(ThisProcessor, AnswersByLeafAndSubLeaf) {
  CpuIdRecord leaf, asked;
  for (const uint32_t subleaf : {0u, 1u}) {
    __cpuid_count(0xD, subleaf, leaf.eax, leaf.ebx, leaf.ecx, leaf.edx);
    pxm::thisProcessor.ReadCpuId(&asked, 0xD, subleaf);
    EXPECT_EQ(asked.eax, leaf.eax) << subleaf;
    EXPECT_EQ(asked.edx, leaf.edx) << subleaf;
  }
  EXPECT_EQ(pxm::thisProcessor.HasCpuId(), 1);
}

// As page faults see them: the mask lies at the end of one read-only page, its valid flag at the
// start of the next.
TEST(CacheStores, TheMaskComesBeforeTheFlagThatVouchesForIt) {
  char* const pages = static_cast<char*>(reservePages(2 * pageSize()));
  ASSERT_NE(pages, nullptr);
  auto* cache =
      reinterpret_cast<FeatureMaskCache*>(pages + pageSize() - sizeof(FeatureMaskCache::mask));
  static_assert(offsetof(FeatureMaskCache, valid) == sizeof(FeatureMaskCache::mask));
  ASSERT_TRUE(setAccess(pages, 2 * pageSize(), Access::Read));
  uint64_t mask;
  {
    const WatchedPages watched(pages, 2);
    EXPECT_EQ(pxm::DetectFeatures(pxm::thisProcessor, *cache, &mask), 1u);
    EXPECT_EQ(watched.order(), (std::vector<std::size_t>{0, 1}));
  }
  EXPECT_EQ(cache->mask, mask);
  releasePages(pages, 2 * pageSize());
}

TEST(EnabledFeatures, TestWantsEveryBit) {
  EXPECT_EQ(pxm::SetEnabledFeatures(0x83), 0);
  EXPECT_EQ(pxm::TestEnabledFeatures(0x80), 1);
  EXPECT_EQ(pxm::TestEnabledFeatures(0x81), 1);
  EXPECT_EQ(pxm::TestEnabledFeatures(0x84), 0);
  EXPECT_EQ(pxm::TestEnabledFeatures(0), 1);
}

}  // namespace
