// SPDX-License-Identifier: MIT

#include "twist.h"

#include <xmmintrin.h>

#include <algorithm>
#include <cfenv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "checks.h"
#include "families.h"
#include "lanes.h"
#include "rows.h"

namespace oracle {
namespace {

// A value that the compiler knows nothing of and that exists at this point of the program. Operands
// and results pass through it. So each operation is made when the program runs, in the rounding
// mode of the moment, and its result is rounded to float before the next one takes it: no compiler
// folds, contracts or reorders them.
float opaque(float value) {
  asm volatile("" : "+x"(value));
  return value;
}

float product(float a, float b) {
  return opaque(opaque(a) * opaque(b));
}

float sum(float a, float b) {
  return opaque(opaque(a) + opaque(b));
}

// A value as a signed byte, rounded half to even. The truncation towards zero is exact in every
// rounding mode, and what is truncated lies within a byte and a half.
int toSignedByte(float p) {
  if (std::isnan(p)) return 0;
  if (p >= 127.0F) return 127;
  if (p <= -128.0F) return -128;
  const bool negative = p < 0.0F;
  const float q = sum(p, negative ? -0.5F : 0.5F);
  int i = static_cast<int>(q);
  const bool half = static_cast<float>(i) == q;
  if (half && i % 2 != 0) i += negative ? 1 : -1;
  return static_cast<std::int8_t>(i & 255);
}

// Rounds to nearest for the length of a scope. Then the mode and the flags are as before, those of
// MXCSR too, which not every C library counts among them.
class ToNearest {
 public:
  ToNearest() : mxcsr_(_mm_getcsr()) {
    std::feholdexcept(&before_);
    std::fesetround(FE_TONEAREST);
  }
  ~ToNearest() {
    std::fesetenv(&before_);
    _mm_setcsr(mxcsr_);
  }
  ToNearest(const ToNearest&) = delete;
  ToNearest& operator=(const ToNearest&) = delete;

 private:
  unsigned mxcsr_;
  std::fenv_t before_;
};

// The integer nearest to a value, half to even. What has no integer of 32 bits gives the least. The
// fraction may be rounded, but never to or across a half.
std::int64_t nearestInteger(float value) {
  constexpr double kLeast = -2147483648.0;
  const double wide = value;
  if (!(wide >= kLeast && wide < -kLeast)) return std::int64_t{-2147483648};
  const double below = std::floor(wide);
  const double fraction = wide - below;
  const auto integer = static_cast<std::int64_t>(below);
  if (fraction == 0.5) return integer + (integer & 1);
  return fraction < 0.5 ? integer : integer + 1;
}

// The sums of the vector form, in the rounding mode of the moment. The minimum takes its second
// operand where the first is not a number. The packs to 16 and to 8 bits stop at -128.
int laneTwistChannel(const float row[4], int s0, int s1, int s2) {
  float p = sum(product(row[0], static_cast<float>(s0)), product(row[1], static_cast<float>(s1)));
  p = sum(p, product(row[2], static_cast<float>(s2)));
  p = sum(p, row[3]);
  const std::int64_t integer = nearestInteger(p < 127.0F ? p : 127.0F);
  return static_cast<int>(std::clamp<std::int64_t>(saturateLane(integer), -128, 127));
}

// How the samples of a pixel lie: the distance of columns in bytes, and whether the channels are
// planes.
struct TwistLayout {
  int pixelBytes;
  bool planar;
};

// The fourth byte of a pixel of AC4 is neither read nor written.
TwistLayout layoutOf(std::string_view name) {
  const Family family = familyOf(name);
  if (family == Family::TwistPlanar || family == Family::TwistPlanarInPlace) return {1, true};
  if (family == Family::TwistPacked || family == Family::TwistPackedInPlace) {
    return {name.find("AC4") != std::string_view::npos ? 4 : 3, false};
  }
  throw std::invalid_argument("not a colour twist: " + std::string(name));
}

// The address of a channel of a row's first pixel.
template <typename Byte>
Byte* channelAt(const TwistLayout& layout, Byte* const planes[3], int step, int row, int channel) {
  return layout.planar ? rowAt(planes[channel], step, row) : rowAt(planes[0], step, row) + channel;
}

using Channel = int (*)(const float row[4], int s0, int s1, int s2);

void twistRow(const TwistLayout& layout, Channel channel, const TwistCall& call, int row) {
  const std::int8_t* source[3];
  std::int8_t* target[3];
  for (int k = 0; k < 3; ++k) {
    source[k] = channelAt(layout, call.src, call.srcStep, row, k);
    target[k] = channelAt(layout, call.dst, call.dstStep, row, k);
  }
  for (int column = 0; column < call.width; ++column) {
    const std::ptrdiff_t at = std::ptrdiff_t{column} * layout.pixelBytes;
    // All three samples are read before a channel is written, which lets the images be one.
    const int s0 = source[0][at], s1 = source[1][at], s2 = source[2][at];
    for (int k = 0; k < 3; ++k) {
      target[k][at] = static_cast<std::int8_t>(channel(call.twist[k], s0, s1, s2));
    }
  }
}

}  // namespace

// The constant comes second.
int twistChannel(const float row[4], int s0, int s1, int s2) {
  float p = product(row[0], static_cast<float>(s0));
  p = sum(p, row[3]);
  p = sum(p, product(row[1], static_cast<float>(s1)));
  p = sum(p, product(row[2], static_cast<float>(s2)));
  return toSignedByte(p);
}

int vectorTwistChannel(const float row[4], int s0, int s1, int s2) {
  const ToNearest scope;
  return laneTwistChannel(row, s0, s1, s2);
}

int twist(std::string_view name, Variant variant, const TwistCall& call) {
  const TwistLayout layout = layoutOf(name);
  if (variant == Variant::mx) {
    for (int row = 0; row < call.height; ++row) twistRow(layout, twistChannel, call, row);
  } else {
    const ToNearest scope;
    for (int row = 0; row < call.height; ++row) twistRow(layout, laneTwistChannel, call, row);
  }
  return statusAfter(name, call.width, call.height);
}

}  // namespace oracle
