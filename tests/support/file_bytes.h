// SPDX-License-Identifier: MIT
// The bytes of a file, and records that stand anywhere in them.
#ifndef TESTS_SUPPORT_FILE_BYTES_H_
#define TESTS_SUPPORT_FILE_BYTES_H_

#include <cstddef>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// None where there is no such file.
inline std::vector<char> bytesOfFile(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// The T that stands at an offset, aligned or not.
template <class T>
T recordAt(const std::vector<char>& bytes, std::size_t offset) {
  T record;
  std::memcpy(&record, bytes.data() + offset, sizeof record);
  return record;
}

#endif
