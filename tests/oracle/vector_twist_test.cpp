// SPDX-License-Identifier: MIT
// Holds the colour twist of the SIMD variants to known values.
#include <gtest/gtest.h>

#include <array>
#include <cfenv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_images.h"
#include "tests/oracle/test_rounding.h"
#include "tests/oracle/test_vector.h"

namespace oracle {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float k2To24 = 16777216.0F;

int channel(float t0, float t1, float t2, float t3, int s0, int s1, int s2) {
  const float row[4] = {t0, t1, t2, t3};
  return vectorTwistChannel(row, s0, s1, s2);
}

// The byte of a value that the sums leave as it is.
int byteOf(float value) {
  return channel(0, 0, 0, value, 1, 1, 1);
}

// ---- What is not as in the reference -----------------------------------------------------------

// The reference comes to 39.5, the other order to 39.499996.
TEST(OracleVectorTwist, OrderOfAdditionsShowsInTheByte) {
  const float row[4] = {-0.29F, -0.52F, 1.99F, -1.22F};
  EXPECT_EQ(twistChannel(row, 0, -63, 4), 40);
  EXPECT_EQ(vectorTwistChannel(row, 0, -63, 4), 39);
}

// 2^24 swallows a one that is added to it, so a sum shows what came first.
TEST(OracleVectorTwist, ConstantIsAddedLast) {
  EXPECT_EQ(channel(k2To24, -k2To24, 0, 1, 1, 1, 1), 1);
  EXPECT_EQ(channel(k2To24, 0, -k2To24, 1, 1, 1, 1), 1);
  EXPECT_EQ(channel(k2To24, 1, 0, -k2To24, 1, 1, 1), 0);
  EXPECT_EQ(channel(k2To24, 0, 1, -k2To24, 1, 1, 1), 0);
  EXPECT_EQ(channel(0, k2To24, 1, -k2To24, 1, 1, 1), 0);
}

TEST(OracleVectorTwist, SecondSampleComesBeforeTheThird) {
  EXPECT_EQ(channel(k2To24, 1, -k2To24, 0, 1, 1, 1), 0);
  EXPECT_EQ(channel(k2To24, -k2To24, 1, 0, 1, 1, 1), 1);
  EXPECT_EQ(channel(1, k2To24, -k2To24, 0, 1, 1, 1), 0);
}

TEST(OracleVectorTwist, NotANumberGives127FromEveryPlace) {
  for (int mode : kModes) {
    const RoundingMode scope(mode);
    for (int s : {-128, -1, 0, 1, 127}) {
      EXPECT_EQ(channel(kNan, 1, 1, 1, s, s, s), 127);
      EXPECT_EQ(channel(1, kNan, 1, 1, s, s, s), 127);
      EXPECT_EQ(channel(1, 1, kNan, 1, s, s, s), 127);
      EXPECT_EQ(channel(1, 1, 1, kNan, s, s, s), 127);
      EXPECT_EQ(channel(-kNan, 1, 1, -200, s, s, s), 127);
    }
    EXPECT_EQ(channel(kInfinity, 0, 0, 0, 0, 0, 0), 127);           // infinity times zero
    EXPECT_EQ(channel(kInfinity, 0, 0, -kInfinity, 1, 0, 0), 127);  // infinity minus infinity
  }
}

TEST(OracleVectorTwist, TheFloatBeyondOneHalfGivesOne) {
  const float beyond = std::nextafter(0.5F, 1.0F);
  const float row[4] = {0, 0, 0, beyond}, negative[4] = {0, 0, 0, -beyond};
  EXPECT_EQ(twistChannel(row, 1, 1, 1), 0);
  EXPECT_EQ(twistChannel(negative, 1, 1, 1), 0);
  for (int mode : kModes) {
    const RoundingMode scope(mode);
    EXPECT_EQ(byteOf(beyond), 1);
    EXPECT_EQ(byteOf(-beyond), -1);
  }
}

// 3 * 8388609 is 25165827, halfway between two floats, and five times the float 0.1 is a half to
// nearest and above it upwards. To nearest is what all modes give.
TEST(OracleVectorTwist, ModeOfTheCallerDoesNotMatter) {
  for (int mode : kModes) {
    const RoundingMode scope(mode);
    EXPECT_EQ(channel(8388609.0F, 0, 0, -25165824.0F, 3, 0, 0), 4);
    EXPECT_EQ(channel(0, 8388609.0F, 0, -25165824.0F, 0, 3, 0), 4);
    EXPECT_EQ(channel(0, 0, 8388609.0F, -25165824.0F, 0, 0, 3), 4);
    EXPECT_EQ(channel(k2To24, 1, -k2To24, 0, 1, 1, 1), 0);
    EXPECT_EQ(channel(-k2To24, k2To24, 0, -1, 1, 1, 1), -1);
    EXPECT_EQ(channel(0.1F, 0, 0, 2.0F, 5, 0, 0), 2);
    const float row[4] = {-0.29F, -0.52F, 1.99F, -1.22F};
    EXPECT_EQ(vectorTwistChannel(row, 0, -63, 4), 39);
  }
}

// ---- What is as in the reference ---------------------------------------------------------------

TEST(OracleVectorTwist, EveryHalfAndItsNeighboursInEveryMode) {
  for (int mode : kModes) {
    const RoundingMode scope(mode);
    for (int i = -128; i < 127; ++i) {
      const float half = static_cast<float>(i) + 0.5F;
      EXPECT_EQ(byteOf(static_cast<float>(i)), i);
      EXPECT_EQ(byteOf(half), i % 2 == 0 ? i : i + 1) << half;
      EXPECT_EQ(byteOf(std::nextafter(half, -1000.0F)), i) << half;
      EXPECT_EQ(byteOf(std::nextafter(half, 1000.0F)), i + 1) << half;
    }
  }
}

TEST(OracleVectorTwist, ValuesInBetweenAreThoseOfTheReference) {
  for (float value = -140.0F; value < 140.0F; value += 0.0009765625F) {
    const float row[4] = {0, 0, 0, value};
    ASSERT_EQ(byteOf(value), twistChannel(row, 1, 1, 1)) << value;
  }
}

TEST(OracleVectorTwist, SaturationAtBothEnds) {
  for (int mode : kModes) {
    const RoundingMode scope(mode);
    for (float high : {126.75F, 127.0F, 127.5F, 128.0F, 32768.0F, 2147483520.0F, 2147483648.0F,
                       4294967296.0F, 1e10F, 3e38F, kInfinity}) {
      EXPECT_EQ(byteOf(high), 127) << high;
    }
    for (float low : {-127.75F, -128.0F, -128.5F, -129.0F, -32769.0F, -2147483648.0F,
                      -2147483904.0F, -1e10F, -3e38F, -kInfinity}) {
      EXPECT_EQ(byteOf(low), -128) << low;
    }
    EXPECT_EQ(channel(3e38F, 0, 0, 0, 127, 0, 0), 127);
    EXPECT_EQ(channel(-3e38F, 0, 0, 0, 127, 0, 0), -128);
  }
}

TEST(OracleVectorTwist, ZeroesAndTheSmallestValues) {
  for (int mode : kModes) {
    const RoundingMode scope(mode);
    EXPECT_EQ(byteOf(0.0F), 0);
    EXPECT_EQ(byteOf(-0.0F), 0);
    EXPECT_EQ(byteOf(std::numeric_limits<float>::denorm_min()), 0);
    EXPECT_EQ(byteOf(-std::numeric_limits<float>::denorm_min()), 0);
  }
}

TEST(OracleVectorTwist, IdentityKeepsEverySample) {
  for (int s = -128; s <= 127; ++s) {
    EXPECT_EQ(channel(1, 0, 0, 0, s, -s / 2, 77), s);
    EXPECT_EQ(channel(0, 1, 0, 0, 5, s, -128), s);
    EXPECT_EQ(channel(0, 0, 1, 0, 127, 1, s), s);
  }
}

// ---- The mode and the flags --------------------------------------------------------------------

constexpr float kTwist[3][4] = {
    {-0.29F, -0.52F, 1.99F, -1.22F}, {0.1F, 0.0F, 0.0F, 2.0F}, {kNan, 3e38F, 0.3F, 1e10F}};

TwistCall callOf(SignedBytes& image, int width, int height, int pixelBytes) {
  const int step = width * pixelBytes;
  const std::ptrdiff_t plane = pixelBytes == 1 ? std::ptrdiff_t{step} * height : 0;
  std::int8_t* first = image.data();
  TwistCall call{{first, first + plane, first + 2 * plane},
                 step,
                 {first, first + plane, first + 2 * plane},
                 step,
                 width,
                 height,
                 {}};
  for (int k = 0; k < 3; ++k) {
    for (int i = 0; i < 4; ++i) call.twist[k][i] = kTwist[k][i];
  }
  return call;
}

void expectUntouchedEnvironment(int mode, int flags) {
  EXPECT_EQ(std::fegetround(), mode);
  EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), flags);
}

