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

#include "tests/oracle/oracle.h"
#include "tests/support/by_oracle.h"
#include "tests/support/calls.h"
#include "tests/support/random.h"
#include "tests/support/variants.h"

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
  oracle::twist("ColorTwist32f_8s_C3R", oracle::Variant{variant}, call);
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

// 2^24 + 1 - 2^24 is 0 in float and 1 otherwise: the constant is added ahead of the second product.
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

TEST(Twist, MxcsrIsAsBeforeButForItsFlags) {
  for (const int variant : runnableVariants()) {
    const SelectedVariant selected(variant);
    for (const unsigned mode : roundingModes) {
      const RoundingMode inMode(mode);
      const unsigned before = _mm_getcsr();
      (void)twisted({1, 2, 3}, ordinaryTwist);
      EXPECT_EQ(_mm_getcsr() & ~0x3Fu, before & ~0x3Fu) << variantTags[variant];
    }
  }
}

}  // namespace
