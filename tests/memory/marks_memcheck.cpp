// SPDX-License-Identifier: MIT
#include <valgrind/memcheck.h>

#include "tests/memory/marks.h"

namespace marks {

const char* checker() {
  return RUNNING_ON_VALGRIND ? "memcheck" : nullptr;
}

void forbid(const void* bytes, std::size_t count) {
  (void)VALGRIND_MAKE_MEM_NOACCESS(bytes, count);
}

void undefine(const void* bytes, std::size_t count) {
  (void)VALGRIND_MAKE_MEM_UNDEFINED(bytes, count);
}

void define(const void* bytes, std::size_t count) {
  (void)VALGRIND_MAKE_MEM_DEFINED(bytes, count);
}

bool hasValue(const void* bytes, std::size_t count) {
  return VALGRIND_CHECK_MEM_IS_DEFINED(bytes, count) == 0;
}

bool isWithoutValue(const void*, std::size_t) {
  return true;
}

bool followsProductSums() {
  return false;
}

unsigned reports() {
  return static_cast<unsigned>(VALGRIND_COUNT_ERRORS);
}

}  // namespace marks
