// SPDX-License-Identifier: MIT
// Clips with fewer chroma than luma samples: every pixel, at sizes that do and do not divide.
#include <array>
#include <string>
#include <tuple>
#include <vector>

#include "clip_bytes.h"
#include "formulas.h"
#include "program_run.h"

namespace programs {
namespace {

using Names = std::vector<std::string>;

// How a header names a chroma format, and how many pixels share a chroma sample.
struct ClipFormat {
  const char* name;
  const char* words;
  int columns, rows;
  bool isYuv;

  const char* matrix() const { return isYuv ? "yuv" : "ycbcr"; }
};

constexpr ClipFormat kFormats[] = {
    {"C444", " C444", 1, 1, false},
    {"C422", " C422", 2, 1, false},
    {"C420jpeg", " C420jpeg", 2, 2, false},
    {"C420mpeg2", " C420mpeg2 XYSCSS=420MPEG2", 2, 2, false},
    {"C420paldv", " C420paldv XCOLORRANGE=LIMITED", 2, 2, false},
    {"C420", " C420", 2, 2, false},
    {"NoTag", "", 2, 2, false},
    {"Yuv420", " C420jpeg XCOLORRANGE=FULL", 2, 2, true},
    {"YuvNoTag", "", 2, 2, true},
};
constexpr ClipFormat k411 = {"C411", " C411", 4, 1, false};

struct Size {
  int width, height;
};

constexpr Size kSizes[] = {{1, 1}, {1, 7}, {7, 1}, {2, 1},  {1, 2},  {2, 2}, {3, 5},
                           {5, 3}, {6, 1}, {4, 4}, {12, 3}, {13, 4}, {17, 9}};

// Any luma with any chroma gives components that are at least 1.3 from the ends of a level of 4, 5
// or 6 bits, and neighbours in chroma differ in some level.
constexpr int kYcbcrLuma[3] = {82, 123, 164};
constexpr int kYcbcrChroma[7][2] = {{91, 179},  {164, 178}, {168, 82}, {93, 84},
                                    {127, 132}, {103, 133}, {155, 133}};
constexpr int kYuvLuma[3] = {77, 109, 141};
constexpr int kYuvChroma[7][2] = {{179, 78},  {178, 176}, {91, 178}, {93, 80},
                                  {138, 134}, {104, 135}, {127, 162}};

int lumaAt(const ClipFormat& format, int x, int y) {
  const int i = (x + 2 * y) % 3;
  return format.isYuv ? kYuvLuma[i] : kYcbcrLuma[i];
}

int chromaAt(const ClipFormat& format, int plane, int column, int row) {
  const int i = (column + 3 * row) % 7;
  return format.isYuv ? kYuvChroma[i][plane] : kYcbcrChroma[i][plane];
}

int groups(int side, int ofGroup) {
  return (side + ofGroup - 1) / ofGroup;
}

// A clip of one frame whose samples are functions of their place.
std::string clipOf(const ClipFormat& format, const Size& size) {
  std::string bytes = "YUV4MPEG2 W" + std::to_string(size.width) + " H" +
                      std::to_string(size.height) + " F25:1" + format.words + "\nFRAME\n";
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      bytes += static_cast<char>(lumaAt(format, x, y));
    }
  }
  for (int plane = 0; plane < 2; ++plane) {
    for (int row = 0; row < groups(size.height, format.rows); ++row) {
      for (int column = 0; column < groups(size.width, format.columns); ++column) {
        bytes += static_cast<char>(chromaAt(format, plane, column, row));
      }
    }
  }
  return bytes;
}

std::array<double, 3> componentsAt(const ClipFormat& format, int x, int y) {
  const int column = x / format.columns;
  const int row = y / format.rows;
  const Sample sample = {lumaAt(format, x, y), chromaAt(format, 0, column, row),
                         chromaAt(format, 1, column, row)};
  return format.isYuv ? yuvComponents(sample) : components(sample);
}

