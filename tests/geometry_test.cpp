// SPDX-License-Identifier: MIT
// Every conversion at many sizes, pitches and places against the oracle: the bytes written, and
// those that must not be. Guard pages stand on both sides of every source and destination, directly
// beside the bytes that may be touched.
#include "tests/support/geometry.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "catalogue/variants.h"
#include "tests/support/least_size.h"
#include "tests/support/memory.h"

namespace {

class Geometry : public testing::TestWithParam<Conversion> {};

// Every stride-th layout of a size; over the sizes every layout has its turn.
void expectLikeOracle(const Conversion& conversion, int leastWidth, pxmSize most,
                      std::size_t stride) {
  SCOPED_TRACE(seedMessage());
  const int leastHeight = leastSize(conversion).height;
  Random random{std::string(conversion.name)};
  CallMemory memory(most.width, most.height, mostPadding);
  std::size_t next = 0;
  for (const int variant : runnableVariants())
    for (int width = leastWidth; width <= most.width; ++width)
      for (int height = leastHeight; height <= most.height; ++height) {
        const std::vector<Layout> layouts = layoutsOf(conversion, width, height);
        for (; next < layouts.size(); next += stride)
          ASSERT_TRUE(memory.matchesOracle(conversion, variant, layouts[next], random));
        next -= layouts.size();
      }
}

TEST_P(Geometry, WidthsTo40ByHeightsTo6) {
  expectLikeOracle(GetParam(), leastSize(GetParam()).width, {40, 6}, 11);
}

// An iteration works on 32 columns at most: two of them, and every remainder.
TEST_P(Geometry, WidthsTo70ByHeightsTo3) {
  expectLikeOracle(GetParam(), 41, {70, 3}, 37);
}

INSTANTIATE_TEST_SUITE_P(, Geometry, testing::ValuesIn(conversions()),
                         [](const auto& info) { return std::string(info.param.name); });

// Rows that overlap, and pitches of zero: the destination is what rows from top to bottom leave.
class Overlap : public testing::TestWithParam<Conversion> {};

// Where two rows are encoded at once, which of them a shared byte keeps is a matter of the blocks.
std::vector<int> variantsWithRowsInOrder(const Conversion& conversion) {
  std::vector<int> variants = runnableVariants();
  if (conversion.kind == Kind::Encode && conversion.has("420_"))
    std::erase_if(variants, [](int variant) { return variant > 0; });
  return variants;
}

TEST_P(Overlap, RowsAreWrittenInOrder) {
  // One iteration at most, and then some with more.
  constexpr int narrow = 19, mostWidth = 51, mostHeight = 5;
  SCOPED_TRACE(seedMessage());
  const Conversion& conversion = GetParam();
  const pxmSize least = leastSize(conversion);
  Random random{std::string(conversion.name)};
  CallMemory memory(mostWidth, mostHeight, mostPadding);
  for (const int variant : variantsWithRowsInOrder(conversion))
    for (int width = least.width; width <= mostWidth; width += width < narrow ? 1 : 16)
      for (int height = least.height; height <= mostHeight; ++height)
        for (const int padding : {-2 * width, -width, -width / 2, -2, -1})
          for (const bool upwards : {false, true}) {
            Layout layout = {width, height, 5, padding, false, upwards, Against::LastPage, 0};
            ASSERT_TRUE(memory.matchesOracle(conversion, variant, layout, random));
          }
}

std::vector<Conversion> conversionsWithoutTwist() {
  std::vector<Conversion> some;
  for (const Conversion& conversion : conversions())
    if (conversion.kind != Kind::Twist) some.push_back(conversion);
  return some;
}

INSTANTIATE_TEST_SUITE_P(, Overlap, testing::ValuesIn(conversionsWithoutTwist()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
