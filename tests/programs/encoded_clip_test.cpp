// SPDX-License-Identifier: MIT
// The clips that png2y4m writes: headers, sizes of planes, and samples by the formulas.
#include <unistd.h>

#include <array>
#include <string>
#include <tuple>
#include <vector>

#include "formulas.h"
#include "png_bytes.h"
#include "program_run.h"

namespace programs {
namespace {

// An output of --chroma, and how many pixels share a chroma sample.
struct Encoding {
  const char* name;
  const char* words;
  int columns, rows;
  bool isYuv;
};

constexpr Encoding kEncodings[] = {{"420", "C420jpeg XCOLORRANGE=LIMITED", 2, 2, false},
                                   {"422", "C422 XCOLORRANGE=LIMITED", 2, 1, false},
                                   {"411", "C411 XCOLORRANGE=LIMITED", 4, 1, false},
                                   {"yuv420", "C420jpeg XCOLORRANGE=FULL", 2, 2, true}};

struct Size {
  int width, height;
};

constexpr Size kSizes[] = {{1, 1}, {1, 7}, {7, 1}, {2, 1},  {1, 2},  {2, 2}, {3, 5},
                           {5, 3}, {6, 1}, {4, 4}, {12, 3}, {13, 4}, {17, 9}};

// The roundings of fixed point add up to less.
constexpr double kSlack = 2;

// Whole levels of 5 bits that are far from each other in every sample.
constexpr Rgb kColours[7] = {{200, 40, 40},  {40, 160, 72}, {72, 56, 216},  {208, 184, 48},
                             {152, 88, 168}, {24, 24, 24},  {232, 224, 240}};

int groups(int side, int ofGroup) {
  return (side + ofGroup - 1) / ofGroup;
}

// The colour of a group of pixels that share a chroma sample. The low bits are for the 16-bit
// pixels to drop.
Rgb groupColour(int column, int row) {
  return kColours[(column + 3 * row) % 7];
}

std::string pictureOf(const Encoding& encoding, const Size& size) {
  return rgbPng(size.width, size.height, [&](int x, int y) {
    const Rgb colour = groupColour(x / encoding.columns, y / encoding.rows);
    return Rgb{colour[0] + (x + y) % 8, colour[1] + x % 4, colour[2] + y % 8};
  });
}

// Samples of a clip of one frame.
class Clip {
 public:
  Clip(const std::string& bytes, const Encoding& encoding, const Size& size)
      : encoding_(encoding),
        size_(size),
        chroma_{groups(size.width, encoding.columns), groups(size.height, encoding.rows)},
        header_("YUV4MPEG2 W" + std::to_string(size.width) + " H" + std::to_string(size.height) +
                " F25:1 Ip A1:1 " + encoding.words + "\nFRAME\n"),
        bytes_(bytes) {}

  bool isWhole() const {
    const int count = size_.width * size_.height + 2 * chroma_.width * chroma_.height;
    return bytes_.substr(0, header_.size()) == header_ &&
           bytes_.size() == header_.size() + static_cast<size_t>(count);
  }

  // The sample that serves a pixel.
  int at(int plane, int x, int y) const {
    const int luma = size_.width * size_.height;
    const int place = plane == 0 ? y * size_.width + x
                                 : luma + (plane - 1) * chroma_.width * chroma_.height +
                                       y / encoding_.rows * chroma_.width + x / encoding_.columns;
    return static_cast<unsigned char>(bytes_[header_.size() + static_cast<size_t>(place)]);
  }

