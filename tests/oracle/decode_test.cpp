// SPDX-License-Identifier: MIT
// Holds whole decoding calls to known pixels.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/oracle/oracle.h"
#include "tests/oracle/samples.h"

namespace oracle {
namespace {

std::uint16_t pixel444(std::string_view name, Rgb samples, int row = 0, int column = 0) {
  return decodePixel444(parseDecodeName(name).value(), Variant::mx, samples.r, samples.g, samples.b,
                        row, column);
}

std::vector<std::string> names444() {
  std::vector<std::string> names;
  for (std::string_view name : conversionNames()) {
    if (name.starts_with("YCbCrTo")) names.emplace_back(name);
  }
  return names;
}

TEST(Oracle444, PlanarAndInterleavedPlainDiffer) {
  const Rgb first{79, 112, 98};
  EXPECT_EQ(pixel444("YCbCrToRGB555_8u16u_P3C3R", first), 0x15A3);
  EXPECT_EQ(pixel444("YCbCrToRGB555_8u16u_C3R", first), 0x1583);
  EXPECT_EQ(decodeStaged(79, 112, 98).g, 104);
  EXPECT_EQ(decodeWide(79, 112, 98).g, 103);
  const Rgb second{240, 255, 235};
  EXPECT_EQ(pixel444("YCbCrToRGB565_8u16u_P3C3R", second), 0xFBFF);
  EXPECT_EQ(pixel444("YCbCrToRGB565_8u16u_C3R", second), 0xFBDF);
}

TEST(Oracle444, NominalWhiteDitheredGreenIs62AtFourPlaces) {
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      const int word = pixel444("YCbCrToBGR565Dither_8u16u_C3R", {235, 128, 128}, row, column);
      const bool low = row % 2 == 1 && column % 2 == 0;
      EXPECT_EQ(low, threshold(565, row, column) / 2 >= 792);
      EXPECT_EQ((word >> 5) & 63, low ? 62 : 63);
    }
  }
}

TEST(Oracle444, PlanarAndInterleavedDitheredAgree) {
  std::int64_t different = 0;
  const auto planar = parseDecodeName("YCbCrToBGR565Dither_8u16u_P3C3R").value();
  const auto interleaved = parseDecodeName("YCbCrToBGR565Dither_8u16u_C3R").value();
  forAllSamples([&](int y, int cb, int cr) {
    const int row = y + cb, column = cr;
    different += decodePixel444(planar, Variant::mx, y, cb, cr, row, column) !=
                 decodePixel444(interleaved, Variant::mx, y, cb, cr, row, column);
  });
  EXPECT_EQ(different, 0);
}

TEST(Oracle444, ColourOrdersDifferInTheSwapOfTheOuterFields) {
  std::int64_t wrong = 0;
  const auto bgr = parseDecodeName("YCbCrToBGR444_8u16u_C3R").value();
  const auto rgb = parseDecodeName("YCbCrToRGB444_8u16u_C3R").value();
  forAllSamples([&](int y, int cb, int cr) {
    const int first = decodePixel444(bgr, Variant::mx, y, cb, cr, 0, 0);
    const int second = decodePixel444(rgb, Variant::mx, y, cb, cr, 0, 0);
    const int swapped = (first & 0x00F0) | ((first & 0x000F) << 8) | ((first >> 8) & 0x000F);
    wrong += second != swapped || first > 0x0FFF;
  });
  EXPECT_EQ(wrong, 0);
}

constexpr std::uint8_t kUntouched = 0xA5;

// An image of samples in both layouts, with room around the rows, and a destination.
struct Scene {
  static constexpr int kWidth = 7, kHeight = 6, kPitch = 40, kMargin = 512;
  std::vector<std::uint8_t> source = std::vector<std::uint8_t>(3 * kPitch * kHeight);
  std::vector<std::uint8_t> target = std::vector<std::uint8_t>(2 * kMargin, kUntouched);

  Scene() {
    for (std::size_t i = 0; i < source.size(); ++i) {
      source[i] = static_cast<std::uint8_t>(i * i * 7 + i * 31 + 11);
    }
  }

  // For an interleaved name only the first plane counts.
  DecodeCall call(int dstStep, int width = kWidth, int height = kHeight) {
    const std::uint8_t* first = source.data();
    return {{first, first + kPitch * kHeight, first + 2 * kPitch * kHeight},
            {kPitch, -1, -1},
            target.data() + kMargin,
            dstStep,
            width,
            height};
  }

  std::uint16_t wanted(const DecodeName& name, int row, int column) const {
    const bool packed = name.layout == DecodeLayout::C3;
    const auto sample = [&](int k) -> int {
      const int at = packed ? row * kPitch + 3 * column + k : (k * kHeight + row) * kPitch + column;
      return source[static_cast<std::size_t>(at)];
    };
    return decodePixel444(name, Variant::mx, sample(0), sample(1), sample(2), row, column);
  }