// The sums of the third row are inexact, overflow and are no numbers.
TEST(OracleVectorTwist, ModeAndFlagsAreAsBefore) {
  for (int mode : kModes) {
    for (int flags : {0, int{FE_DIVBYZERO}}) {
      const RoundingMode scope(mode);
      std::feclearexcept(FE_ALL_EXCEPT);
      if (flags != 0) std::feraiseexcept(flags);
      EXPECT_EQ(vectorTwistChannel(kTwist[0], 0, -63, 4), 39);
      EXPECT_EQ(vectorTwistChannel(kTwist[2], 0, 127, 4), 127);
      expectUntouchedEnvironment(mode, flags);
      SignedBytes image = signedNoise(24, 9);
      twist("ColorTwist32f_8s_C3IR", Variant::m7, callOf(image, 4, 2, 3));
      expectUntouchedEnvironment(mode, flags);
      std::feclearexcept(FE_ALL_EXCEPT);
    }
  }
}

// ---- Whole calls -------------------------------------------------------------------------------

// The bytes of an image in place, pixel by pixel.
SignedBytes expectedImage(SignedBytes image, int pixels, int pixelBytes) {
  const int across = pixelBytes == 1 ? pixels : 1;
  for (int i = 0; i < pixels; ++i) {
    std::array<std::int8_t*, 3> at;
    for (int k = 0; k < 3; ++k) {
      at[static_cast<std::size_t>(k)] =
          &image[static_cast<std::size_t>(i * pixelBytes + k * across)];
    }
    const int s0 = *at[0], s1 = *at[1], s2 = *at[2];
    for (std::size_t k = 0; k < 3; ++k) {
      *at[k] = static_cast<std::int8_t>(vectorTwistChannel(kTwist[k], s0, s1, s2));
    }
  }
  return image;
}

