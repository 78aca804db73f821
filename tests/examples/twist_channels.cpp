// SPDX-License-Identifier: MIT
#include "tests/examples/twist_channels.h"

#include <cmath>
#include <limits>

namespace examples {
namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float denormal = std::numeric_limits<float>::denorm_min();
constexpr float most = std::numeric_limits<float>::max();
constexpr float big = 16777216.0f;   // 2^24 swallows a one that is added to it
constexpr float odd = 8388609.0f;    // 3 * 8388609 = 25165827 lies halfway between two floats
constexpr float even = 25165824.0f;  // the float below it; the one above is 2 more than that
constexpr float afterHalf = 0.5f + 0x1p-24f;  // the next float

constexpr ChannelBytes all(int byte) {
  return {byte, byte, byte, byte, byte};
}
constexpr ChannelBytes differ(int scalar, int simd) {
  return {scalar, scalar, scalar, scalar, simd};
}

// A constant alone: the byte is its rounding.
ChannelExample constant(const char* claim, float value, ChannelBytes byte) {
  return {claim, {0, 0, 0, value}, {1, 1, 1}, byte};
}

const ChannelExample literal[] = {
    {"halves go to the even side", {0, 0, 0, 2.5f}, {1, 1, 1}, all(2)},
    {"halves go to the even side", {0, 0, 0, 3.5f}, {1, 1, 1}, all(4)},
    {"halves go to the even side", {0, 0, 0, -2.5f}, {1, 1, 1}, all(-2)},
    {"halves go to the even side", {0, 0, 0, -3.5f}, {1, 1, 1}, all(-4)},
    {"what is near the end is not the end", {0, 0, 0, 126.7f}, {1, 1, 1}, all(127)},
    {"a constant fills its channel", {0, 0, 0, 200}, {-128, 5, 127}, all(127)},
    {"a constant empties its channel", {0, 0, 0, -200}, {-128, 5, 127}, all(-128)},

    // Sums. In scalar code the constant comes second, in SIMD last.
    {"the constant's place shows", {big, -big, 0, 1}, {1, 1, 1}, {0, 0, 2, 0, 1}},
    {"the constant's place shows", {big, 0, -big, 1}, {1, 1, 1}, {0, 0, 2, 0, 1}},
    {"the constant's place shows", {big, 1, 0, -big}, {1, 1, 1}, differ(1, 0)},
    {"the constant's place shows", {big, 0, 1, -big}, {1, 1, 1}, differ(1, 0)},
    {"the constant's place shows", {1, -big, 0, big}, {1, 1, 1}, {0, 0, 2, 0, 1}},
    {"the constant's place shows", {0, big, 1, -big}, {1, 1, 1}, differ(1, 0)},
    {"the constant's place shows", {1, -big, 0, big}, {2, 1, 0}, all(2)},
    {"the second sample comes before the third", {big, 1, -big, 0}, {1, 1, 1}, {0, 0, 2, 0, 0}},
    {"the second sample comes before the third", {big, -big, 1, 0}, {1, 1, 1}, all(1)},
    {"the second sample comes before the third", {1, big, -big, 0}, {1, 1, 1}, {0, 0, 2, 0, 0}},
    {"sums follow the mode in scalar code", {-big, big, 0, -1}, {1, 1, 1}, {0, -2, 0, 0, -1}},
    // 0 * -0.29 + 32.76 + 7.96 - 1.22 is 39.5 with the constant second, 39.499996 with it last.
    {"the order decides between two bytes",
     {-0.29f, -0.52f, 1.99f, -1.22f},
     {0, -63, 4},
     {40, 39, 40, 39, 39}},

    // Products are rounded by themselves: no fused multiplication.
    {"products are rounded before they are added", {odd, 0, 0, -even}, {3, 0, 0}, {4, 2, 4, 2, 4}},
    {"products are rounded before they are added", {0, odd, 0, -even}, {0, 3, 0}, {4, 2, 4, 2, 4}},
    {"products are rounded before they are added", {0, 0, odd, -even}, {0, 0, 3}, {4, 2, 4, 2, 4}},
    // Five times the float 0.1 is a half to nearest, and above it upwards.
    {"the mode decides between two bytes", {0.1f, 0, 0, 2}, {5, 0, 0}, {2, 2, 3, 2, 2}},
    {"the mode decides between two bytes", {0.1f, 0, 0, 0}, {5, 0, 0}, {0, 0, 1, 0, 0}},

    // In scalar code a half is added, in the caller's mode: where the sum becomes 1 it is taken for
    // a half, and goes to 0.
    {"the float after one half", {0, 0, 0, afterHalf}, {1, 1, 1}, {0, 0, 1, 0, 1}},
    {"the float after one half", {0, 0, 0, -afterHalf}, {1, 1, 1}, {0, -1, 0, 0, -1}},

    // What is no number.
    {"not a number", {nan, 1, 1, 1}, {5, 6, 7}, differ(0, 127)},
    {"not a number", {1, nan, 1, 1}, {-128, -128, -128}, differ(0, 127)},
    {"not a number", {1, 1, nan, 1}, {0, 0, 0}, differ(0, 127)},
    {"not a number", {1, 1, 1, nan}, {127, 127, 127}, differ(0, 127)},
    {"not a number", {-nan, 1, 1, -200}, {1, 1, 1}, differ(0, 127)},
    {"infinity times zero", {infinity, 0, 0, 0}, {0, 0, 0}, differ(0, 127)},
    {"infinity less infinity", {infinity, 0, 0, -infinity}, {1, 0, 0}, differ(0, 127)},
    {"infinity is an end", {infinity, 1, 1, 1}, {1, 1, 1}, all(127)},
    {"infinity is an end", {1, infinity, 1, 1}, {1, 1, 1}, all(127)},
    {"infinity is an end", {1, 1, infinity, 1}, {1, 1, 1}, all(127)},
    {"infinity is an end", {1, 1, 1, infinity}, {1, 1, 1}, all(127)},
    {"infinity is an end", {-infinity, 1, 1, 1}, {1, 1, 1}, all(-128)},
    {"infinity is an end", {1, -infinity, 1, 1}, {1, 1, 1}, all(-128)},
    {"infinity is an end", {1, 1, -infinity, 1}, {1, 1, 1}, all(-128)},
    {"infinity is an end", {1, 1, 1, -infinity}, {1, 1, 1}, all(-128)},
    {"infinity takes the sample's sign", {infinity, 1, 1, 1}, {-1, 1, 1}, all(-128)},
    {"infinity takes the sample's sign", {-infinity, 1, 1, 1}, {-1, 1, 1}, all(127)},
    {"a product may overflow to nearest and outwards", {most, 0, 0, 0}, {127, 0, 0}, all(127)},
    {"a product may overflow to nearest and outwards", {-most, 0, 0, 0}, {127, 0, 0}, all(-128)},
};

}  // namespace

