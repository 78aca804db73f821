// SPDX-License-Identifier: MIT
// The colour twist: matrices, rounding modes and values that are no numbers.
#include <gtest/gtest.h>
#include <xmmintrin.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "catalogue/conversions.h"
#include "catalogue/variants.h"
#include "tests/oracle/oracle.h"
#include "tests/support/by_oracle.h"
#include "tests/support/random.h"

namespace {

constexpr unsigned roundingModes[] = {_MM_ROUND_NEAREST, _MM_ROUND_DOWN, _MM_ROUND_UP,
                                      _MM_ROUND_TOWARD_ZERO};

// Sets the processor's rounding mode for the life of the object.
class RoundingMode {
 public:
  explicit RoundingMode(unsigned mode) : before_(_mm_getcsr()) {
    _mm_setcsr((before_ & ~0x6000u) | mode);
  }
  ~RoundingMode() { _mm_setcsr(before_); }
  RoundingMode(const RoundingMode&) = delete;
  RoundingMode& operator=(const RoundingMode&) = delete;

 private:
  unsigned before_;
};

using Matrix = float[3][4];
using Samples = std::vector<std::int8_t>;

// Samples through C3R, in the variant that is selected; three bytes a pixel.
Samples twisted(const Samples& samples, const Matrix& matrix) {
  Samples out(samples.size());
  const int width = static_cast<int>(samples.size() / 3);
  EXPECT_EQ(legacy90pxmiColorTwist32f_8s_C3R(samples.data(), 3 * width, out.data(), 3 * width,
                                             {width, 1}, matrix),
            0);
  return out;
}

// The same by the oracle.
Samples expected(const Samples& samples, const Matrix& matrix, int variant) {
  Samples out(samples.size());
  const int width = static_cast<int>(samples.size() / 3);
  oracle::TwistCall call = {{samples.data()}, 3 * width, {out.data()}, 3 * width, width, 1, {}};
  std::memcpy(call.twist, matrix, sizeof call.twist);
  oracle::twist("ColorTwist32f_8s_C3R", oracleVariant(variant), call);
  return out;
}

// Every sample value in each channel, beside many pairs of the others.
Samples manySamples() {
  Samples samples;
  for (int i = 0; i < 3 * 256 * 16; i += 3)
    for (const int v : {i / 3, i / 3 * 37 + 5, i / 3 * 101 + 77})
      samples.push_back(static_cast<std::int8_t>(v));
  return samples;
}

void expectLikeOracleInEveryMode(const Matrix& matrix, const std::string& what) {
  static const Samples samples = manySamples();
  for (const int variant : runnableVariants()) {
    const SelectedVariant selected(variant);
    for (const unsigned mode : roundingModes) {
      const RoundingMode inMode(mode);
      const Samples got = twisted(samples, matrix), want = expected(samples, matrix, variant);
      ASSERT_EQ(got, want) << what << ", mode " << mode << ", " << variantTags[variant];
    }
  }
}

TEST(Twist, OrdinaryMatrixInEveryRoundingMode) {
  expectLikeOracleInEveryMode(ordinaryTwist, "ordinary");
}

TEST(Twist, RandomMatricesInEveryRoundingMode) {
  SCOPED_TRACE(seedMessage());
  Random random("twist");
  for (int i = 0; i < 40; ++i) {
    Matrix matrix;
    for (auto& row : matrix)
      for (float& weight : row)
        weight = static_cast<float>(random.below(4001) - 2000) / (i % 2 ? 1024.0f : 999.0f);
    for (auto& row : matrix) row[3] *= 64.0f;
    expectLikeOracleInEveryMode(matrix, "random " + std::to_string(i));
  }
}

TEST(Twist, SpecialValueInEachPlace) {
  const float specials[] = {std::numeric_limits<float>::quiet_NaN(),
                            -std::numeric_limits<float>::quiet_NaN(),
                            std::numeric_limits<float>::infinity(),
                            -std::numeric_limits<float>::infinity(),
                            std::numeric_limits<float>::max(),
                            -std::numeric_limits<float>::max(),
                            std::numeric_limits<float>::min(),
                            std::numeric_limits<float>::denorm_min(),
                            2147483648.0f,
                            -0.0f};
  for (int place = 0; place < 12; ++place)
    for (const float special : specials) {
      Matrix matrix;
      std::memcpy(matrix, ordinaryTwist, sizeof matrix);
      matrix[place / 4][place % 4] = special;
      expectLikeOracleInEveryMode(matrix, "place " + std::to_string(place));
    }
}

// Halves of both parities and signs, and their neighbours.
TEST(Twist, HalvesRoundToEvenInEveryRoundingMode) {
  for (const float constant : {0.5f, -0.5f, 0.25f, 126.5f, -127.5f, 0.49999997f}) {
    const Matrix matrix = {{1, 0, 0, constant}, {0.5f, 0, 0, constant}, {-1.5f, 0, 0, constant}};
    expectLikeOracleInEveryMode(matrix, "constant " + std::to_string(constant));
  }
}

// The rounding of a value by itself: a matrix of constants.
int rounded(float value) {
  const Matrix matrix = {{0, 0, 0, value}, {0, 0, 0, 0}, {0, 0, 0, 0}};
  const SelectedVariant plain(0);
  return twisted({1, 2, 3}, matrix)[0];
}

TEST(Twist, LiteralRoundings) {
  const std::pair<float, int> examples[] = {{2.5f, 2},       {3.5f, 4},     {-2.5f, -2},
                                            {-3.5f, -4},     {0.5f, 0},     {1.5f, 2},
                                            {126.5f, 126},   {126.7f, 127}, {-127.5f, -128},
                                            {-128.0f, -128}, {200.0f, 127}, {-200.0f, -128}};
  for (const auto& [value, byte] : examples) EXPECT_EQ(rounded(value), byte) << value;
}

TEST(Twist, IdentityKeepsEverySample) {
  const Matrix identity = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}};
  const Samples samples = manySamples();
  EXPECT_EQ(twisted(samples, identity), samples);
}

