// SPDX-License-Identifier: MIT
// Preloaded into a test program: puts the fault that PXM_BAD_KERNEL names in its place before the
// program begins. The program is the one that passes, byte for byte.
#include <dlfcn.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>

#include "catalogue/shared_library.h"
#include "catalogue/variants.h"
#include "tests/bad_kernels/faults.h"

void* goodEntry;
void* const* goodEntries;
std::int32_t* goodVariantIndex;
void* goodStartUp;

namespace {

struct BadEntry {
  const char *name, *conversion, *tag;
  bool inLibrary;
  void* function;
};

const BadEntry badEntries[] = {
#define ROW(name, conversion, tag, inLibrary) \
  {#name, #conversion, #tag, inLibrary, reinterpret_cast<void*>(bad_##name)},
#define KERNEL(name, conversion, tag, ...) ROW(name, conversion, tag, false)
#define LIBRARY_KERNEL(name, conversion, tag, ...) ROW(name, conversion, tag, true)
#include "tests/bad_kernels/faults.def"
};

struct BadFunction {
  const char *name, *symbol;
  void* function;
};

extern "C" {
#define KERNEL(...)
#define FUNCTION(name, ...) [[gnu::visibility("hidden")]] void bad_##name();
#include "tests/bad_kernels/faults.def"
}

const BadFunction badFunctions[] = {
#define KERNEL(...)
#define FUNCTION(name, symbol, ...) {#name, #symbol, reinterpret_cast<void*>(bad_##name)},
#include "tests/bad_kernels/faults.def"
};

[[noreturn]] void fail(const std::string& why) {
  std::fprintf(stderr, "PXM_BAD_KERNEL: %s\n", why.c_str());
  std::_Exit(2);
}

// Everything that a program or a library defines, hidden names included.
std::map<std::string, void*> symbolsOf(bool library) {
  const char* const path = library ? std::getenv("PXM_BAD_LIBRARY") : nullptr;
  if (library && path == nullptr) fail("PXM_BAD_LIBRARY does not say where the library is");
  void* const handle = dlopen(path, RTLD_NOW);  // null: the program
  if (handle == nullptr) fail(dlerror());
  return hiddenSymbols(handle);
}

void* symbol(const std::map<std::string, void*>& symbols, const std::string& name) {
  const auto found = symbols.find(name);
  if (found == symbols.end()) fail("there is no " + name);
  return found->second;
}

// Writes over what is read-only: tables after relocation, code.
void overwrite(void* place, const void* bytes, std::size_t count, int accessAfter) {
  const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  const auto first = reinterpret_cast<std::uintptr_t>(place) / page * page;
  const std::size_t size = reinterpret_cast<std::uintptr_t>(place) + count - first;
  auto* const pages = reinterpret_cast<void*>(first);
  if (mprotect(pages, size, PROT_READ | PROT_WRITE) != 0) fail("a page cannot be written");
  std::memcpy(place, bytes, count);
  mprotect(pages, size, accessAfter);
}

void replaceEntry(const BadEntry& bad) {
  const auto symbols = symbolsOf(bad.inLibrary);
  void** const table = static_cast<void**>(symbol(symbols, std::string(bad.conversion) + "_table"));
  static void* entries[variantCount];
  std::memcpy(entries, table, sizeof entries);
  goodEntries = entries;
  goodVariantIndex = static_cast<std::int32_t*>(symbol(symbols, "VariantIndex"));
  const int variant = variantNamed(bad.tag);
  goodEntry = entries[variant];
  overwrite(table + variant, &bad.function, sizeof bad.function, PROT_READ);
}

// Its first instructions become a jump: movabs $function, %rax; jmp *%rax.
void replaceFunction(const BadFunction& bad) {
  const auto symbols = symbolsOf(false);
  goodStartUp = symbol(symbols, "_ZN3pxm7startUpERKNS_9ProcessorERNS_16FeatureMaskCacheE");
  goodVariantIndex = static_cast<std::int32_t*>(symbol(symbols, "VariantIndex"));
  std::uint8_t jump[12] = {0x48, 0xB8, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xE0};
  std::memcpy(jump + 2, &bad.function, sizeof bad.function);
  overwrite(symbol(symbols, bad.symbol), jump, sizeof jump, PROT_READ | PROT_EXEC);
}

[[gnu::constructor]] void install() {
  const char* const wanted = std::getenv("PXM_BAD_KERNEL");
  if (wanted == nullptr) return;
  for (const BadEntry& bad : badEntries)
    if (std::strcmp(bad.name, wanted) == 0) return replaceEntry(bad);
  for (const BadFunction& bad : badFunctions)
    if (std::strcmp(bad.name, wanted) == 0) return replaceFunction(bad);
  fail(std::string("there is no fault ") + wanted);
}

}  // namespace
