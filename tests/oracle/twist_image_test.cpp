// SPDX-License-Identifier: MIT
// Holds whole calls of the colour twist to known bytes.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_images.h"

namespace oracle {
namespace {

using Matrix = std::array<std::array<float, 4>, 3>;

constexpr Matrix kIdentity = {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};
constexpr Matrix kMixture = {
    {{0.3F, -0.6F, 0.2F, 11.0F}, {0.0F, 0.5F, 0.5F, 0.0F}, {-1.5F, 0.25F, 1.0F, -3.5F}}};
constexpr Matrix kRotation = {{{0, 1, 0, 0}, {0, 0, 1, 0}, {1, 0, 0, 0}}};

struct Geometry {
  int width, height, pixelBytes, srcStep, dstStep;
};

void setMatrix(TwistCall& call, const Matrix& matrix) {
  for (std::size_t r = 0; r < 3; ++r) std::copy(matrix[r].begin(), matrix[r].end(), call.twist[r]);
}

TwistCall packedCall(const SignedBytes& src, SignedBytes& dst, const Geometry& g,
                     const Matrix& matrix) {
  TwistCall call{{src.data(), nullptr, nullptr},
                 g.srcStep,
                 {dst.data(), nullptr, nullptr},
                 g.dstStep,
                 g.width,
                 g.height,
                 {}};
  setMatrix(call, matrix);
  return call;
}

// What a packed image comes to: three bytes of each pixel of target are replaced.
SignedBytes expectedPacked(const SignedBytes& src, SignedBytes target, const Geometry& g,
                           const Matrix& matrix) {
  for (int row = 0; row < g.height; ++row) {
    for (int x = 0; x < g.width; ++x) {
      const auto from = static_cast<std::size_t>(row * g.srcStep + x * g.pixelBytes);
      const auto to = static_cast<std::size_t>(row * g.dstStep + x * g.pixelBytes);
      for (std::size_t k = 0; k < 3; ++k) {
        target[to + k] = static_cast<std::int8_t>(
            twistChannel(matrix[k].data(), src[from], src[from + 1], src[from + 2]));
      }
    }
  }
  return target;
}

// The source and the destination end with the third byte of the last pixel.
std::size_t sizeOf(const Geometry& g, int step) {
  return static_cast<std::size_t>((g.height - 1) * step + (g.width - 1) * g.pixelBytes + 3);
}

constexpr Geometry kGeometries[] = {{1, 1, 3, 3, 3},   {1, 4, 3, 5, 4},   {7, 3, 3, 21, 23},
                                    {5, 4, 3, 16, 15}, {1, 1, 4, 4, 4},   {6, 3, 4, 24, 27},
                                    {3, 5, 4, 13, 12}, {17, 2, 4, 68, 69}};

TEST(OracleTwistImage, PackedImages) {
  for (const Geometry& g : kGeometries) {
    const char* name = g.pixelBytes == 3 ? "ColorTwist32f_8s_C3R" : "ColorTwist32f_8s_AC4R";
    const SignedBytes src = signedNoise(sizeOf(g, g.srcStep), 1);
    for (const Matrix& matrix : {kIdentity, kMixture, kRotation}) {
      SignedBytes dst = signedNoise(sizeOf(g, g.dstStep), 2);
      const SignedBytes wanted = expectedPacked(src, dst, g, matrix);
      EXPECT_EQ(twist(name, Variant::mx, packedCall(src, dst, g, matrix)), 0);
      EXPECT_EQ(dst, wanted) << name;
    }
  }
}

TEST(OracleTwistImage, PackedImagesInPlace) {
  for (Geometry g : kGeometries) {
    const char* name = g.pixelBytes == 3 ? "ColorTwist32f_8s_C3IR" : "ColorTwist32f_8s_AC4IR";
    g.dstStep = g.srcStep;
    const SignedBytes old = signedNoise(sizeOf(g, g.srcStep), 3);
    SignedBytes image = old;
    const TwistCall call = packedCall(image, image, g, kMixture);
    EXPECT_EQ(twist(name, Variant::mx, call), 0);
    EXPECT_EQ(image, expectedPacked(old, old, g, kMixture)) << name;
  }
}

TEST(OracleTwistImage, OnePixelInPlaceUsesTheOldSamples) {
  SignedBytes image = {10, 20, 30};
  EXPECT_EQ(twist("ColorTwist32f_8s_C3IR", Variant::mx,
                  packedCall(image, image, {1, 1, 3, 3, 3}, kRotation)),
            0);
  EXPECT_EQ(image, (SignedBytes{20, 30, 10}));
}

TEST(OracleTwistImage, FourthByteStaysAsItWas) {
  const SignedBytes src = {1, 2, 3, 99, 4, 5, 6, 98};
  SignedBytes dst = {0, 0, 0, 50, 0, 0, 0, 51};
  twist("ColorTwist32f_8s_AC4R", Variant::mx, packedCall(src, dst, {2, 1, 4, 8, 8}, kIdentity));
  EXPECT_EQ(dst, (SignedBytes{1, 2, 3, 50, 4, 5, 6, 51}));
  SignedBytes image = src;
  twist("ColorTwist32f_8s_AC4IR", Variant::mx,
        packedCall(image, image, {2, 1, 4, 8, 8}, kRotation));
  EXPECT_EQ(image, (SignedBytes{2, 3, 1, 99, 5, 6, 4, 98}));
}

TwistCall planarCall(const SignedBytes (&src)[3], SignedBytes (&dst)[3], const Geometry& g,
                     const Matrix& matrix) {
  TwistCall call{{src[0].data(), src[1].data(), src[2].data()},
                 g.srcStep,
                 {dst[0].data(), dst[1].data(), dst[2].data()},
                 g.dstStep,
                 g.width,
                 g.height,
                 {}};
  setMatrix(call, matrix);
  return call;
}

// Planes of exactly the bytes of the region.
std::size_t planeSize(const Geometry& g, int step) {
  return static_cast<std::size_t>((g.height - 1) * step + g.width);
}

void expectPlanes(const SignedBytes (&src)[3], const SignedBytes (&dst)[3], const Geometry& g,
                  const Matrix& matrix) {
  for (int row = 0; row < g.height; ++row) {
    for (int x = 0; x < g.width; ++x) {
      const auto from = static_cast<std::size_t>(row * g.srcStep + x);
      const auto to = static_cast<std::size_t>(row * g.dstStep + x);
      for (std::size_t k = 0; k < 3; ++k) {
        EXPECT_EQ(dst[k][to],
                  twistChannel(matrix[k].data(), src[0][from], src[1][from], src[2][from]));
      }
    }
  }
}

TEST(OracleTwistImage, PlanarImages) {
  for (const Geometry& g : {Geometry{1, 1, 1, 1, 1}, {7, 3, 1, 9, 8}, {4, 4, 1, 4, 5}}) {
    const std::size_t size = planeSize(g, g.srcStep);
    const SignedBytes src[3] = {signedNoise(size, 1), signedNoise(size, 2), signedNoise(size, 3)};
    const SignedBytes old(planeSize(g, g.dstStep), 55);
    SignedBytes dst[3] = {old, old, old};
    EXPECT_EQ(twist("ColorTwist32f_8s_P3R", Variant::mx, planarCall(src, dst, g, kMixture)), 0);
    expectPlanes(src, dst, g, kMixture);
    for (int row = 0; row + 1 < g.height; ++row) {
      for (int x = g.width; x < g.dstStep; ++x) {
        EXPECT_EQ(dst[1][static_cast<std::size_t>(row * g.dstStep + x)], 55);
      }
    }
    SignedBytes image[3] = {src[0], src[1], src[2]};
    Geometry same = g;
    same.dstStep = g.srcStep;
    EXPECT_EQ(twist("ColorTwist32f_8s_IP3R", Variant::mx, planarCall(image, image, same, kMixture)),
              0);
    expectPlanes(src, image, same, kMixture);
  }
}

TEST(OracleTwistImage, IdentityReturnsEverySample) {
  SignedBytes src;
  for (int s = -128; s <= 127; ++s) src.insert(src.end(), 3, static_cast<std::int8_t>(s));
  SignedBytes dst(src.size());
  const Geometry g{256, 1, 3, 768, 768};
  twist("ColorTwist32f_8s_C3R", Variant::mx, packedCall(src, dst, g, kIdentity));
  EXPECT_EQ(dst, src);
}

TEST(OracleTwistImage, ConstantsAndNotANumberInTheFirstRowReachChannel0Alone) {
  const SignedBytes src = {-128, 5, 6, 127, -7, 8};
  const float nan = std::numeric_limits<float>::quiet_NaN();
  for (auto [t00, t03, byte] : {std::array{0.0F, 200.0F, 127.0F},
                                std::array{0.0F, -200.0F, -128.0F}, std::array{nan, 0.0F, 0.0F}}) {
    Matrix matrix = kIdentity;
    matrix[0] = {t00, 0, 0, t03};
    SignedBytes dst(6);
    twist("ColorTwist32f_8s_C3R", Variant::mx, packedCall(src, dst, {2, 1, 3, 6, 6}, matrix));
    const auto first = static_cast<std::int8_t>(byte);
    EXPECT_EQ(dst, (SignedBytes{first, 5, 6, first, -7, 8}));
  }
}

TEST(OracleTwistImage, EveryVariantMovesChannelsAlike) {
  for (int slot = 0; slot < 7; ++slot) {
    SignedBytes image = {10, 20, 30};
    twist("ColorTwist32f_8s_C3IR", static_cast<Variant>(slot),
          packedCall(image, image, {1, 1, 3, 3, 3}, kRotation));
    EXPECT_EQ(image, (SignedBytes{20, 30, 10}));
  }
}

TEST(OracleTwistImage, OtherNamesAreRefusedAloud) {
  SignedBytes image = {10, 20, 30};
  const TwistCall call = packedCall(image, image, {1, 1, 3, 3, 3}, kRotation);
  EXPECT_THROW(twist("ColorTwist32f_8s_P3IR", Variant::mx, call), std::invalid_argument);
  EXPECT_THROW(twist("BGR565ToBGR_16u8u_C3R", Variant::mx, call), std::invalid_argument);
}

}  // namespace
}  // namespace oracle
