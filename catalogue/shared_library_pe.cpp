// SPDX-License-Identifier: MIT
#include <windows.h>

#include <cstddef>
#include <cstring>
#include <vector>

#include "catalogue/shared_library.h"
#include "tests/support/file_bytes.h"

namespace {

std::vector<char> fileOf(HMODULE module) {
  char path[MAX_PATH];
  if (GetModuleFileNameA(module, path, sizeof path) == 0) return {};
  return bytesOfFile(path);
}

// A symbol's name: eight characters, or zero and a place in the strings after the symbols.
std::string nameOf(const IMAGE_SYMBOL& symbol, const char* strings) {
  if (symbol.N.Name.Short == 0) return strings + symbol.N.Name.Long;
  const char* const name = reinterpret_cast<const char*>(symbol.N.ShortName);
  return {name, strnlen(name, sizeof symbol.N.ShortName)};
}

}  // namespace

void* openLibrary(const std::string& path) {
  return LoadLibraryA(path.c_str());
}

std::string openFailure() {
  return "the system's error is " + std::to_string(GetLastError());
}

void closeLibrary(void* library) {
  FreeLibrary(static_cast<HMODULE>(library));
}

void* exportedSymbol(void* library, const std::string& name) {
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name.c_str()));
}

std::map<std::string, void*> hiddenSymbols(void* library) {
  std::map<std::string, void*> symbols;
  const std::vector<char> file = fileOf(static_cast<HMODULE>(library));
  if (file.empty()) return symbols;
  const auto peHeader = static_cast<std::size_t>(recordAt<IMAGE_DOS_HEADER>(file, 0).e_lfanew);
  const auto header = recordAt<IMAGE_NT_HEADERS64>(file, peHeader);
  const std::size_t sections = peHeader + offsetof(IMAGE_NT_HEADERS64, OptionalHeader) +
                               header.FileHeader.SizeOfOptionalHeader;
  const std::size_t table = header.FileHeader.PointerToSymbolTable;
  const std::size_t count = header.FileHeader.NumberOfSymbols;
  const char* const strings = file.data() + table + count * IMAGE_SIZEOF_SYMBOL;
  for (std::size_t i = 0; i < count; ++i) {
    IMAGE_SYMBOL symbol;
    std::memcpy(&symbol, file.data() + table + i * IMAGE_SIZEOF_SYMBOL, IMAGE_SIZEOF_SYMBOL);
    i += symbol.NumberOfAuxSymbols;
    if (symbol.SectionNumber <= 0) continue;
    const auto section = recordAt<IMAGE_SECTION_HEADER>(
        file, sections + static_cast<std::size_t>(symbol.SectionNumber - 1) *
                             sizeof(IMAGE_SECTION_HEADER));
    symbols.emplace(nameOf(symbol, strings),
                    static_cast<char*>(library) + section.VirtualAddress + symbol.Value);
  }
  return symbols;
}
