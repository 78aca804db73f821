// SPDX-License-Identifier: MIT
// Bytes under a file name, without a disk.
#ifndef TESTS_FUZZ_MEMORY_FILE_H_
#define TESTS_FUZZ_MEMORY_FILE_H_

#include <cstddef>
#include <cstdint>
#include <string>

class MemoryFile {
 public:
  MemoryFile(const std::uint8_t* bytes, std::size_t size);
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

 private:
  int descriptor_;
};

#endif
