// SPDX-License-Identifier: MIT
// Holds the oracle and the library to the literal values of the twist's arithmetic: in each
// channel, in blocks and after them, in every rounding mode.
#include "tests/examples/twist_channels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "catalogue/conversions.h"
#include "catalogue/variants.h"
#include "tests/oracle/oracle.h"
#include "tests/support/by_oracle.h"
#include "tests/support/rounding.h"

namespace examples {
namespace {

using Samples = std::vector<std::int8_t>;

enum class By { Oracle, Library };

// An interleaved image of one row through one row of the matrix in a channel; the others are 0.
Samples twisted(By by, int variant, unsigned mode, const Samples& samples, std::size_t channel,
                const std::array<float, 4>& row) {
  static const Conversion& conversion = conversionNamed("ColorTwist32f_8s_C3R");
  Samples out(samples.size());
  CallArguments a = {};
  a.size = {static_cast<int>(samples.size() / 3), 1};
  a.srcStep[0] = a.dstStep[0] = static_cast<int>(samples.size());
  a.src[0] = reinterpret_cast<const std::uint8_t*>(samples.data());
  a.dst[0] = reinterpret_cast<std::uint8_t*>(out.data());
  std::copy(row.begin(), row.end(), a.twist[channel]);
  const SelectedVariant selected(by == By::Library ? variant : 0);
  const RoundingMode inMode(mode);
  const int status =
      by == By::Oracle ? convertByOracle(conversion, variant, a) : conversion.call(a);
  EXPECT_EQ(status, 0);
  return out;
}

int scalarByte(const ChannelBytes& bytes, unsigned mode) {
  switch (mode) {
    case _MM_ROUND_DOWN:
      return bytes.down;
    case _MM_ROUND_UP:
      return bytes.up;
    case _MM_ROUND_TOWARD_ZERO:
      return bytes.towardZero;
    default:
      return bytes.nearest;
  }
}

// Calls `visit` with each implementation and variant.
template <typename Visit>
void forAllVariants(Visit visit) {
  for (int variant = 0; variant < variantCount; ++variant) visit(By::Oracle, variant);
  for (const int variant : runnableVariants()) visit(By::Library, variant);
}

// Nineteen columns: a block of every size, and one column after them.
void expectHolds(const ChannelExample& e, By by, int variant) {
  Samples samples;
  for (int x = 0; x < 19; ++x)
    for (const int s : e.pixel) samples.push_back(static_cast<std::int8_t>(s));
  for (const unsigned mode : roundingModes) {
    const int byte = variant == 0 ? scalarByte(e.byte, mode) : e.byte.simd;
    for (std::size_t channel = 0; channel < 3; ++channel) {
      Samples wanted(samples.size());
      for (std::size_t i = channel; i < wanted.size(); i += 3)
        wanted[i] = static_cast<std::int8_t>(byte);
      ASSERT_EQ(twisted(by, variant, mode, samples, channel, e.row), wanted)
          << e.claim << ": " << e.row[0] << " " << e.row[1] << " " << e.row[2] << " " << e.row[3]
          << ", mode " << mode << ", " << (by == By::Oracle ? "oracle " : "library ")
          << variantTags[variant];
    }
  }
}

TEST(TwistExamples, OfOneChannel) {
  const std::vector<ChannelExample> examples = twistChannels();
  forAllVariants([&](By by, int variant) {
    for (const ChannelExample& e : examples) expectHolds(e, by, variant);
  });
}

// Every 1024th between the ends.
TEST(TwistExamples, WhatLiesBetweenRoundsToNearest) {
  Samples samples;
  for (int s = -128; s < 128; ++s) samples.insert(samples.end(), 3, static_cast<std::int8_t>(s));
  forAllVariants([&](By by, int variant) {
    for (int k = 0; k < 1024; k += variant == 0 ? 1 : 7) {
      const float fraction = static_cast<float>(k) / 1024;
      const Samples out = twisted(by, variant, _MM_ROUND_NEAREST, samples, 1, {1, 0, 0, fraction});
      for (std::size_t i = 0; i < 256; ++i) {
        const float value = static_cast<float>(samples[3 * i]) + fraction;
        ASSERT_EQ(out[3 * i + 1], std::min(static_cast<int>(std::nearbyint(value)), 127))
            << value << " " << variantTags[variant];
      }
    }
  });
}

}  // namespace
}  // namespace examples
