// SPDX-License-Identifier: MIT
// The colour twist: matrices, rounding modes and values that are no numbers.
#include <gtest/gtest.h>
#include <xmmintrin.h>

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
#include "tests/support/rounding.h"

namespace {

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

std::vector<int> runnableVectorVariants() {
  std::vector<int> variants = runnableVariants();
  std::erase(variants, 0);
  return variants;
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

TEST_P(TwistMxcsr, IsUntouchedByARejectedCall) {
  for (const int variant : runnableVariants()) {
    const SelectedVariant selected(variant);
    for (const unsigned mode : roundingModes)
      EXPECT_EQ(mxcsrAfter(masked | mode, GetParam(), 0, tenths), masked | mode);
  }
}

TEST_P(TwistMxcsr, IsAsBeforeInScalarCodeButForFlags) {
  const SelectedVariant plain(0);
  for (const unsigned mode : roundingModes)
    EXPECT_EQ(mxcsrAfter(masked | mode, GetParam(), 5, tenths) & ~flagBits, masked | mode);
}

INSTANTIATE_TEST_SUITE_P(, TwistMxcsr, testing::ValuesIn(conversionsOf(Kind::Twist)),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
