// SPDX-License-Identifier: MIT
// Clips that y4m2rgb converts, with pixels worked out by hand.
#include <string>
#include <vector>

#include "clip_bytes.h"
#include "program_run.h"

namespace programs {
namespace {

using Names = std::vector<std::string>;

constexpr Sample kBlack = {16, 128, 128};
constexpr Sample kWhite = {235, 128, 128};  // components 254
constexpr Sample kGrey = {131, 128, 128};   // components 133
constexpr Sample kRed = {81, 90, 240};      // 254, 0, 0
constexpr Sample kBlue = {41, 240, 110};    // 0, 0, 255
constexpr Sample kTeal = {101, 160, 90};    // 38, 117, 163

class Pictures : public ProgramTest {
 protected:
  // Converts a clip and returns the picture, which must be plain 8-bit RGB.
  Picture convert(const std::string& bytes, const std::vector<std::string>& options) const {
    std::vector<std::string> arguments = options;
    arguments.insert(arguments.end(), {"in.y4m", "out.png"});
    store("in.y4m", bytes);
    EXPECT_TRUE(succeeded(y4m2rgb(arguments)));
    EXPECT_EQ(files(), (Names{"in.y4m", "out.png"}));
    const Picture picture = readPicture(path("out.png"));
    EXPECT_TRUE(picture.isPlainRgb);
    return picture;
  }

