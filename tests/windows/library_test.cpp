// SPDX-License-Identifier: MIT
// What a file of a library has on Windows alone: ordinals, the place of tables among the code,
// unwind information, notifications, the version resource.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/shared_library.h"
#include "catalogue/variants.h"
#include "include/pxmcc90lgc.h"

namespace {

// In byte order.
constexpr const char* everyExport[] = {
#define SERVICE(name) "legacy90pxmcc" #name,
#define CONVERSION(name, family) "legacy90pxmi" #name,
#include "frame/conversions.def"
};

constexpr std::string_view dispatched[] = {
#define SERVICE(name)
#define DISPATCHED_SERVICE(name) "legacy90pxmcc" #name,
#define CONVERSION(name, family) "legacy90pxmi" #name,
#include "frame/conversions.def"
};

class WindowsLibrary : public testing::Test {
 protected:
  WindowsLibrary() : module(LoadLibraryA(PXM_LIBRARY)) {
    if (module != nullptr) symbols = hiddenSymbols(module);
  }
  ~WindowsLibrary() override {
    if (module != nullptr) FreeLibrary(module);
  }
  void SetUp() override { ASSERT_NE(module, nullptr) << GetLastError(); }

  const std::uint8_t* hidden(const std::string& name) {
    const auto found = symbols.find(name);
    return found == symbols.end() ? nullptr : static_cast<const std::uint8_t*>(found->second);
  }

  HMODULE module;
  std::map<std::string, void*> symbols;
};

TEST_F(WindowsLibrary, EveryExportIsFoundByNameAndByOrdinal) {
  ASSERT_EQ(std::size(everyExport), 102u);
  for (std::uintptr_t ordinal = 1; ordinal <= std::size(everyExport); ++ordinal) {
    const char* const name = everyExport[ordinal - 1];
    const FARPROC byName = GetProcAddress(module, name);
    EXPECT_NE(byName, nullptr) << name;
    EXPECT_EQ(byName, GetProcAddress(module, reinterpret_cast<LPCSTR>(ordinal))) << name;
  }
  EXPECT_EQ(GetProcAddress(module, reinterpret_cast<LPCSTR>(std::uintptr_t{103})), nullptr);
}

// Eight addresses, the first that of the trampoline; then its call of five bytes; then the stub.
TEST_F(WindowsLibrary, TableTrampolineAndStubStandDirectlyBehindEachOther) {
  for (const std::string_view name : dispatched) {
    const std::size_t prefix = name.starts_with("legacy90pxmcc") ? 13 : 12;
    const std::string plain(name.substr(prefix));
    const std::uint8_t* const table = hidden(plain + "_table");
    const std::uint8_t* const trampoline = hidden(plain + "_trampoline");
    ASSERT_TRUE(table != nullptr && trampoline != nullptr) << name;
    const std::uint8_t* entryMinus1;
    std::memcpy(&entryMinus1, table - 8, sizeof entryMinus1);
    EXPECT_EQ(entryMinus1, trampoline) << name;
    EXPECT_EQ(table + 7 * 8, trampoline) << name;
    EXPECT_EQ(trampoline + 5, reinterpret_cast<const std::uint8_t*>(
                                  GetProcAddress(module, std::string(name).c_str())))
        << name;
  }
}

// Who walks the stack below a first call meets the thunk, then the trampoline.
TEST_F(WindowsLibrary, ThunkAndTrampolinesCanBeUnwound) {
  const auto isKnown = [](const std::uint8_t* code) {
    DWORD64 base;
    return RtlLookupFunctionEntry(reinterpret_cast<DWORD64>(code), &base, nullptr) != nullptr;
  };
  ASSERT_NE(hidden("LazyStartThunk"), nullptr);
  EXPECT_TRUE(isKnown(hidden("LazyStartThunk")));
  for (const std::string_view name : dispatched) {
    const auto* const stub =
        reinterpret_cast<const std::uint8_t*>(GetProcAddress(module, std::string(name).c_str()));
    ASSERT_NE(stub, nullptr);
    EXPECT_TRUE(isKnown(stub - 5) && isKnown(stub)) << name;
  }
}

TEST_F(WindowsLibrary, OnlyTheNotificationOfAttachStartsIt) {
  using Entry = int(void*, unsigned, void*);
  auto* const entry =
      reinterpret_cast<Entry*>(const_cast<std::uint8_t*>(hidden("pxmLibraryEntry")));
  auto* const index =
      reinterpret_cast<std::int32_t*>(const_cast<std::uint8_t*>(hidden("VariantIndex")));
  ASSERT_TRUE(entry != nullptr && index != nullptr);
  const std::int32_t chosen = *index;
  EXPECT_GE(chosen, 0);
  *index = -1;
  for (const int reason : {DLL_PROCESS_DETACH, DLL_THREAD_ATTACH, DLL_THREAD_DETACH}) {
    EXPECT_EQ(entry(module, static_cast<unsigned>(reason), nullptr), 1);
    EXPECT_EQ(*index, -1) << reason;
  }
  EXPECT_EQ(entry(module, DLL_PROCESS_ATTACH, nullptr), 1);
  EXPECT_EQ(*index, chosen);
}

TEST_F(WindowsLibrary, PagesOfCodeCannotBeWritten) {
  MEMORY_BASIC_INFORMATION info;
  ASSERT_NE(VirtualQuery(hidden("LazyStartThunk"), &info, sizeof info), 0u);
  EXPECT_EQ(info.Protect, static_cast<DWORD>(PAGE_EXECUTE_READ));
}

TEST_F(WindowsLibrary, TheResourceTellsTheVersion) {
  DWORD ignored;
  const DWORD size = GetFileVersionInfoSizeA(PXM_LIBRARY, &ignored);
  ASSERT_GT(size, 0u);
  std::vector<char> resource(size);
  ASSERT_TRUE(GetFileVersionInfoA(PXM_LIBRARY, 0, size, resource.data()));
  void* value;
  UINT length;
  ASSERT_TRUE(VerQueryValueA(resource.data(), "\\", &value, &length));
  VS_FIXEDFILEINFO fixed;
  ASSERT_EQ(length, sizeof fixed);
  std::memcpy(&fixed, value, sizeof fixed);
  EXPECT_EQ(fixed.dwFileVersionMS, 9u << 16);
  EXPECT_EQ(fixed.dwFileVersionLS, 992u);
  EXPECT_EQ(fixed.dwProductVersionMS, 9u << 16);
  EXPECT_EQ(fixed.dwProductVersionLS, 992u);
  const std::map<std::string, std::string> texts = {{"FileVersion", "9.0.0.992"},
                                                    {"ProductVersion", "9.0.0.992"},
                                                    {"InternalName", "pxmcc90lgc"},
                                                    {"OriginalFilename", "pxmcc90lgc.dll"}};
  for (const auto& [key, text] : texts) {
    const std::string path = "\\StringFileInfo\\040904B0\\" + key;
    ASSERT_TRUE(VerQueryValueA(resource.data(), path.c_str(), &value, &length)) << key;
    EXPECT_EQ(static_cast<const char*>(value), text);
  }
}

}  // namespace