 private:
  Encoding encoding_;
  Size size_;
  Size chroma_;
  std::string header_;
  std::string bytes_;
};

class EncodedClip : public ProgramTest,
                    public testing::WithParamInterface<std::tuple<const char*, Encoding>> {
 protected:
  const std::string via = std::get<0>(GetParam());
  const Encoding encoding = std::get<1>(GetParam());

  Clip encode(const std::string& png, const Size& size) const {
    store("in.png", png);
    EXPECT_TRUE(succeeded(png2y4m({"--via", via, "--chroma", encoding.name, "in.png", "out.y4m"})));
    EXPECT_EQ(files(), (std::vector<std::string>{"in.png", "out.y4m"}));
    return {load("out.y4m"), encoding, size};
  }

  void checkPixel(const Clip& clip, int x, int y) const {
    const Rgb colour = groupColour(x / encoding.columns, y / encoding.rows);
    const auto wanted = encoding.isYuv ? yuvSamplesOf(colour) : samplesOf(colour);
    for (int plane = 0; plane < 3; ++plane) {
      EXPECT_NEAR(clip.at(plane, x, y), wanted[static_cast<size_t>(plane)], kSlack)
          << "plane " << plane << " at " << x << ", " << y;
    }
  }
};

TEST_P(EncodedClip, EveryGroupHasItsOwnSamples) {
  for (const Size& size : kSizes) {
    const Clip clip = encode(pictureOf(encoding, size), size);
    ASSERT_TRUE(clip.isWhole()) << size.width << "x" << size.height;
    for (int y = 0; y < size.height; ++y) {
      for (int x = 0; x < size.width; ++x) {
        checkPixel(clip, x, y);
        ASSERT_FALSE(HasFailure()) << size.width << "x" << size.height;
      }
    }
  }
}

// Chroma of a group is the mean; what is over at an edge is a group of its own last column and row.
TEST_P(EncodedClip, ChromaIsTheMeanOfTheGroup) {
  const Size size = {encoding.columns + 1, encoding.rows + 1};
  const Clip clip =
      encode(rgbPng(size.width, size.height,
                    [&](int x, int y) {
                      return kColours[x == encoding.columns || y == encoding.rows ? 4 : x % 2];
                    }),
             size);
  ASSERT_TRUE(clip.isWhole());
  const Rgb mean = {120, 100, 56};
  const auto inside = encoding.isYuv ? yuvSamplesOf(mean) : samplesOf(mean);
  const auto edge = encoding.isYuv ? yuvSamplesOf(kColours[4]) : samplesOf(kColours[4]);
  for (int plane = 1; plane < 3; ++plane) {
    EXPECT_NEAR(clip.at(plane, 0, 0), inside[static_cast<size_t>(plane)], kSlack);
    EXPECT_NEAR(clip.at(plane, encoding.columns, 0), edge[static_cast<size_t>(plane)], kSlack);
    EXPECT_NEAR(clip.at(plane, 0, encoding.rows), edge[static_cast<size_t>(plane)], kSlack);
  }
}

std::string nameOf(const testing::TestParamInfo<std::tuple<const char*, Encoding>>& parameters) {
  return std::string(std::get<0>(parameters.param)) + "_" + std::get<1>(parameters.param).name;
}

INSTANTIATE_TEST_SUITE_P(Bgr, EncodedClip,
                         testing::Combine(testing::Values("bgr555", "bgr565"),
                                          testing::ValuesIn(kEncodings)),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Rgb, EncodedClip,
                         testing::Combine(testing::Values("rgb565"),
                                          testing::Values(kEncodings[3])),
                         nameOf);

class ReadByFfmpeg : public ProgramTest, public testing::WithParamInterface<Encoding> {};

TEST_P(ReadByFfmpeg, WithoutAWord) {
  if (access(FFMPEG, X_OK) != 0) {
    GTEST_SKIP() << "ffmpeg is not installed";
  }
  const Encoding encoding = GetParam();
  store("in.png", pictureOf(encoding, {17, 9}));
  ASSERT_TRUE(succeeded(
      png2y4m({"--via=bgr565", "--chroma", encoding.name, "--frames=2", "in.png", "clip.y4m"})));
  const Outcome outcome = run({FFMPEG, "-nostdin", "-v", "error", "-i", "clip.y4m", "-map", "0:v",
                               "-c", "copy", "-f", "framecrc", "-"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_NE(outcome.out.find("#dimensions 0: 17x9\n"), std::string::npos) << outcome.out;
  EXPECT_TRUE(
      succeeded(run({FFMPEG, "-nostdin", "-v", "error", "-i", "clip.y4m", "-f", "null", "-"})));
}

INSTANTIATE_TEST_SUITE_P(All, ReadByFfmpeg, testing::ValuesIn(kEncodings),
                         [](const auto& parameters) {
                           return std::string("Chroma") + parameters.param.name;
                         });

}  // namespace
}  // namespace programs
