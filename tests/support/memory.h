// SPDX-License-Identifier: MIT
// A call on guarded memory, laid out as a test wants it, beside the same call by the oracle.
#ifndef TESTS_SUPPORT_MEMORY_H_
#define TESTS_SUPPORT_MEMORY_H_

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "catalogue/conversions.h"
#include "catalogue/shapes.h"
#include "tests/support/guarded.h"
#include "tests/support/random.h"

// Where the images of a call lie. A plane's pitch is its row and the padding, and a little more for
// each further plane, downwards or upwards.
struct Layout {
  int width, height;
  int srcPadding, dstPadding;  // bytes; negative for rows that overlap
  bool srcUpwards, dstUpwards;
  Against side;
  int distance;  // bytes between the guard page and the image: 0 to catch any step out of it, 1 for
                 // an odd address
};

std::ostream& operator<<(std::ostream& out, const Layout& layout);

// Memory for calls. Made once and used for many of them: mapping is slow.
class CallMemory {
 public:
  CallMemory(int mostWidth, int mostHeight, int mostPadding);

  // Converts random samples in the given layout, by the library and by the oracle. The status and
  // every byte of the destinations' memory must be the same, those outside the images too; the
  // sources' memory must be as before.
  testing::AssertionResult matchesOracle(const Conversion& conversion, int variant,
                                         const Layout& layout, Random& random);

 private:
  // Returns the bytes that it has copied.
  const std::uint8_t* fill(std::uint8_t* bytes, std::size_t count, Random& random) const;
  void placeSources(const Conversion& conversion, const Shape& shape, const Layout& layout,
                    CallArguments& arguments, Random& random);
  void placeDestinations(const Conversion& conversion, int variant, const Shape& shape,
                         const Layout& layout, CallArguments& arguments, Random& random);
  testing::AssertionResult sameBytes() const;
  bool sourcesAreAsBefore(const Shape& shape) const;

  std::vector<std::uint8_t> pool_;  // random bytes to fill from
  std::vector<std::unique_ptr<GuardedBytes>> src_, dst_;
  const std::uint8_t* filledWith_[3] = {};  // what stands in src_
  std::vector<std::vector<std::uint8_t>> expected_;
};

#endif
