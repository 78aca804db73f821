// SPDX-License-Identifier: MIT
// All 16,777,216 triples of samples through 72 matrices and the six layouts in every level, in the
// caller's four rounding modes. PXM_TEST_STRIDE=n in the environment takes every n-th matrix.
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
#include "tests/support/cases.h"
#include "tests/support/random.h"
#include "tests/support/stride.h"

namespace {

Cases& cases = casesOf("pixels compared with the oracle");

constexpr int side = 4096;
constexpr std::size_t tripleCount = std::size_t{side} * side;
using Bytes = std::vector<std::uint8_t>;

struct NamedMatrix {
  std::string name;
  float weights[3][4];
};

NamedMatrix permutation(const int (&order)[3]) {
  NamedMatrix m = {"permutation", {}};
  for (int r = 0; r < 3; ++r) m.weights[r][order[r]] = 1;
  return m;
}

NamedMatrix withInPlace(const char* name, int place, float value) {
  NamedMatrix m = {name, {}};
  std::memcpy(m.weights, ordinaryTwist, sizeof m.weights);
  m.weights[place / 4][place % 4] = value;
  return m;
}

NamedMatrix randomMatrix(Random& random, float scale) {
  NamedMatrix m = {"random", {}};
  for (auto& row : m.weights) {
    for (float& weight : row)
      weight = scale * static_cast<float>(random.below(4001) - 2000) / 999.0f;
    row[3] *= 40.0f;
  }
  return m;
}

std::vector<NamedMatrix> matrices() {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  Random random("twist of all triples");
  std::vector<NamedMatrix> all;
  constexpr int orders[6][3] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};
  for (const auto& order : orders) all.push_back(permutation(order));
  for (int place = 0; place < 12; ++place) {
    all.push_back(withInPlace("NaN", place, std::numeric_limits<float>::quiet_NaN()));
    all.push_back(withInPlace("infinity", place, place % 2 ? infinity : -infinity));
  }
  // Every sum is a multiple of a half, or of a quarter.
  all.push_back({"halves", {{0.5f, 0, 0, 0}, {0.5f, 0.5f, 0, 0.5f}, {-0.5f, 0.5f, 0.5f, -0.5f}}});
  all.push_back({"halves", {{0, 0, 0.5f, 0.5f}, {1, 0.5f, 0, 0}, {1.5f, -1.5f, 0.5f, 63.5f}}});
  all.push_back(
      {"quarters", {{0.25f, 0.25f, 0, 0}, {0, 0.75f, 0.25f, 0.5f}, {0.25f, 0.25f, 0.25f, -0.25f}}});
  all.push_back(
      {"halves missed", {{0.5f, 0x1p-20f, 0, 0}, {0, 0.5f, -0x1p-20f, 0}, {0x1p-22f, 0, 0.5f, 0}}});
  all.push_back({"tiny",
                 {{0x1p-149f, 0, 0, 0.5f},
                  {0, 0x1p-126f, 0x1p-149f, -0.5f},
                  {0x1p-100f, 0x1p-130f, 0x1p-140f, 0}}});
  all.push_back(
      {"tiny", {{0x1p-24f, 0, 0, 0.5f}, {0x1p-24f, 0, 0, -0.5f}, {0, 0x1p-25f, 0x1p-25f, 126.5f}}});
  all.push_back({"huge", {{1e30f, 0, 0, 0}, {0, -1e30f, 1e30f, 0}, {3e38f, 3e38f, -3e38f, 0}}});
  all.push_back(
      {"huge",
       {{16777216.0f, -16777216.0f, 1, 0}, {0, 2147483648.0f, 0, 0}, {1, 1, 1, 2147483648.0f}}});
  for (int i = 0; i < 34; ++i) all.push_back(randomMatrix(random, i % 2 ? 1.0f : 0.25f));
  return all;
}