  // Puts the wanted rows into an untouched image, at rows that lie evenStep bytes apart.
  std::vector<std::uint8_t> expected(const DecodeName& name, int evenStep, int width = kWidth,
                                     int height = kHeight) const {
    std::vector<std::uint8_t> image(target.size(), kUntouched);
    for (int row = 0; row < height; ++row) {
      for (int column = 0; column < width; ++column) {
        const auto at = static_cast<std::size_t>(kMargin + row * evenStep + 2 * column);
        const std::uint16_t word = wanted(name, row, column);
        image[at] = static_cast<std::uint8_t>(word & 0xFF);
        image[at + 1] = static_cast<std::uint8_t>(word >> 8);
      }
    }
    return image;
  }
};

void expectSteps(int dstStep, int evenStep) {
  for (const std::string& name : names444()) {
    Scene scene;
    EXPECT_EQ(decode(name, Variant::mx, scene.call(dstStep)), 0);
    EXPECT_EQ(scene.target, scene.expected(parseDecodeName(name).value(), evenStep)) << name;
  }
}

TEST(Oracle444, TwentyFourNames) {
  EXPECT_EQ(names444().size(), 24u);
}

TEST(Oracle444, WritesTheRegionAndNothingElse) {
  expectSteps(20, 20);
}

TEST(Oracle444, OddPitchLosesItsLowBit) {
  expectSteps(21, 20);
  expectSteps(-21, -22);
}

TEST(Oracle444, NegativePitchWalksUp) {
  expectSteps(-30, -30);
}

TEST(Oracle444, PitchZeroWritesEveryRowOverTheFirst) {
  expectSteps(0, 0);
  expectSteps(1, 0);
}

TEST(Oracle444, Pitches641AndMinus641) {
  std::vector<std::uint8_t> target(2000, kUntouched);
  const std::uint8_t samples[2][3] = {{235, 128, 128}, {235, 128, 128}};
  DecodeCall call{{samples[0], nullptr, nullptr}, {3, 0, 0}, target.data() + 800, 641, 1, 2};
  EXPECT_EQ(decode("YCbCrToBGR565_8u16u_C3R", Variant::mx, call), 0);
  call.dstStep = -641;
  EXPECT_EQ(decode("YCbCrToBGR565_8u16u_C3R", Variant::mx, call), 0);
  std::vector<std::size_t> written;
  for (std::size_t i = 0; i < target.size(); ++i) {
    if (target[i] != kUntouched) written.push_back(i);
  }
  EXPECT_EQ(written, (std::vector<std::size_t>{158, 159, 800, 801, 1440, 1441}));
}

TEST(Oracle444, OnePixelWideOrHighIsAsAnyOther) {
  for (const std::string& name : names444()) {
    for (auto [width, height] : {std::pair{1, 1}, {1, 6}, {7, 1}}) {
      Scene scene;
      EXPECT_EQ(decode(name, Variant::mx, scene.call(20, width, height)), 0);
      EXPECT_EQ(scene.target, scene.expected(parseDecodeName(name).value(), 20, width, height));
    }
  }
}

// Reverses the order of the rows in each plane.
std::vector<std::uint8_t> upsideDown(const std::vector<std::uint8_t>& source) {
  std::vector<std::uint8_t> turned;
  for (int plane = 0; plane < 3; ++plane) {
    for (int row = Scene::kHeight - 1; row >= 0; --row) {
      const auto first = source.begin() + (plane * Scene::kHeight + row) * Scene::kPitch;
      turned.insert(turned.end(), first, first + Scene::kPitch);
    }
  }
  return turned;
}

TEST(Oracle444, NegativeSourcePitchWalksUp) {
  for (const std::string& name : names444()) {
    Scene scene;
    const std::vector<std::uint8_t> wanted = scene.expected(parseDecodeName(name).value(), 20);
    scene.source = upsideDown(scene.source);
    DecodeCall call = scene.call(20);
    for (const std::uint8_t*& plane : call.src) plane += (Scene::kHeight - 1) * Scene::kPitch;
    call.srcStep[0] = -Scene::kPitch;
    EXPECT_EQ(decode(name, Variant::mx, call), 0);
    EXPECT_EQ(scene.target, wanted) << name;
  }
}

TEST(Oracle444, DestinationMayStandAtAnOddAddress) {
  for (const std::string& name : names444()) {
    Scene scene;
    DecodeCall call = scene.call(20);
    ++call.dst;
    EXPECT_EQ(decode(name, Variant::mx, call), 0);
    std::vector<std::uint8_t> wanted = scene.expected(parseDecodeName(name).value(), 20);
    std::rotate(wanted.begin(), wanted.end() - 1, wanted.end());
    EXPECT_EQ(scene.target, wanted) << name;
  }
}

TEST(Oracle444, EveryVariantAnswersAsTheReference) {
  for (const std::string& name : names444()) {
    for (int slot = 0; slot < 7; ++slot) {
      Scene scene;
      EXPECT_EQ(decode(name, static_cast<Variant>(slot), scene.call(20)), 0);
      EXPECT_EQ(scene.target, scene.expected(parseDecodeName(name).value(), 20));
    }
  }
}

TEST(Oracle444, NamesThatDoNotDecodeAreRefusedAloud) {
  Scene scene;
  for (const char* name : {"BGR565ToBGR_16u8u_C3R", "YCbCr411ToRGB555_8u16u_P3C3R", ""}) {
    EXPECT_THROW(decode(name, Variant::mx, scene.call(20)), std::invalid_argument);
  }
}

}  // namespace
}  // namespace oracle
