// SPDX-License-Identifier: MIT
// The remainder of a row: which columns blocks take, and the copies to and from a scratch block,
// which touch not a byte more than they must.
#define PXM_LEVEL tested
#define PXM_SIMD
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/support/guarded.h"
#include "vector/decode/plan.inl"
#include "vector/scratch.inl"

namespace pxm::tested {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Sizes = std::vector<int>;

TEST(BlockPlans, VectorColumnsByLiteralWidths) {
  const auto columns = [](const BlockPlan& plan) {
    Sizes all;
    for (const int width : {1, 3, 4, 7, 8, 11, 14, 15, 16, 23, 31, 32, 47})
      all.push_back(VectorColumns(plan, width));
    return all;
  };
  EXPECT_EQ(columns(planByEight), (Sizes{0, 0, 0, 0, 8, 8, 8, 8, 16, 16, 24, 32, 40}));
  EXPECT_EQ(columns(planByEightFour), (Sizes{0, 0, 4, 4, 8, 8, 12, 12, 16, 20, 28, 32, 44}));
  EXPECT_EQ(columns(planByEightFourTwo), (Sizes{0, 2, 4, 6, 8, 10, 14, 14, 16, 22, 30, 32, 46}));
  EXPECT_EQ(columns(planBySixteenEight), (Sizes{0, 0, 0, 0, 8, 8, 8, 8, 16, 16, 24, 32, 40}));
}

// Where n bytes lie that end or begin directly at a guard page.
std::uint8_t* placed(const GuardedBytes& memory, Against side, int n) {
  return placeImage(memory, side, 0, {{0, n}});
}

Bytes contents(const GuardedBytes& memory) {
  return {memory.begin(), memory.end()};
}

void fill(const GuardedBytes& memory, unsigned seed) {
  for (std::size_t i = 0; i < memory.size(); ++i)
    memory.begin()[i] = static_cast<std::uint8_t>((i + seed) * 2654435761u >> 11);
}

constexpr Against sides[] = {Against::FirstPage, Against::LastPage};

TEST(Scratch, CopiesOneTo100BytesAndNotAByteMore) {
  const GuardedBytes from(1), to(1);
  for (int n = 1; n <= 100; ++n)
    for (const Against fromSide : sides)
      for (const Against toSide : sides) {
        fill(from, 1);
        fill(to, 2);
        const Bytes source = contents(from);
        Bytes expected = contents(to);
        const std::uint8_t* const first = placed(from, fromSide, n);
        std::uint8_t* const out = placed(to, toSide, n);
        for (int i = 0; i < n; ++i)
          expected[static_cast<std::size_t>(out - to.begin() + i)] = first[i];
        copyBytes(out, first, n);
        EXPECT_EQ(contents(to), expected) << n;
        EXPECT_EQ(contents(from), source) << n;
      }
}

// Two rows that lie `distance` bytes apart, as blocks of literal sizes leave them.
Bytes expectedPairs(const GuardedBytes& memory, const std::uint8_t* upper, int distance,
                    const Bytes& fromUpper, const Bytes& fromLower, const Sizes& blocks) {
  Bytes bytes = contents(memory);
  std::ptrdiff_t place = upper - memory.begin();
  std::ptrdiff_t x = 0;
  for (const int size : blocks) {
    for (const bool isLower : {false, true})
      for (std::ptrdiff_t i = 2 * x; i < 2 * (x + size); ++i)
        bytes[static_cast<std::size_t>(place + (isLower ? distance : 0) + i)] =
            (isLower ? fromLower : fromUpper)[static_cast<std::size_t>(i)];
    x += size;
  }
  return bytes;
}

template <BlockPlan plan>
void expectPairsInBlocks(const Sizes& blocks) {
  int n = 0;
  for (const int size : blocks) n += size;
  const GuardedBytes upperScratch(1), lowerScratch(1), target(1);
  fill(upperScratch, 1);
  fill(lowerScratch, 2);
  const std::uint8_t* const fromUpper = placed(upperScratch, Against::LastPage, 2 * n);
  const std::uint8_t* const fromLower = placed(lowerScratch, Against::LastPage, 2 * n);
  const Bytes upperBytes(fromUpper, fromUpper + 2 * n), lowerBytes(fromLower, fromLower + 2 * n);
  for (int distance = -2 * n - 3; distance <= 2 * n + 3; ++distance) {
    fill(target, 3);
    const std::ptrdiff_t first = std::min(0, distance), last = std::max(0, distance) + 2 * n;
    std::uint8_t* const upper = placeImage(target, Against::LastPage, 0, {{first, last}});
    const Bytes expected = expectedPairs(target, upper, distance, upperBytes, lowerBytes, blocks);
    copyPixelPairs<plan>(upper, fromUpper, upper + distance, fromLower, n);
    EXPECT_EQ(contents(target), expected) << n << " pixels, " << distance << " bytes apart";
  }
}

// Rows that overlap show the order: block by block, upper row first.
TEST(Scratch, CopiesPairsOfRowsInTheOrderOfBlocks) {
  expectPairsInBlocks<planByEightFour>({1});
  expectPairsInBlocks<planByEightFour>({4, 2, 1});
  expectPairsInBlocks<planByEightFour>({8, 4, 2, 1});
  expectPairsInBlocks<planByEightFour>({8, 8, 8, 4, 2, 1});
  expectPairsInBlocks<planByEightFourTwo>({4, 2});
  expectPairsInBlocks<planBySixteenEight>({8, 2, 2, 2, 1});
  expectPairsInBlocks<planBySixteenEight>({16, 8, 2, 2});
}

}  // namespace
}  // namespace pxm::tested
