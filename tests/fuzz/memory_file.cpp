// SPDX-License-Identifier: MIT
#include "tests/fuzz/memory_file.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

MemoryFile::MemoryFile(const std::uint8_t* bytes, std::size_t size)
    : descriptor_(memfd_create("input", MFD_CLOEXEC)) {
  if (descriptor_ >= 0 && write(descriptor_, bytes, size) == static_cast<ssize_t>(size)) return;
  std::perror("memfd_create");
  std::abort();
}

MemoryFile::~MemoryFile() {
  close(descriptor_);
}
