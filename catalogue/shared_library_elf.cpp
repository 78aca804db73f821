// SPDX-License-Identifier: MIT
#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <vector>

#include "catalogue/shared_library.h"
#include "tests/support/file_bytes.h"

namespace {

// A name alone would be looked for among the installed libraries.
std::string withFolder(const std::string& path) {
  return path.find('/') == std::string::npos ? "./" + path : path;
}

}  // namespace

void* openLibrary(const std::string& path) {
  return dlopen(withFolder(path).c_str(), RTLD_NOW | RTLD_LOCAL);
}

std::string openFailure() {
  return dlerror();
}

void closeLibrary(void* library) {
  dlclose(library);
}

void* exportedSymbol(void* library, const std::string& name) {
  return dlsym(library, name.c_str());
}

std::map<std::string, void*> hiddenSymbols(void* library) {
  std::map<std::string, void*> symbols;
  link_map* map = nullptr;
  if (dlinfo(library, RTLD_DI_LINKMAP, &map) != 0) return symbols;
  const char* const path = *map->l_name == '\0' ? "/proc/self/exe" : map->l_name;  // the program
  const std::vector<char> file = bytesOfFile(path);
  const auto header = recordAt<Elf64_Ehdr>(file, 0);
  for (unsigned s = 0; s < header.e_shnum; ++s) {
    const auto section = recordAt<Elf64_Shdr>(file, header.e_shoff + s * sizeof(Elf64_Shdr));
    if (section.sh_type != SHT_SYMTAB) continue;
    const auto strings =
        recordAt<Elf64_Shdr>(file, header.e_shoff + section.sh_link * sizeof(Elf64_Shdr));
    for (std::size_t i = 0; i < section.sh_size; i += sizeof(Elf64_Sym)) {
      const auto symbol = recordAt<Elf64_Sym>(file, section.sh_offset + i);
      if (symbol.st_shndx == SHN_UNDEF) continue;
      symbols.emplace(file.data() + strings.sh_offset + symbol.st_name,
                      reinterpret_cast<void*>(map->l_addr + symbol.st_value));
    }
  }
  return symbols;
}
