// SPDX-License-Identifier: MIT
// How deep calls go on the stack: each conversion on a stack whose every byte is known before the
// call and seen after it, in every variant, at widths and heights to 100, rows downwards and, but
// for the twist, upwards. Optimized code alone keeps to the limit.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "frame/dispatch.h"
#include "tests/support/cases.h"
#include "tests/support/exported_calls.h"
#include "tests/support/own_stack.h"
#include "tests/traces/calls.h"

namespace {

Cases& cases = casesOf("calls on a stack of which every byte is seen");

constexpr std::size_t mostBytes = 1024;

// The deepest call of a conversion in a variant.
struct Depth {
  std::size_t bytes;
  std::string where;
  pxmSize size;
};

std::size_t depthOf(const Export& e, const CallArguments& a, OwnStack& stack) {
  AllRegisters registers = {};
  const Words words = e.words(a);
  std::copy(words.begin(), words.end(), registers.general);
  stack.call(e.function, registers);
  ++cases;
  return stack.depth();
}

// Every width in a row, a pair of rows and both together; every height.
std::vector<pxmSize> stackSizes() {
  std::vector<pxmSize> sizes;
  for (int side = 0; side <= 100; ++side) {
    for (const int height : {1, 2, 3}) sizes.push_back({side, height});
    sizes.push_back({33, side});
  }
  return sizes;
}

Depth deepest(const Export& e, const char* tag, TallImages& images, OwnStack& stack) {
  Depth most = {0, std::string(e.conversion.name) + " in " + tag, {}};
  for (const pxmSize size : stackSizes())
    for (const bool upwards : {false, true}) {
      if (upwards && e.conversion.kind == Kind::Twist) continue;
      const std::size_t bytes = depthOf(e, images.arguments(size, upwards), stack);
      if (bytes > most.bytes) {
        most.bytes = bytes;
        most.size = size;
      }
    }
  return most;
}

void printWorst(std::vector<Depth> depths) {
  std::sort(depths.begin(), depths.end(),
            [](const Depth& a, const Depth& b) { return a.bytes > b.bytes; });
  std::printf("most stack of a call, in bytes below its return address:\n");
  for (std::size_t i = 0; i < std::min<std::size_t>(5, depths.size()); ++i)
    std::printf("%6zu  %s, %dx%d\n", depths[i].bytes, depths[i].where.c_str(), depths[i].size.width,
                depths[i].size.height);
}

TEST(Stack, ACallNeedsAKibibyteAtMost) {
  SCOPED_TRACE(seedMessage());
  Random random("stack use");
  TallImages images(random);
  OwnStack stack;
  std::vector<Depth> depths;
  for (const int variant : runnableVariants()) {
    const SelectedVariant selected(variant);
    for (const Export& e : allExports()) {
      depths.push_back(deepest(e, variantTags[variant], images, stack));
      EXPECT_LE(depths.back().bytes, mostBytes) << depths.back().where;
      EXPECT_TRUE(stack.isKeptAbove()) << depths.back().where;
    }
  }
  printWorst(depths);
}

// Services, and start-up on the way to a conversion that then rejects.
TEST(Stack, ServicesAndStartUpNeedAKibibyteAtMost) {
  OwnStack stack;
  legacy90pxmccInit();
  const std::int32_t chosen = VariantIndex;
  int threads = 0;
  for (const ServiceCall& service : serviceCalls(&threads))
    for (const std::int32_t index : {-1, chosen}) {
      VariantIndex = index;
      pxm::featureMaskCache = {0, 0};
      AllRegisters registers = {};
      std::copy(service.words.begin(), service.words.end(), registers.general);
      stack.call(service.function, registers);
      EXPECT_LE(stack.depth(), mostBytes) << service.name;
      ++cases;
    }
  for (const Export& e : allExports()) {
    VariantIndex = -1;
    pxm::featureMaskCache = {0, 0};
    EXPECT_LE(depthOf(e, CallArguments{}, stack), mostBytes) << e.conversion.name;
  }
  VariantIndex = chosen;
}

TEST(Stack, EveryByteIsCounted) {
  OwnStack stack;
  const AllRegisters nothing = {};
  stack.call(reinterpret_cast<const void*>(recordArrival), nothing);
  EXPECT_EQ(stack.depth(), 0u);
  stack.call(reinterpret_cast<const void*>(useStack64), nothing);
  EXPECT_EQ(stack.depth(), 64u);
  stack.call(reinterpret_cast<const void*>(useStack2000), nothing);
  EXPECT_EQ(stack.depth(), 2000u);
}

}  // namespace
