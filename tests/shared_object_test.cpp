// SPDX-License-Identifier: MIT
// The shared library itself, opened as a program would.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "catalogue/shared_library.h"
#include "catalogue/variants.h"
#include "include/pxmcc90lgc.h"
#include "tests/support/meeting.h"

namespace {

class SharedObject : public testing::Test {
 protected:
  SharedObject() : library(openLibrary(PXM_LIBRARY)) {
    if (library != nullptr) symbols = hiddenSymbols(library);
  }
  ~SharedObject() override {
    if (library != nullptr) closeLibrary(library);
  }
  void SetUp() override { ASSERT_NE(library, nullptr) << openFailure(); }

  template <class Function>
  Function* exported(const std::string& name) {
    return reinterpret_cast<Function*>(exportedSymbol(library, name));
  }

  // Of the object's symbol table, hidden ones included; null if there is no such name.
  template <class T>
  T* hidden(const std::string& name) {
    const auto found = symbols.find(name);
    return found == symbols.end() ? nullptr : static_cast<T*>(found->second);
  }

  void* library;
  std::map<std::string, void*> symbols;
};

TEST_F(SharedObject, IsStartedWhenItIsLoaded) {
  const auto* index = hidden<std::int32_t>("VariantIndex");
  ASSERT_NE(index, nullptr);
  EXPECT_GE(*index, 0);
  EXPECT_LT(*index, variantCount);
}

TEST_F(SharedObject, KeepsVariantIndexOutOfItsExports) {
  EXPECT_EQ(exportedSymbol(library, "VariantIndex"), nullptr);
  EXPECT_EQ(exportedSymbol(library, "LazyStartThunk"), nullptr);
  EXPECT_NE(exportedSymbol(library, "legacy90pxmccInit"), nullptr);
}

TEST_F(SharedObject, TakesTheTrampolineAsLongAsNothingIsChosen) {
  auto* index = hidden<std::int32_t>("VariantIndex");
  ASSERT_NE(index, nullptr);
  const std::int32_t chosen = *index;
  *index = -1;
  const auto convert =
      exported<pxmStatus(const unsigned char*, int, unsigned short*, int, pxmSize)>(
          "legacy90pxmiYCbCrToRGB565Dither_8u16u_C3R");
  ASSERT_NE(convert, nullptr);
  const unsigned char black[3] = {16, 128, 128};
  unsigned short pixel = 0x5A5A;
  EXPECT_EQ(convert(black, 3, &pixel, 2, {1, 1}), 0);
  EXPECT_EQ(pixel, 0);
  EXPECT_EQ(*index, chosen);
}

TEST_F(SharedObject, EveryVariantCanBeForcedByItsSymbol) {
  auto* index = hidden<std::int32_t>("VariantIndex");
  const auto version = exported<const pxmVersionRecord*()>("legacy90pxmccGetLibVersion");
  ASSERT_TRUE(index != nullptr && version != nullptr);
  const std::int32_t chosen = *index;
  for (std::int32_t variant = 0; variant < variantCount; ++variant) {
    *index = variant;
    EXPECT_STREQ(version()->variantTag, variantTags[variant]);
  }
  *index = chosen;
}

// The table of a name has the trampoline before its slots, and no two slots share an entry.
TEST_F(SharedObject, EverySlotLeadsToTheEntryOfItsVariant) {
  std::set<const void*> entries;
  for (const Conversion& conversion : conversions()) {
    const std::string name(conversion.name);
    const void* const* const slots = hidden<const void*>(name + "_table");
    ASSERT_NE(slots, nullptr) << name;
    EXPECT_EQ(slots[-1], hidden<void>(name + "_trampoline")) << name;
    for (int variant = 0; variant < variantCount; ++variant) {
      ASSERT_NE(slots[variant], nullptr) << name;
      EXPECT_EQ(slots[variant], hidden<void>(name + "_" + variantTags[variant])) << name;
      entries.insert(slots[variant]);
    }
  }
  EXPECT_EQ(entries.size(), conversions().size() * variantCount);
}

// Threads whose first calls meet in the trampolines, each of another export.
TEST_F(SharedObject, FirstCallsComeFromManyThreads) {
  constexpr int threadCount = 8, rounds = 100;
  auto* const index = hidden<std::int32_t>("VariantIndex");
  ASSERT_NE(index, nullptr);
  const std::int32_t chosen = *index;
  using Convert = pxmStatus(const unsigned char*, int, unsigned short*, int, pxmSize);
  std::vector<Convert*> converts;
  for (const Conversion& conversion : conversions())
    if (conversion.has("YCbCrTo") && conversion.has("_C3R"))
      converts.push_back(exported<Convert>("legacy90pxmi" + std::string(conversion.name)));
  ASSERT_EQ(converts.size(), 12u);
  Meeting together(threadCount, [&] { *index = -1; });
  std::atomic<int> wrong = 0;
  {
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < threadCount; ++i)
      threads.emplace_back([&, i] {
        for (int round = 0; round < rounds; ++round) {
          together.arriveAndWait();
          const unsigned char black[3] = {16, 128, 128};
          unsigned short pixel = 0x5A5A;
          if (converts[i](black, 3, &pixel, 2, {1, 1}) != 0 || pixel != 0) ++wrong;
          if (__atomic_load_n(index, __ATOMIC_RELAXED) != chosen) ++wrong;
        }
      });
  }
  EXPECT_EQ(wrong, 0);
}

// Each load starts the library anew, and nothing of it stays behind.
TEST(SharedObjectLife, AHundredTimesLoadedAndUnloaded) {
  for (int i = 0; i < 100; ++i) {
    void* const library = openLibrary(PXM_LIBRARY);
    ASSERT_NE(library, nullptr) << i;
    const auto version = reinterpret_cast<const pxmVersionRecord* (*)()>(
        exportedSymbol(library, "legacy90pxmccGetLibVersion"));
    ASSERT_NE(version, nullptr) << i;
    EXPECT_GE(variantNamed(version()->variantTag), 0) << i;
    closeLibrary(library);
  }
}

}  // namespace