TEST(Twist, ConstantBeyondTheRangeSaturatesItsChannelEverywhere) {
  const Samples samples = manySamples();
  for (const auto& [constant, byte] : {std::pair{200.0f, 127}, {-200.0f, -128}}) {
    const Matrix matrix = {{0, 0, 0, constant}, {0, 1, 0, 0}, {0, 0, 1, 0}};
    const Samples out = twisted(samples, matrix);
    for (std::size_t i = 0; i < out.size(); ++i)
      ASSERT_EQ(out[i], i % 3 == 0 ? byte : samples[i]) << i;
  }
}

TEST(Twist, NanGivesZeroInPlainCode) {
  const SelectedVariant plain(0);
  const Matrix matrix = {{NAN, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}};
  EXPECT_EQ(twisted({5, 6, 7, 0, 1, 2}, matrix), (Samples{0, 6, 7, 0, 1, 2}));
}

// 2^24 + 1 - 2^24 is 0 in float and 1 otherwise: the constant is added before the second product.
TEST(Twist, ConstantIsAddedSecondInPlainCode) {
  const SelectedVariant plain(0);
  const Matrix matrix = {{1, -16777216.0f, 0, 16777216.0f}, {0, 0, 0, 0}, {0, 0, 0, 0}};
  EXPECT_EQ(twisted({1, 1, 0}, matrix)[0], 0);
  EXPECT_EQ(twisted({2, 1, 0}, matrix)[0], 2);
}

TEST(Twist, AlphaStaysAsItWas) {
  const std::int8_t src[8] = {1, 2, 3, 99, 4, 5, 6, 98};
  std::int8_t dst[8] = {0, 0, 0, 77, 0, 0, 0, 78};
  EXPECT_EQ(legacy90pxmiColorTwist32f_8s_AC4R(src, 8, dst, 8, {2, 1}, ordinaryTwist), 0);
  EXPECT_EQ(dst[3], 77);
  EXPECT_EQ(dst[7], 78);
  std::int8_t both[8] = {1, 2, 3, 99, 4, 5, 6, 98};
  EXPECT_EQ(legacy90pxmiColorTwist32f_8s_AC4IR(both, 8, {2, 1}, ordinaryTwist), 0);
  for (int i = 0; i < 8; ++i) EXPECT_EQ(both[i], i == 3 ? 99 : i == 7 ? 98 : dst[i]) << i;
}

