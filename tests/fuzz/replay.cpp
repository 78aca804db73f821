// SPDX-License-Identifier: MIT
// Runs inputs without a fuzzer. Usage: PROGRAM FILE..., where a FILE is one input, or, if its name
// ends in .inputs, many: each after the number of its bytes, in two bytes, the low one first.
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/fuzz/calls.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

using Bytes = std::vector<char>;

long inputs = 0;

// From a copy of its own, so that a sanitizer sees who reads beyond its end.
void run(const char* begin, const char* end) {
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(end - begin));
  if (begin != end) std::memcpy(bytes.data(), begin, bytes.size());
  LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  ++inputs;
}

bool runAll(const Bytes& packed) {
  const char* next = packed.data();
  const char* const end = next + packed.size();
  while (end - next >= 2) {
    const auto low = static_cast<unsigned char>(next[0]),
               high = static_cast<unsigned char>(next[1]);
    const std::ptrdiff_t size = low + 256 * high;
    next += 2;
    if (end - next < size) return false;
    run(next, next + size);
    next += size;
  }
  return next == end;
}

bool replay(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  if (!file) {
    std::perror(name.c_str());
    return false;
  }
  const Bytes bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!name.ends_with(".inputs")) {
    run(bytes.data(), bytes.data() + bytes.size());
  } else if (!runAll(bytes)) {
    std::fprintf(stderr, "%s is cut\n", name.c_str());
    return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i)
    if (!replay(argv[i])) return 1;
  std::printf("cases: %ld inputs\n", inputs);
  if (callCounts().calls > 0)
    std::printf("cases: %llu calls\n", static_cast<unsigned long long>(callCounts().calls));
  return inputs > 0 ? 0 : 1;
}
