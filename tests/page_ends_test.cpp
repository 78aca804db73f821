// SPDX-License-Identifier: MIT
// Arrays of planes, arrays of pitches and the twist's matrix at the very end and at the very start
// of a page that can be read and no more, with a page that nothing may touch beside it: not a byte
// of them is read that is not there, and none is written.
#include <gtest/gtest.h>

#include <cstring>
#include <deque>
#include <string>
#include <vector>

#include "catalogue/variants.h"
#include "tests/support/cases.h"
#include "tests/support/geometry.h"
#include "tests/support/guarded.h"
#include "tests/support/images.h"
#include "tests/support/least_size.h"
#include "tests/support/pages.h"
#include "tests/support/placed_arrays.h"

namespace {

Cases& cases = casesOf("calls with their arrays beside guard pages");

// The arrays of a call, each in a page of its own.
class ArraysAtPageEnds {
 public:
  ArraysAtPageEnds(const Export& e, const CallArguments& a, Against side) : words_(e.words(a)) {
    for (const TakenArray& array : takenArrays(e, a)) {
      const GuardedBytes& page = pages_.emplace_back(1);
      std::uint8_t* const place =
          side == Against::FirstPage ? page.begin() : page.end() - array.size;
      std::memcpy(place, array.bytes, array.size);
      setAccess(page.begin(), page.size(), Access::Read);
      words_[array.word] = reinterpret_cast<std::uintptr_t>(place);
    }
  }

  const Words& words() const { return words_; }

 private:
  std::deque<GuardedBytes> pages_;
  Words words_;
};

std::vector<const Export*> exportsWithArrays() {
  std::vector<const Export*> some;
  const CallArguments a = {};
  for (const Export& e : allExports())
    if (!takenArrays(e, a).empty()) some.push_back(&e);
  return some;
}

class PageEnds : public testing::TestWithParam<const Export*> {};

TEST_P(PageEnds, ArraysAreReadWithinTheirBounds) {
  SCOPED_TRACE(seedMessage());
  const Export& e = *GetParam();
  const pxmSize least = leastSize(e.conversion);
  Random random{std::string(e.conversion.name)};
  const Images before(random);
  Images byPageEnds = before, byCompiler = before;
  for (const pxmSize size : {least, pxmSize{7, 2}, pxmSize{16, 3}, pxmSize{33, 5}, pxmSize{96, 4}})
    for (const Against side : {Against::FirstPage, Against::LastPage}) {
      const CallArguments a = byPageEnds.arguments(size);
      const ArraysAtPageEnds arrays(e, a, side);
      for (const int variant : runnableVariants()) {
        const SelectedVariant selected(variant);
        byPageEnds.dst = byCompiler.dst = before.dst;
        ASSERT_EQ(callWithWords(e, arrays.words()), e.conversion.call(byCompiler.arguments(size)));
        ASSERT_TRUE(byPageEnds.dst == byCompiler.dst) << variantTags[variant] << " " << size.width;
        ++cases;
      }
    }
}

INSTANTIATE_TEST_SUITE_P(, PageEnds, testing::ValuesIn(exportsWithArrays()),
                         [](const auto& info) { return std::string(info.param->conversion.name); });

TEST(PageEndsList, EveryPlanarConversionAndEveryTwistTakesArrays) {
  for (const Conversion& c : conversions()) {
    const CallArguments a = {};
    const std::size_t planes = (c.has("P3C3R") || c.has("IP3R") ? 1u : 0u) +
                               (c.has("C3P3R") ? 1u : 0u) + (c.has("8s_P3R") ? 2u : 0u);
    const bool hasPitches =
        c.kind == Kind::Encode ? c.has("P3R") : c.has("P3C3R") && !c.has("YCbCrTo");
    EXPECT_EQ(takenArrays(exportNamed(c.name), a).size(),
              planes + (hasPitches ? 1u : 0u) + (c.kind == Kind::Twist ? 1u : 0u))
        << c.name;
  }
}

#ifndef _WIN32  // where the framework catches what a wrong address raises
// A matrix that ends 4 bytes early, or begins 4 late, is read past the page; so is an array of
// planes that has two.
TEST(PageEndsDeathTest, AReadPastThePageIsSeen) {
  Random random("page ends");
  Images images(random);
  const CallArguments a = images.arguments({16, 3});
  for (const char* const name : {"ColorTwist32f_8s_C3R", "YCbCr420ToBGR565_8u16u_P3C3R"})
    for (const int step : {4, -4}) {
      const Export& e = exportNamed(name);
      const ArraysAtPageEnds arrays(e, a, step > 0 ? Against::LastPage : Against::FirstPage);
      Words words = arrays.words();
      for (const TakenArray& array : takenArrays(e, a))
        words[array.word] += static_cast<std::uint64_t>(step);
      EXPECT_DEATH(callWithWords(e, words), "") << name << " " << step;
    }
}
#endif

}  // namespace
