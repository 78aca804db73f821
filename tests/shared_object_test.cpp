// SPDX-License-Identifier: MIT
// The shared object itself, opened as a program would.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "include/pxmcc90lgc.h"
#include "tests/support/hidden_symbol.h"

namespace {

class SharedObject : public testing::Test {
 protected:
  SharedObject() : handle(dlopen(PXM_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {}
  ~SharedObject() override {
    if (handle != nullptr) dlclose(handle);
  }
  void SetUp() override { ASSERT_NE(handle, nullptr) << dlerror(); }

  template <class Function>
  Function* exported(const char* name) {
    return reinterpret_cast<Function*>(dlsym(handle, name));
  }

  void* handle;
};

TEST_F(SharedObject, IsStartedWhenItIsLoaded) {
  const auto* index = static_cast<std::int32_t*>(hiddenSymbol(handle, "VariantIndex"));
  ASSERT_NE(index, nullptr);
  EXPECT_GE(*index, 0);
  EXPECT_LE(*index, 6);
}

TEST_F(SharedObject, KeepsVariantIndexOutOfItsExports) {
  EXPECT_EQ(dlsym(handle, "VariantIndex"), nullptr);
  EXPECT_EQ(dlsym(handle, "LazyStartThunk"), nullptr);
  EXPECT_NE(dlsym(handle, "legacy90pxmccInit"), nullptr);
}

TEST_F(SharedObject, TakesTheTrampolineAsLongAsNothingIsChosen) {
  auto* index = static_cast<std::int32_t*>(hiddenSymbol(handle, "VariantIndex"));
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
  auto* index = static_cast<std::int32_t*>(hiddenSymbol(handle, "VariantIndex"));
  const auto version = exported<const pxmVersionRecord*()>("legacy90pxmccGetLibVersion");
  ASSERT_TRUE(index != nullptr && version != nullptr);
  const std::int32_t chosen = *index;
  const char* const tags[] = {"mx", "m7", "u8", "n8", "y8", "e9", "l9"};
  for (std::int32_t variant = 0; variant < 7; ++variant) {
    *index = variant;
    EXPECT_STREQ(version()->variantTag, tags[variant]);
  }
  *index = chosen;
}

}  // namespace
