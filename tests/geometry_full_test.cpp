// SPDX-License-Identifier: MIT
// Every conversion of every level at every size to 80 by 8 in every layout, against the oracle. Run
// as a whole, it closes with a table of the calls that were compared. PXM_TEST_STRIDE=n in the
// environment takes every n-th layout, other ones at each size, for builds that are slow.
#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <string>

#include "catalogue/variants.h"
#include "tests/support/cases.h"
#include "tests/support/geometry.h"
#include "tests/support/least_size.h"
#include "tests/support/memory.h"
#include "tests/support/stride.h"

namespace {

Cases& cases = casesOf("calls between guard pages");

constexpr int mostWidth = 80, mostHeight = 8;

// "YCbCr420To", "BGR565To" and so on.
std::string familyOf(const Conversion& conversion) {
  if (conversion.kind == Kind::Twist) return "ColorTwist";
  if (conversion.kind == Kind::Depth) return "565 and 888";
  const std::string name(conversion.name);
  return name.substr(0, name.find("To")) + (conversion.has("_C2C3R") ? " packed" : "") +
         (conversion.has("8u16u_C3R") ? " packed" : "");
}

struct Count {
  int conversions = 0;
  long calls = 0;
};
std::map<std::string, Count> counts;

// Which variant stands for each level.
void printLevels(const char* what, Kind kind) {
  std::printf("%s of", what);
  for (const int variant : runnableLevels(kind))
    std::printf(" %.*s (%s)", static_cast<int>(kernelLevel(variant, kind).size()),
                kernelLevel(variant, kind).data(), variantTags[variant]);
  std::printf("\n");
}

class Table : public testing::Environment {
  void TearDown() override {
    Count all;
    std::printf("%-16s %12s %12s\n", "from", "conversions", "calls");
    for (const auto& [family, count] : counts) {
      std::printf("%-16s %12d %12ld\n", family.c_str(), count.conversions, count.calls);
      all.conversions += count.conversions;
      all.calls += count.calls;
    }
    std::printf("%-16s %12d %12ld\n", "all", all.conversions, all.calls);
    printLevels("kernels", Kind::Decode);
    printLevels("depth kernels", Kind::Depth);
  }
};
const testing::Environment* const table = testing::AddGlobalTestEnvironment(new Table);

class GeometryFull : public testing::TestWithParam<Conversion> {};

TEST_P(GeometryFull, WidthsTo80ByHeightsTo8InEveryLayout) {
  SCOPED_TRACE(seedMessage());
  const Conversion& conversion = GetParam();
  const pxmSize least = leastSize(conversion);
  Random random{std::string(conversion.name)};
  CallMemory memory(mostWidth, mostHeight, mostPadding);
  Count& count = counts[familyOf(conversion)];
  ++count.conversions;
  int turn = 0;
  for (const int variant : runnableLevels(conversion.kind))
    for (int width = least.width; width <= mostWidth; ++width)
      for (int height = least.height; height <= mostHeight; ++height)
        for (const Layout& layout : layoutsOf(conversion, width, height))
          if (turn++ % testStride() == 0) {
            ASSERT_TRUE(memory.matchesOracle(conversion, variant, layout, random));
            ++count.calls;
            ++cases;
          }
}

INSTANTIATE_TEST_SUITE_P(, GeometryFull, testing::ValuesIn(conversions()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
