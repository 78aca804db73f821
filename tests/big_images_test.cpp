// SPDX-License-Identifier: MIT
// Images with a long side, against the oracle: a million columns and a little more, in rows and
// pairs of rows; a million rows of one and of a few pixels.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "catalogue/variants.h"
#include "tests/support/cases.h"
#include "tests/support/geometry.h"
#include "tests/support/least_size.h"
#include "tests/support/memory.h"
#include "tests/support/stride.h"

namespace {

Cases& cases = casesOf("calls with 2^20 columns or rows");

constexpr int million = 1 << 20;

class BigImages : public testing::TestWithParam<Conversion> {
 protected:
  // In every variant, or in every stride-th.
  void expectLikeOracle(pxmSize size) {
    SCOPED_TRACE(seedMessage());
    const Conversion& c = GetParam();
    const std::vector<int> variants = inTurn(runnableVariants(), c.name, 4);
    if (variants.empty()) return;
    Random random{std::string(c.name)};
    CallMemory memory(size.width + 2, size.height, 0);
    const Layout layout = {size.width, size.height, 0, 0, false, false, Against::LastPage, 0};
    for (const int variant : variants) {
      ASSERT_TRUE(memory.matchesOracle(c, variant, layout, random));
      ++cases;
    }
  }
};

TEST_P(BigImages, AMillionColumns) {
  expectLikeOracle({million, leastSize(GetParam()).height});
}

// An odd number, so that pairs of rows leave one.
TEST_P(BigImages, AMillionRows) {
  expectLikeOracle({leastSize(GetParam()).width, million + 1});
}

INSTANTIATE_TEST_SUITE_P(, BigImages, testing::ValuesIn(conversions()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
