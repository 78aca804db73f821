// SPDX-License-Identifier: MIT
// The scalar arithmetic of the encoders, compiled once more for this test: every pixel through each
// luma form, every reachable sum through each chroma form.
#define PXM_LEVEL tested
#include <gtest/gtest.h>

#include "encode/arithmetic.inl"
#include "tests/oracle/oracle.h"

namespace pxm::tested {
namespace {

template <class Unpack>
void expectLumaOfAllPixels(oracle::Rgb (*unpack)(std::uint16_t)) {
  for (int word = 0; word < 65536; ++word) {
    const Components got = Unpack::unpack(word);
    const oracle::Rgb expected = unpack(static_cast<std::uint16_t>(word));
    ASSERT_EQ((oracle::Rgb{got.red, got.green, got.blue}), expected) << word;
    ASSERT_EQ(EncodeLuma(got), oracle::encodeLuma(expected)) << word;
    ASSERT_EQ(EncodeCbSingle(got), oracle::encodeCbSingle(expected)) << word;
    const std::int64_t weight = oracle::encodeYuvWeight(expected);
    ASSERT_EQ(EncodeYuvWeight(got), weight) << word;
    ASSERT_EQ(EncodeYuvLuma<32768>(EncodeYuvWeight(got)), oracle::encodeYuvLuma(weight, 32768));
    ASSERT_EQ(EncodeYuvLuma<0>(EncodeYuvWeight(got)), oracle::encodeYuvLuma(weight, 0));
  }
}

TEST(Luma, OfAllBgr555Pixels) {
  expectLumaOfAllPixels<UnpackBgr555>(oracle::unpackBgr555);
}
TEST(Luma, OfAllBgr565Pixels) {
  expectLumaOfAllPixels<UnpackBgr565>(oracle::unpackBgr565);
}
TEST(Luma, OfAllRgb565Pixels) {
  expectLumaOfAllPixels<UnpackRgb565>(oracle::unpackRgb565);
}

// Sums of n pixels: multiples of 8 to n * 248, of green in 565 multiples of 4 to n * 252. YUV sees
// green through the weight alone, which is linear.
template <int n>
void expectChromaOfAllSums(int greenStep, int mostGreen) {
  for (int r = 0; r <= n * 248; r += 8)
    for (int g = 0; g <= n * mostGreen; g += greenStep)
      for (int b = 0; b <= n * 248; b += 8) {
        const Components sum = {r, g, b};
        const int weights = 19595 * r + 38470 * g + 7471 * b;
        ASSERT_EQ(EncodeCb<n>(sum), oracle::encodeCb(r, g, b, n)) << r << " " << g << " " << b;
        ASSERT_EQ(EncodeCr<n>(sum), oracle::encodeCr(r, g, b, n)) << r << " " << g << " " << b;
        ASSERT_EQ(EncodeU<n>(b, weights), oracle::encodeU(b, weights, n))
            << r << " " << g << " " << b;
        ASSERT_EQ(EncodeV<n>(r, weights), oracle::encodeV(r, weights, n))
            << r << " " << g << " " << b;
      }
}

TEST(Chroma, OfAllSumsOfFour555Pixels) {
  expectChromaOfAllSums<4>(8, 248);
}
TEST(Chroma, OfAllSumsOfTwo555Pixels) {
  expectChromaOfAllSums<2>(8, 248);
}
TEST(Chroma, OfAllSumsOfFour565Pixels) {
  expectChromaOfAllSums<4>(4, 252);
}
TEST(Chroma, OfAllSumsOfTwo565Pixels) {
  expectChromaOfAllSums<2>(4, 252);
}

}  // namespace
}  // namespace pxm::tested