  // The one pixel of a 1x1 clip.
  unsigned pixel(const Sample& sample, const std::vector<std::string>& options) const {
    const Picture picture = convert(flatClip(1, 1, sample), options);
    EXPECT_EQ(picture.width, 1);
    EXPECT_EQ(picture.height, 1);
    return picture.bytes.size() == 3 ? picture.at(0, 0) : 0x1000000;
  }
};

// 254 is 31 of 31 and 63 of 63; 133 is 16 of 31 and 33 of 63; 38, 117, 163 are 4, 29, 20.
TEST_F(Pictures, Plain565) {
  for (const char* target : {"bgr565", "rgb565"}) {
    EXPECT_EQ(pixel(kBlack, {"--to", target}), 0x000000u);
    EXPECT_EQ(pixel(kWhite, {"--to", target}), 0xffffffu);
    EXPECT_EQ(pixel(kRed, {"--to", target}), 0xff0000u);
    EXPECT_EQ(pixel(kBlue, {"--to", target}), 0x0000ffu);
    EXPECT_EQ(pixel(kGrey, {"--to", target}), 0x848684u);
    EXPECT_EQ(pixel(kTeal, {"--to", target}), 0x2175a5u);
  }
}

// 117 is 14 of 31.
TEST_F(Pictures, Plain555) {
  for (const char* target : {"bgr555", "rgb555"}) {
    EXPECT_EQ(pixel(kBlack, {"--to", target}), 0x000000u);
    EXPECT_EQ(pixel(kWhite, {"--to", target}), 0xffffffu);
    EXPECT_EQ(pixel(kRed, {"--to", target}), 0xff0000u);
    EXPECT_EQ(pixel(kBlue, {"--to", target}), 0x0000ffu);
    EXPECT_EQ(pixel(kGrey, {"--to", target}), 0x848484u);
    EXPECT_EQ(pixel(kTeal, {"--to", target}), 0x2173a5u);
  }
}

// 133 is 8 of 15; 38, 117, 163 are 2, 7, 10.
TEST_F(Pictures, Plain444) {
  for (const char* target : {"bgr444", "rgb444"}) {
    EXPECT_EQ(pixel(kBlack, {"--to", target}), 0x000000u);
    EXPECT_EQ(pixel(kWhite, {"--to", target}), 0xffffffu);
    EXPECT_EQ(pixel(kRed, {"--to", target}), 0xff0000u);
    EXPECT_EQ(pixel(kBlue, {"--to", target}), 0x0000ffu);
    EXPECT_EQ(pixel(kGrey, {"--to", target}), 0x888888u);
    EXPECT_EQ(pixel(kTeal, {"--to", target}), 0x2277aau);
  }
}

TEST_F(Pictures, DitheredWhiteHasLowerGreenAtOnePlace) {
  const Picture picture = convert(flatClip(9, 9, {255, 128, 128}), {"--to", "bgr565", "--dither"});
  ASSERT_EQ(picture.bytes.size(), 9u * 9u * 3u);
  for (int y = 0; y < 9; ++y) {
    for (int x = 0; x < 9; ++x) {
      EXPECT_EQ(picture.at(x, y), y % 4 == 3 && x % 4 == 0 ? 0xfffbffu : 0xffffffu);
    }
  }
}

TEST_F(Pictures, DitheredBlackIsBlack) {
  const Picture picture = convert(flatClip(5, 4, kBlack), {"--dither", "--to=rgb444"});
  EXPECT_EQ(picture.bytes, std::vector<unsigned char>(5 * 4 * 3, 0));
}

TEST_F(Pictures, RowsAndColumnsStayInPlace) {
  const Picture picture =
      convert(clip(3, 2, {kRed, kBlue, kTeal, kBlack, kGrey, kWhite}), {"--to", "bgr565"});
  ASSERT_EQ(picture.width, 3);
  ASSERT_EQ(picture.height, 2);
  EXPECT_EQ(picture.at(0, 0), 0xff0000u);
  EXPECT_EQ(picture.at(1, 0), 0x0000ffu);
  EXPECT_EQ(picture.at(2, 0), 0x2175a5u);
  EXPECT_EQ(picture.at(0, 1), 0x000000u);
  EXPECT_EQ(picture.at(1, 1), 0x848684u);
  EXPECT_EQ(picture.at(2, 1), 0xffffffu);
}

TEST_F(Pictures, HeaderParametersStandInAnyOrder) {
  const std::string planes = frame({kRed, kBlue});
  for (const char* line :
       {"YUV4MPEG2 C444 XCOMMENT=a XCOMMENT=b H1 A0:0 F30000:1001 I? W2\n",
        "YUV4MPEG2  H1 W2  C444 \n", "YUV4MPEG2 W2 H1 C444 It A4:3 F25:1 Qnew\n"}) {
    const Picture picture = convert(line + planes, {"--to", "rgb555"});
    ASSERT_EQ(picture.width, 2) << line;
    EXPECT_EQ(picture.at(0, 0), 0xff0000u);
    EXPECT_EQ(picture.at(1, 0), 0x0000ffu);
  }
}

TEST_F(Pictures, FrameLineMayHaveParameters) {
  std::string bytes = flatClip(2, 2, kTeal);
  bytes.replace(bytes.find("FRAME\n"), 6, "FRAME Ipp Xanything\n");
  EXPECT_EQ(convert(bytes, {"--to", "bgr565"}).at(1, 1), 0x2175a5u);
}

TEST_F(Pictures, FramesAreNumberedFromOne) {
  store("in.y4m", header(1, 1) + frame({kRed}) + frame({kBlue}) + frame({kGrey}));
  EXPECT_TRUE(succeeded(y4m2rgb({"--to", "bgr565", "in.y4m", "p%d.png"})));
  EXPECT_TRUE(succeeded(y4m2rgb({"--to", "bgr565", "in.y4m", "%%q%03d-%%.png"})));
  EXPECT_EQ(files(), (Names{"%q001-%.png", "%q002-%.png", "%q003-%.png", "in.y4m", "p1.png",
                            "p2.png", "p3.png"}));
  EXPECT_EQ(readPicture(path("p1.png")).at(0, 0), 0xff0000u);
  EXPECT_EQ(readPicture(path("p2.png")).at(0, 0), 0x0000ffu);
  EXPECT_EQ(readPicture(path("%q003-%.png")).at(0, 0), 0x848684u);
}

TEST_F(Pictures, FramesStopsEarlyAndAllowsAPlainName) {
  store("in.y4m", header(1, 1) + frame({kRed}) + frame({kBlue}) + "garbage");
  EXPECT_TRUE(succeeded(y4m2rgb({"--to", "bgr565", "--frames", "2", "in.y4m", "p%d.png"})));
  EXPECT_TRUE(succeeded(y4m2rgb({"--to", "bgr565", "--frames", "1", "in.y4m", "one.png"})));
  EXPECT_EQ(files(), (Names{"in.y4m", "one.png", "p1.png", "p2.png"}));
}

TEST_F(Pictures, EveryFrameIsDitheredAlike) {
  const std::string same = frame(std::vector<Sample>(6 * 5, kGrey));
  store("in.y4m", header(6, 5) + same + same);
  EXPECT_TRUE(succeeded(y4m2rgb({"--to", "rgb565", "--dither", "in.y4m", "%d.png"})));
  EXPECT_EQ(readPicture(path("1.png")).bytes, readPicture(path("2.png")).bytes);
  EXPECT_EQ(readPicture(path("1.png")).height, 5);
}

TEST_F(Pictures, StandardInput) {
  EXPECT_TRUE(
      succeeded(y4m2rgb({"--to", "bgr444", "-", "out.png"}, {.input = flatClip(3, 1, kTeal)})));
  EXPECT_EQ(readPicture(path("out.png")).at(2, 0), 0x2277aau);
}

TEST_F(Pictures, OlderPictureIsReplaced) {
  store("out.png", "an older file");
  EXPECT_EQ(pixel(kRed, {"--to", "bgr565"}), 0xff0000u);
}

TEST_F(Pictures, RowsOfAMillionPixelsAndMoreAreWritten) {
  store("in.y4m", flatClip(1000001, 1, kGrey));
  EXPECT_TRUE(succeeded(y4m2rgb({"--to", "bgr565", "in.y4m", "out.png"})));
  EXPECT_EQ(load("out.png").substr(16, 8), std::string("\x00\x0f\x42\x41\x00\x00\x00\x01", 8));
}

}  // namespace
}  // namespace programs
