// SPDX-License-Identifier: MIT
// A decoding call on guarded memory, laid out as a test wants it, beside the same call by the
// oracle.
#ifndef TESTS_SUPPORT_IMAGES_H_
#define TESTS_SUPPORT_IMAGES_H_

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "tests/support/catalog.h"
#include "tests/support/guarded.h"
#include "tests/support/random.h"

// Where the images of a call lie. A pitch is the row's bytes and the padding, or as much upwards.
struct Layout {
  int width, height;
  int srcPadding, dstPadding;  // bytes; the low bit of a destination pitch is lost
  bool srcUpwards, dstUpwards;
  Against side;
  int distance;  // bytes between the guard page and the image: 0 to catch any step out of it, 1 for
                 // an odd address
};

std::ostream& operator<<(std::ostream& out, const Layout& layout);

// Sources and destination of 4:4:4 calls. Made once and used for many calls: mapping is slow.
class DecodeMemory {
 public:
  DecodeMemory(int mostWidth, int mostHeight, int mostPadding);

  // Converts random samples in the given layout, by the library and by the oracle. The status and
  // every byte of the destination's memory must be the same, those outside the image too.
  testing::AssertionResult matchesOracle(const Decoder& decoder, int variant, const Layout& layout,
                                         Random& random);

 private:
  const std::uint8_t* placeSource(int plane, const Layout& layout, int rowBytes, int pitch,
                                  Random& random);

  GuardedBytes src_[3];
  GuardedBytes dst_;
  std::vector<std::uint8_t> expected_;
};

#endif
