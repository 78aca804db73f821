// SPDX-License-Identifier: MIT
// How much of a long test a slow build runs: every n-th case, in turn, by PXM_TEST_STRIDE=n.
#ifndef TESTS_SUPPORT_STRIDE_H_
#define TESTS_SUPPORT_STRIDE_H_

#include <algorithm>
#include <cstdlib>

inline int testStride() {
  static const char* const text = std::getenv("PXM_TEST_STRIDE");
  return text == nullptr ? 1 : std::max(1, std::atoi(text));
}

#endif
