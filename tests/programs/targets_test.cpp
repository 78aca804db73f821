// SPDX-License-Identifier: MIT
// Many samples at many sizes against the conversion formulas in floating point.
#include <array>
#include <cmath>
#include <string>
#include <tuple>
#include <vector>

#include "clip_bytes.h"
#include "formulas.h"
#include "program_run.h"

namespace programs {
namespace {

std::vector<Sample> manySamples(int width, int height) {
  std::vector<Sample> samples;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      samples.push_back(
          {(x * 37 + y * 101) % 256, (x * 91 + y * 17 + 40) % 256, (x * 53 + y * 29 + 170) % 256});
    }
  }
  return samples;
}

struct Size {
  int width, height;
};

constexpr Size kSizes[] = {{1, 1}, {3, 5}, {17, 9}, {1, 7}, {7, 1}, {2, 2}, {64, 33}, {255, 64}};

class Targets : public ProgramTest, public testing::WithParamInterface<std::tuple<Target, Size>> {
 protected:
  const Target target = std::get<0>(GetParam());
  const Size size = std::get<1>(GetParam());
  const std::vector<Sample> samples = manySamples(size.width, size.height);

  // Bytes of the picture; one for each component of each sample.
  std::vector<unsigned char> convert(const std::vector<std::string>& options) const {
    std::vector<std::string> arguments = {"--to", target.name, "in.y4m", "out.png"};
    arguments.insert(arguments.begin(), options.begin(), options.end());
    store("in.y4m", clip(size.width, size.height, samples));
    EXPECT_TRUE(succeeded(y4m2rgb(arguments)));
    const Picture picture = readPicture(path("out.png"));
    EXPECT_EQ(picture.width, size.width);
    EXPECT_EQ(picture.height, size.height);
    std::vector<unsigned char> bytes = picture.bytes;
    EXPECT_EQ(bytes.size(), samples.size() * 3);
    bytes.resize(samples.size() * 3);
    return bytes;
  }
};

TEST_P(Targets, PlainDropsLowBits) {
  const auto bytes = convert({});
  size_t clear = 0;
  for (size_t i = 0; i < bytes.size(); ++i) {
    const double value = components(samples[i / 3])[i % 3];
    const int bits = target.bits[i % 3];
    if (isClear(value, bits)) {
      ++clear;
      ASSERT_EQ(bytes[i], shown(plainLevel(value, bits), bits)) << "byte " << i;
    }
  }
  EXPECT_GE(clear * 2, bytes.size());
}

TEST_P(Targets, DitherRoundsUpOrDown) {
  const auto bytes = convert({"--dither"});
  for (size_t i = 0; i < bytes.size(); ++i) {
    const double value = components(samples[i / 3])[i % 3];
    ASSERT_TRUE(isDithered(bytes[i], value, target.bits[i % 3])) << "byte " << i;
  }
}

std::string nameOf(const testing::TestParamInfo<std::tuple<Target, Size>>& parameters) {
  const auto& [target, size] = parameters.param;
  return std::string(target.name) + "_" + std::to_string(size.width) + "x" +
         std::to_string(size.height);
}

INSTANTIATE_TEST_SUITE_P(All, Targets,
                         testing::Combine(testing::ValuesIn(kTargets), testing::ValuesIn(kSizes)),
                         nameOf);

class FlatColours : public ProgramTest {};

// Components are 133, which is 7.79 of 15, 16.1 of 31 and 32.7 of 63.
TEST_F(FlatColours, DitheredGreyHasItsMeanInEveryBlock) {
  store("in.y4m", flatClip(4, 4, {131, 128, 128}));
  for (const Target& target : kTargets) {
    EXPECT_TRUE(succeeded(y4m2rgb({"--dither", "--to", target.name, "in.y4m", "out.png"})));
    const Picture picture = readPicture(path("out.png"));
    ASSERT_EQ(picture.bytes.size(), 4u * 4u * 3u);
    for (size_t component = 0; component < 3; ++component) {
      const int highest = (1 << target.bits[component]) - 1;
      double sum = 0;
      for (size_t i = component; i < picture.bytes.size(); i += 3) {
        sum += std::round(picture.bytes[i] * highest / 255.0);
      }
      EXPECT_NEAR(sum / 16, 133 * highest / 256.0, 0.13) << target.name;
    }
  }
}

}  // namespace
}  // namespace programs
