// SPDX-License-Identifier: MIT
// How much of a long test a slow build runs: every n-th case, in turn, by PXM_TEST_STRIDE=n.
#ifndef TESTS_SUPPORT_STRIDE_H_
#define TESTS_SUPPORT_STRIDE_H_

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <string_view>
#include <vector>

inline int testStride() {
  static const char* const text = std::getenv("PXM_TEST_STRIDE");
  return text == nullptr ? 1 : std::max(1, std::atoi(text));
}

// About every n-th of some cases, or every (n * cost)-th of long ones; other ones for each name.
template <typename Case>
std::vector<Case> inTurn(const std::vector<Case>& all, std::string_view name, int cost = 1) {
  const int stride = testStride() == 1 ? 1 : testStride() * cost;
  std::size_t turn = std::hash<std::string_view>{}(name);
  std::vector<Case> some;
  for (const Case& each : all)
    if (turn++ % static_cast<std::size_t>(stride) == 0) some.push_back(each);
  return some;
}

#endif