TEST(Twist, InPlaceUsesTheSamplesThatWereThere) {
  const Matrix rotation = {{0, 1, 0, 0}, {0, 0, 1, 0}, {1, 0, 0, 0}};
  std::int8_t pixel[3] = {10, 20, 30};
  EXPECT_EQ(legacy90pxmiColorTwist32f_8s_C3IR(pixel, 3, {1, 1}, rotation), 0);
  EXPECT_EQ(pixel[0], 20);
  EXPECT_EQ(pixel[1], 30);
  EXPECT_EQ(pixel[2], 10);
  std::int8_t planes[3] = {10, 20, 30};
  std::int8_t* srcDst[3] = {planes, planes + 1, planes + 2};
  EXPECT_EQ(legacy90pxmiColorTwist32f_8s_IP3R(srcDst, 1, {1, 1}, rotation), 0);
  EXPECT_EQ(planes[0], 20);
  EXPECT_EQ(planes[1], 30);
  EXPECT_EQ(planes[2], 10);
}

// One pixel's first channel, in a variant and a rounding mode.
int firstChannel(int variant, unsigned mode, const float (&row)[4], const Samples& pixel) {
  const SelectedVariant selected(variant);
  const RoundingMode inMode(mode);
  const Matrix matrix = {{row[0], row[1], row[2], row[3]}, {0, 0, 0, 0}, {0, 0, 0, 0}};
  return twisted(pixel, matrix)[0];
}

std::vector<int> runnableVectorVariants() {
  std::vector<int> variants = runnableVariants();
  std::erase(variants, 0);
  return variants;
}

// The four ways in which a variant in SIMD and scalar code may disagree.
TEST(TwistDifferences, ConstantIsAddedLastInLanes) {
  const float row[4] = {-0.29f, -0.52f, 1.99f, -1.22f};
  EXPECT_EQ(firstChannel(0, _MM_ROUND_NEAREST, row, {0, -63, 4}), 40);  // of 39.5
  for (const int variant : runnableVectorVariants())
    EXPECT_EQ(firstChannel(variant, _MM_ROUND_NEAREST, row, {0, -63, 4}), 39);  // of 39.499996
}

TEST(TwistDifferences, NanGives127InLanes) {
  for (int place = 0; place < 4; ++place) {
    float row[4] = {1, 1, 1, 1};
    row[place] = NAN;
    EXPECT_EQ(firstChannel(0, _MM_ROUND_NEAREST, row, {5, 6, 7}), 0);
    for (const int variant : runnableVectorVariants())
      EXPECT_EQ(firstChannel(variant, _MM_ROUND_NEAREST, row, {5, 6, 7}), 127);
  }
}

TEST(TwistDifferences, JustBeyondAHalfRoundsAwayInLanes) {
  const float beyond = 0.5f + 0x1p-24f;
  for (const float sign : {1.0f, -1.0f}) {
    const float row[4] = {0, 0, 0, sign * beyond};
    EXPECT_EQ(firstChannel(0, _MM_ROUND_NEAREST, row, {0, 0, 0}), 0);
    for (const int variant : runnableVectorVariants())
      EXPECT_EQ(firstChannel(variant, _MM_ROUND_NEAREST, row, {0, 0, 0}), static_cast<int>(sign));
  }
}

// 5 times 0.1 as a float is a little more than a half: 0.5 to nearest, and more than that upwards.
TEST(TwistDifferences, LanesRoundToNearestInEveryMode) {
  const float row[4] = {0.1f, 0, 0, 0};
  EXPECT_EQ(firstChannel(0, _MM_ROUND_NEAREST, row, {5, 0, 0}), 0);
  EXPECT_EQ(firstChannel(0, _MM_ROUND_UP, row, {5, 0, 0}), 1);
  for (const int variant : runnableVectorVariants())
    for (const unsigned mode : roundingModes)
      EXPECT_EQ(firstChannel(variant, mode, row, {5, 0, 0}), 0);
}

TEST(Twist, WhatNoIntegerHoldsSaturatesInLanes) {
  for (const int variant : runnableVariants()) {
    EXPECT_EQ(firstChannel(variant, _MM_ROUND_NEAREST, {0, 0, 0, 1e10f}, {0, 0, 0}), 127);
    EXPECT_EQ(firstChannel(variant, _MM_ROUND_NEAREST, {0, 0, 0, -1e10f}, {0, 0, 0}), -128);
    EXPECT_EQ(firstChannel(variant, _MM_ROUND_NEAREST, {0, 0, 0, 2147483648.0f}, {0, 0, 0}), 127);
  }
}

// MXCSR beyond the rounding mode: exception flags, their masks, and how denormals are treated.
constexpr unsigned flagBits = 0x3F, inexact = 0x20, flushToZero = 0x8000, denormalsAreZero = 0x40;

