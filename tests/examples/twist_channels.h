// SPDX-License-Identifier: MIT
// The arithmetic of the colour twist by literal values: a row of the matrix, a pixel, a byte.
#ifndef TESTS_EXAMPLES_TWIST_CHANNELS_H_
#define TESTS_EXAMPLES_TWIST_CHANNELS_H_

#include <array>
#include <vector>

namespace examples {

// What scalar code gives in each rounding mode, and SIMD code in all of them.
struct ChannelBytes {
  int nearest, down, up, towardZero;
  int simd;
};

struct ChannelExample {
  const char* claim;
  std::array<float, 4> row;
  std::array<int, 3> pixel;
  ChannelBytes byte;
};

std::vector<ChannelExample> twistChannels();

}  // namespace examples

#endif
