// SPDX-License-Identifier: MIT
// The shared object itself, opened as a program would.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "include/pxmcc90lgc.h"
#include "tests/support/hidden_symbols.h"
#include "tests/support/variants.h"

namespace {

class SharedObject : public testing::Test {
 protected:
  SharedObject() : handle(dlopen(PXM_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {
    if (handle != nullptr) symbols = hiddenSymbols(handle);
  }
  ~SharedObject() override {
    if (handle != nullptr) dlclose(handle);
  }
  void SetUp() override { ASSERT_NE(handle, nullptr) << dlerror(); }

  template <class Function>
  Function* exported(const char* name) {
    return reinterpret_cast<Function*>(dlsym(handle, name));
  }

  // Of the object's symbol table, hidden ones included; null if there is no such name.
  template <class T>
  T* hidden(const std::string& name) {
    const auto found = symbols.find(name);
    return found == symbols.end() ? nullptr : static_cast<T*>(found->second);
  }

  void* handle;
  std::map<std::string, void*> symbols;
};

TEST_F(SharedObject, IsStartedWhenItIsLoaded) {
  const auto* index = hidden<std::int32_t>("VariantIndex");
  ASSERT_NE(index, nullptr);
  EXPECT_GE(*index, 0);
  EXPECT_LT(*index, variantCount);
}

TEST_F(SharedObject, KeepsVariantIndexOutOfItsExports) {
  EXPECT_EQ(dlsym(handle, "VariantIndex"), nullptr);
  EXPECT_EQ(dlsym(handle, "LazyStartThunk"), nullptr);
  EXPECT_NE(dlsym(handle, "legacy90pxmccInit"), nullptr);
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

// The table of a name has the trampoline ahead of its slots, and no two slots share an entry.
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

}  // namespace