std::vector<ChannelExample> twistChannels() {
  std::vector<ChannelExample> examples(std::begin(literal), std::end(literal));
  for (const float high :
       {126.75f, 127.0f, 127.5f, 127.75f, 128.0f, 32768.0f, 2147483520.0f, 2147483648.0f,
        4294967296.0f, 1e10f, 3e38f, infinity, std::nextafter(127.0f, 0.0f)})
    examples.push_back(constant("saturates upwards", high, all(127)));
  for (const float low : {-127.75f, -128.0f, -128.5f, -128.75f, -129.0f, -32769.0f, -2147483648.0f,
                          -2147483904.0f, -1e10f, -3e38f, -infinity, std::nextafter(-128.0f, 0.0f)})
    examples.push_back(constant("saturates downwards", low, all(-128)));
  for (const float nothing : {0.0f, -0.0f, denormal, -denormal})
    examples.push_back(constant("rounds to zero", nothing, all(0)));
  // Every half, and the floats on its two sides; what is special about one half is above.
  for (int i = -128; i < 127; ++i) {
    const float half = static_cast<float>(i) + 0.5f;
    examples.push_back(constant("every half", half, all(i % 2 == 0 ? i : i + 1)));
    if (i != -1)
      examples.push_back(constant("the float before a half", std::nextafter(half, -1e3f), all(i)));
    if (i != 0)
      examples.push_back(
          constant("the float after a half", std::nextafter(half, 1e3f), all(i + 1)));
  }
  return examples;
}

}  // namespace examples