TEST(OracleVectorTwist, EveryLayoutInEveryVariantAndMode) {
  struct Layout {
    std::string_view name;
    int pixelBytes;
  };
  constexpr int kWidth = 7, kHeight = 3;
  for (auto [name, pixelBytes] :
       {Layout{"ColorTwist32f_8s_C3R", 3}, Layout{"ColorTwist32f_8s_C3IR", 3},
        Layout{"ColorTwist32f_8s_AC4R", 4}, Layout{"ColorTwist32f_8s_AC4IR", 4},
        Layout{"ColorTwist32f_8s_P3R", 1}, Layout{"ColorTwist32f_8s_IP3R", 1}}) {
    const auto old = signedNoise(static_cast<std::size_t>(kWidth * kHeight * (pixelBytes + 2)), 9);
    const auto wanted = expectedImage(old, kWidth * kHeight, pixelBytes);
    for (Variant variant : kVectorVariants) {
      for (int mode : kModes) {
        const RoundingMode scope(mode);
        SignedBytes image = old;
        EXPECT_EQ(twist(name, variant, callOf(image, kWidth, kHeight, pixelBytes)), 0);
        EXPECT_EQ(image, wanted) << name << " " << mode;
      }
    }
  }
}

// The first channel tells the order of the additions, the second the mode, the third NaN.
TEST(OracleVectorTwist, OnePixelInTheReferenceAndInTheVectorVariants) {
  const RoundingMode scope(FE_UPWARD);
  SignedBytes image = {5, -63, 4};
  twist("ColorTwist32f_8s_C3IR", Variant::mx, callOf(image, 1, 1, 3));
  EXPECT_EQ(image[1], 3);
  EXPECT_EQ(image[2], 0);
  for (Variant variant : kVectorVariants) {
    image = {5, -63, 4};
    twist("ColorTwist32f_8s_C3IR", variant, callOf(image, 1, 1, 3));
    EXPECT_EQ(image[1], 2);
    EXPECT_EQ(image[2], 127);
    image = {0, -63, 4};
    twist("ColorTwist32f_8s_C3IR", variant, callOf(image, 1, 1, 3));
    EXPECT_EQ(image[0], 39);
  }
}

}  // namespace
}  // namespace oracle
