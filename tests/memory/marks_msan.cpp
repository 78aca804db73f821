// SPDX-License-Identifier: MIT
#include <sanitizer/msan_interface.h>

#include "tests/memory/marks.h"

namespace marks {

const char* checker() {
  return "MemorySanitizer";
}

void forbid(const void* bytes, std::size_t count) {
  __msan_poison(bytes, count);
}

void undefine(const void* bytes, std::size_t count) {
  __msan_poison(bytes, count);
}

void define(const void* bytes, std::size_t count) {
  __msan_unpoison(bytes, count);
}

bool hasValue(const void* bytes, std::size_t count) {
  return __msan_test_shadow(bytes, count) == -1;
}

bool isWithoutValue(const void* bytes, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i)
    if (hasValue(static_cast<const char*>(bytes) + i, 1)) return false;
  return true;
}

bool followsProductSums() {
  return true;
}

// A report ends the process.
unsigned reports() {
  return 0;
}

}  // namespace marks