// Each triple once, in planes or in pixels of 3 or 4 bytes.
Bytes allTriples(std::size_t pixelBytes) {
  Bytes bytes(3 * tripleCount + (pixelBytes == 4 ? tripleCount : 0), 0x5A);
  for (std::size_t i = 0; i < tripleCount; ++i)
    for (std::size_t k = 0; k < 3; ++k)
      bytes[pixelBytes == 1 ? k * tripleCount + i : pixelBytes * i + k] =
          static_cast<std::uint8_t>(i * 0x9E3779B1u >> 8 * k);
  return bytes;
}

class TwistExhaustive : public testing::TestWithParam<Conversion> {
 protected:
  TwistExhaustive()
      : pixelBytes_(GetParam().has("P3")    ? 1u
                    : GetParam().has("AC4") ? 4u
                                            : 3u),
        inPlace_(GetParam().has("IR") || GetParam().has("IP3")),
        samples_(allTriples(pixelBytes_)) {}

  template <class Convert>
  const Bytes& converted(const NamedMatrix& matrix, Convert convert) {
    if (inPlace_)
      out_ = samples_;
    else
      out_.assign(samples_.size(), 0x5A);
    CallArguments a = {};
    for (std::size_t i = 0; i < (pixelBytes_ == 1 ? 3u : 1u); ++i) {
      a.src[i] = samples_.data() + i * tripleCount;
      a.dst[i] = out_.data() + i * tripleCount;
    }
    a.srcStep[0] = a.dstStep[0] = static_cast<int>(pixelBytes_) * side;
    a.size = {side, side};
    std::memcpy(a.twist, matrix.weights, sizeof a.twist);
    convert(a);
    return out_;
  }

  Bytes expected(const NamedMatrix& matrix, int variant) {
    return converted(matrix,
                     [&](const CallArguments& a) { convertByOracle(GetParam(), variant, a); });
  }

  const Bytes& got(const NamedMatrix& matrix, int variant) {
    const SelectedVariant selected(variant);
    cases += std::size_t{side} * side;
    return converted(matrix, [](const CallArguments& a) { GetParam().call(a); });
  }

 private:
  std::size_t pixelBytes_;
  bool inPlace_;
  Bytes samples_, out_;
};

constexpr unsigned modes[] = {_MM_ROUND_NEAREST, _MM_ROUND_DOWN, _MM_ROUND_UP,
                              _MM_ROUND_TOWARD_ZERO};

// Matrices are dealt out to the six layouts in turn.
TEST_P(TwistExhaustive, AllTriplesThroughMatricesInEveryMode) {
  SCOPED_TRACE(seedMessage());
  const std::vector<NamedMatrix> all = matrices();
  ASSERT_EQ(all.size(), 72u);
  const std::vector<Conversion> layouts = conversionsOf(Kind::Twist);
  const std::vector<int> levels = runnableLevels(Kind::Twist);
  std::size_t first = 0;
  while (layouts[first].name != GetParam().name) ++first;
  for (std::size_t i = first; i < all.size();
       i += layouts.size() * static_cast<std::size_t>(testStride())) {
    // To nearest the oracle of the SIMD variants holds in every mode.
    const Bytes bySimd = expected(all[i], 1);
    for (const unsigned mode : modes) {
      const unsigned before = _mm_getcsr();
      _mm_setcsr((before & ~0x6000u) | mode);
      // Scalar code follows the mode. One matrix a layout shows it in all four.
      if (levels.front() == 0 && (mode == _MM_ROUND_NEAREST || i == first)) {
        const Bytes want = expected(all[i], 0);
        EXPECT_TRUE(got(all[i], 0) == want) << all[i].name << " " << i << " mx";
      }
      for (const int variant : levels) {
        if (variant == 0) continue;
        EXPECT_TRUE(got(all[i], variant) == bySimd)
            << all[i].name << " " << i << " " << variantTags[variant] << " mode " << mode;
      }
      _mm_setcsr(before);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, TwistExhaustive, testing::ValuesIn(conversionsOf(Kind::Twist)),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
