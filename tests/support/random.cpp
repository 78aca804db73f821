// SPDX-License-Identifier: MIT
#include "tests/support/random.h"

#include <cstdlib>
#include <cstring>

std::uint64_t testSeed() {
  static const std::uint64_t seed = [] {
    if (const char* text = std::getenv("PXM_TEST_SEED")) return std::strtoull(text, nullptr, 0);
    return static_cast<unsigned long long>(std::random_device{}());
  }();
  return seed;
}

std::string seedMessage() {
  return "PXM_TEST_SEED=" + std::to_string(testSeed());
}

Random::Random(const std::string& what) {
  std::uint64_t hash = 14695981039346656037u ^ testSeed();
  for (const char c : what) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
  engine_.seed(hash);
}

void Random::fill(void* bytes, std::size_t count) {
  auto* out = static_cast<unsigned char*>(bytes);
  for (; count >= sizeof(std::uint64_t); count -= sizeof(std::uint64_t)) {
    const std::uint64_t word = engine_();
    std::memcpy(out, &word, sizeof word);
    out += sizeof word;
  }
  const std::uint64_t last = engine_();
  std::memcpy(out, &last, count);
}