class SubsampledTest : public ProgramTest {
 protected:
  // Converts the clip and compares every pixel with the formulas.
  void check(const ClipFormat& format, const Size& size, const Target& target, bool dither) const {
    std::vector<std::string> arguments = {"--to",          target.name, "--matrix",
                                          format.matrix(), "in.y4m",    "out.png"};
    if (dither) {
      arguments.insert(arguments.begin(), "--dither");
    }
    store("in.y4m", clipOf(format, size));
    ASSERT_TRUE(succeeded(y4m2rgb(arguments)));
    const Picture picture = readPicture(path("out.png"));
    ASSERT_EQ(picture.width, size.width);
    ASSERT_EQ(picture.height, size.height);
    size_t i = 0;
    for (int y = 0; y < size.height; ++y) {
      for (int x = 0; x < size.width; ++x, i += 3) {
        checkPixel(componentsAt(format, x, y), &picture.bytes[i], target, dither);
        ASSERT_FALSE(HasFailure()) << target.name << " at " << x << ", " << y;
      }
    }
  }

 private:
  static void checkPixel(const std::array<double, 3>& values, const unsigned char* bytes,
                         const Target& target, bool dither) {
    for (size_t i = 0; i < 3; ++i) {
      const int bits = target.bits[i];
      if (dither) {
        EXPECT_TRUE(isDithered(bytes[i], values[i], bits)) << "component " << i;
      } else {
        EXPECT_TRUE(isClear(values[i], bits)) << "component " << i;
        EXPECT_EQ(bytes[i], shown(plainLevel(values[i], bits), bits)) << "component " << i;
      }
    }
  }
};

class SubsampledSizes : public SubsampledTest,
                        public testing::WithParamInterface<std::tuple<ClipFormat, Size>> {};

TEST_P(SubsampledSizes, EveryPixelHasItsOwnChroma) {
  const auto& [format, size] = GetParam();
  const Target& target = kTargets[(size.width + size.height) % 6];
  check(format, size, target, false);
  check(format, size, target, true);
}

std::string nameOf(const testing::TestParamInfo<std::tuple<ClipFormat, Size>>& parameters) {
  const auto& [format, size] = parameters.param;
  return std::string(format.name) + "_" + std::to_string(size.width) + "x" +
         std::to_string(size.height);
}

INSTANTIATE_TEST_SUITE_P(All, SubsampledSizes,
                         testing::Combine(testing::ValuesIn(kFormats), testing::ValuesIn(kSizes)),
                         nameOf);

class SubsampledFormats : public SubsampledTest, public testing::WithParamInterface<ClipFormat> {};

TEST_P(SubsampledFormats, GoToEveryTarget) {
  for (const Target& target : kTargets) {
    check(GetParam(), {5, 3}, target, false);
    check(GetParam(), {5, 3}, target, true);
  }
}

INSTANTIATE_TEST_SUITE_P(All, SubsampledFormats, testing::ValuesIn(kFormats),
                         [](const auto& parameters) { return parameters.param.name; });

class Clip411 : public SubsampledTest {};

TEST_F(Clip411, EveryPixelHasItsOwnChroma) {
  for (const Size& size : kSizes) {
    check(k411, size, kTargets[0], false);
    check(k411, size, kTargets[2], false);
  }
}

TEST_F(Clip411, GoesNowhereElse) {
  store("in.y4m", clipOf(k411, {8, 2}));
  const std::vector<std::vector<std::string>> commands = {{"--to", "rgb565"},
                                                          {"--to", "rgb555"},
                                                          {"--to", "bgr444"},
                                                          {"--to", "rgb444"},
                                                          {"--to", "bgr565", "--dither"},
                                                          {"--to", "bgr555", "--dither"}};
  for (auto command : commands) {
    command.insert(command.end(), {"in.y4m", "out.png"});
    EXPECT_TRUE(failedWith(y4m2rgb(command), 2, "y4m2rgb",
                           "the clip is C411, which goes to bgr565 and bgr555 without --dither"));
  }
  EXPECT_EQ(files(), Names{"in.y4m"});
}

TEST_F(Clip411, WidthThatCannotBePadded) {
  store("in.y4m", "YUV4MPEG2 W2147483647 H1 C411\nFRAME\n");
  EXPECT_TRUE(failedWith(y4m2rgb({"--to", "bgr565", "in.y4m", "out.png"}), 1, "y4m2rgb",
                         "do not fit into the memory"));
}