// Leaves MXCSR as it was, whatever a test sets.
class KeptMxcsr {
 public:
  KeptMxcsr() : before_(_mm_getcsr()) {}
  ~KeptMxcsr() { _mm_setcsr(before_); }
  KeptMxcsr(const KeptMxcsr&) = delete;
  KeptMxcsr& operator=(const KeptMxcsr&) = delete;

 private:
  unsigned before_;
};

// MXCSR after a call of the six layouts on `width` pixels that all hold 3, 5, 7.
unsigned mxcsrAfter(unsigned before, const Conversion& layout, int width, const Matrix& matrix) {
  const KeptMxcsr kept;
  std::uint8_t source[3][4 * 24], out[3][4 * 24];
  for (auto& plane : source)
    for (std::size_t i = 0; i < sizeof plane; ++i)
      plane[i] = layout.has("P3")    ? 5
                 : layout.has("AC4") ? static_cast<std::uint8_t>(3 + 2 * (i % 4))
                                     : static_cast<std::uint8_t>(3 + 2 * (i % 3));
  CallArguments a = {};
  for (int i = 0; i < 3; ++i) {
    a.src[i] = source[i];
    a.dst[i] = layout.has("IR") || layout.has("IP3") ? source[i] : out[i];
  }
  a.srcStep[0] = a.dstStep[0] = 96;
  a.size = {width, 1};
  std::memcpy(a.twist, matrix, sizeof a.twist);
  _mm_setcsr(before);
  const pxmStatus status = layout.call(a);
  const unsigned after = _mm_getcsr();
  EXPECT_EQ(status, width > 0 ? pxmStatusOk : pxmStatusBadSize);
  return after;
}

class TwistMxcsr : public testing::TestWithParam<Conversion> {};

constexpr Matrix tenths = {{0.1f, 0, 0, 0}, {0, 0.1f, 0, 0}, {0, 0, 0.1f, 0}};
constexpr unsigned masked = 0x1F80;

TEST_P(TwistMxcsr, RestoresAllOfItIfTheModeWasAnother) {
  for (const int variant : runnableVectorVariants()) {
    const SelectedVariant selected(variant);
    for (const unsigned mode : {_MM_ROUND_DOWN, _MM_ROUND_UP, _MM_ROUND_TOWARD_ZERO})
      for (const unsigned others : {0u, 0x01u, 0x3Fu, flushToZero | denormalsAreZero}) {
        const unsigned before = masked | mode | others;
        for (int width = 1; width <= 17; ++width)
          EXPECT_EQ(mxcsrAfter(before, GetParam(), width, tenths), before) << variantTags[variant];
      }
  }
}

TEST_P(TwistMxcsr, KeepsTheFlagsThatItRaisedIfTheModeWasNearest) {
  for (const int variant : runnableVectorVariants()) {
    const SelectedVariant selected(variant);
    for (const unsigned others : {0u, 0x01u, flushToZero | denormalsAreZero})
      for (int width = 1; width <= 17; ++width)
        EXPECT_EQ(mxcsrAfter(masked | others, GetParam(), width, tenths), masked | others | inexact)
            << variantTags[variant];
  }
}

// Lanes beyond the last pixel raise nothing: infinity times their zeros would be invalid.
TEST_P(TwistMxcsr, RaisesNoFlagThatNoPixelRaises) {
  const float infinity = std::numeric_limits<float>::infinity();
  const Matrix matrix = {{infinity, 0, 0, 0}, {0, infinity, 0, 0}, {0, 1, infinity, 0}};
  for (const int variant : runnableVectorVariants()) {
    const SelectedVariant selected(variant);
    for (int width = 1; width <= 17; ++width)
      EXPECT_EQ(mxcsrAfter(masked, GetParam(), width, matrix), masked) << variantTags[variant];
  }
}

TEST_P(TwistMxcsr, IsUntouchedByARefusedCall) {
  for (const int variant : runnableVariants()) {
    const SelectedVariant selected(variant);
    for (const unsigned mode : roundingModes)
      EXPECT_EQ(mxcsrAfter(masked | mode, GetParam(), 0, tenths), masked | mode);
  }
}

TEST_P(TwistMxcsr, IsAsBeforeInPlainCodeButForFlags) {
  const SelectedVariant plain(0);
  for (const unsigned mode : roundingModes)
    EXPECT_EQ(mxcsrAfter(masked | mode, GetParam(), 5, tenths) & ~flagBits, masked | mode);
}

INSTANTIATE_TEST_SUITE_P(, TwistMxcsr, testing::ValuesIn(conversionsOf(Kind::Twist)),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