class Matrices : public SubsampledTest {};

TEST_F(Matrices, YuvIsFor420Only) {
  for (const ClipFormat& format : {kFormats[0], kFormats[1], k411}) {
    store("in.y4m", clipOf(format, {8, 2}));
    EXPECT_TRUE(failedWith(
        y4m2rgb({"--to", "bgr565", "--matrix", "yuv", "in.y4m", "out.png"}), 2, "y4m2rgb",
        "the clip is " + std::string(format.name) + ", and --matrix yuv is for 4:2:0 clips only"));
  }
  EXPECT_EQ(files(), Names{"in.y4m"});
}

// 131, 128, 128 is 133 in studio range and 131 in full range; both are 16 of 31 and, of 63, 33 and
// 32.
TEST_F(Matrices, YcbcrIsTheDefault) {
  store("in.y4m", "YUV4MPEG2 W1 H1\nFRAME\n\x83\x80\x80");
  EXPECT_TRUE(succeeded(y4m2rgb({"--to", "bgr565", "in.y4m", "default.png"})));
  EXPECT_TRUE(succeeded(y4m2rgb({"--to", "bgr565", "--matrix=yuv", "in.y4m", "yuv.png"})));
  EXPECT_EQ(readPicture(path("default.png")).at(0, 0), 0x848684u);
  EXPECT_EQ(readPicture(path("yuv.png")).at(0, 0), 0x848284u);
}

TEST_F(Matrices, AnotherStatedRangeDrawsOneWarning) {
  for (const char* chroma : {"C444", "C422", "C420jpeg", "C411"}) {
    const std::string start = std::string("YUV4MPEG2 W1 H1 ") + chroma + " XCOLORRANGE=";
    const std::string frame = "FRAME\n\x83\x80\x80";
    store("full.y4m", start + "FULL XCOMMENT=a\n" + frame + frame);
    store("limited.y4m", start + "LIMITED\n" + frame);
    store("other.y4m", start + "FULLER XCOMMENT=XCOLORRANGE=FULL\n" + frame);
    EXPECT_TRUE(warned(y4m2rgb({"--to", "bgr565", "full.y4m", "%d.png"}), "y4m2rgb",
                       "the clip is in full range, and is taken as studio range"));
    EXPECT_TRUE(succeeded(y4m2rgb({"--to", "bgr565", "limited.y4m", "3.png"})));
    EXPECT_TRUE(succeeded(y4m2rgb({"--to", "bgr565", "other.y4m", "4.png"})));
    for (const char* name : {"1.png", "2.png", "3.png", "4.png"}) {
      EXPECT_EQ(readPicture(path(name)).at(0, 0), 0x848684u) << chroma;
    }
  }
  EXPECT_TRUE(warned(y4m2rgb({"--to", "bgr565", "--matrix", "ycbcr", "full.y4m", "%d.png"}),
                     "y4m2rgb", "full range"));
}

TEST_F(Matrices, StudioRangeWithYuvDrawsOneWarning) {
  const std::string start = "YUV4MPEG2 W1 H1 XCOLORRANGE=";
  store("limited.y4m", start + "LIMITED\nFRAME\n\x83\x80\x80");
  store("full.y4m", start + "FULL\nFRAME\n\x83\x80\x80");
  EXPECT_TRUE(warned(y4m2rgb({"--matrix", "yuv", "--to", "bgr565", "limited.y4m", "1.png"}),
                     "y4m2rgb", "the clip is in studio range, and is taken as full range"));
  EXPECT_TRUE(succeeded(y4m2rgb({"--matrix", "yuv", "--to", "bgr565", "full.y4m", "2.png"})));
  EXPECT_EQ(load("1.png"), load("2.png"));
}

TEST_F(Matrices, RefusedClipsDrawNoWarning) {
  store("in.y4m", "YUV4MPEG2 W4 H1 C411 XCOLORRANGE=FULL\nFRAME\n" + std::string(6, '\x80'));
  EXPECT_TRUE(failedWith(y4m2rgb({"--to", "rgb444", "in.y4m", "out.png"}), 2, "y4m2rgb", "C411"));
}

}  // namespace
}  // namespace programs
