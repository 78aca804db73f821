// SPDX-License-Identifier: MIT
// Frames of 16-bit pixels, and what is left of a file when a signal ends a program.
#include <csignal>
#include <string>

#include "clip_bytes.h"
#include "formulas.h"
#include "program_run.h"

namespace programs {
namespace {

class RawFrames : public ProgramTest {
 protected:
  // Standard output, which is no text here.
  std::string raw(std::vector<std::string> options, const std::string& clipBytes) const {
    options.insert(options.end(), {"--raw", "-", "-"});
    const Outcome outcome = y4m2rgb(options, {.input = clipBytes});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    return outcome.out;
  }
};

const Sample black = {16, 128, 128}, white = {235, 128, 128}, red = {81, 90, 240};

TEST_F(RawFrames, PixelsAreLowByteFirst) {
  const std::string pixels = raw({"--to", "bgr565"}, clip(3, 1, {black, white, red}));
  EXPECT_EQ(pixels, std::string("\x00\x00\xFF\xFF\x00\xF8", 6));
}

TEST_F(RawFrames, PixelsAreHighByteFirstForPanels) {
  const std::string pixels = raw({"--swap", "--to", "bgr565"}, clip(3, 1, {black, white, red}));
  EXPECT_EQ(pixels, std::string("\x00\x00\xFF\xFF\xF8\x00", 6));
  EXPECT_EQ(raw({"--swap", "--to", "rgb444"}, clip(1, 1, {red})), std::string("\x00\x0F", 2));
}

TEST_F(RawFrames, RowsAndFramesFollowEachOther) {
  const std::string clipBytes =
      header(1, 2) + frame({black, red}) + frame({white, black}) + frame({red, red});
  EXPECT_EQ(raw({"--to", "bgr565"}, clipBytes),
            std::string("\x00\x00\x00\xF8\xFF\xFF\x00\x00\x00\xF8\x00\xF8", 12));
  EXPECT_EQ(raw({"--to", "bgr565", "--frames", "1"}, clipBytes),
            std::string("\x00\x00\x00\xF8", 4));
}

// A picture of every size shows what raw pixels hold.
TEST_F(RawFrames, ArePicturesThatAreNotExpanded) {
  for (const auto& [width, height] : {std::pair{1, 1}, {5, 3}, {16, 2}, {33, 7}}) {
    std::vector<Sample> samples;
    for (int i = 0; i < width * height; ++i) {
      samples.push_back({i * 37 % 256, i * 91 % 256, i * 53 % 256});
    }
    store("in.y4m", clip(width, height, samples));
    for (const char* dither : {"--matrix=ycbcr", "--dither"}) {
      ASSERT_TRUE(succeeded(y4m2rgb({"--to", "bgr565", dither, "in.y4m", "out.png"})));
      ASSERT_TRUE(succeeded(y4m2rgb({"--raw", "--to", "bgr565", dither, "in.y4m", "out.raw"})));
      const std::string pixels = load("out.raw");
      const Picture picture = readPicture(path("out.png"));
      ASSERT_EQ(pixels.size(), samples.size() * 2);
      for (size_t i = 0; i < samples.size(); ++i) {
        const int word = static_cast<unsigned char>(pixels[2 * i]) |
                         static_cast<unsigned char>(pixels[2 * i + 1]) << 8;
        EXPECT_EQ(picture.bytes[3 * i], shown(word >> 11, 5));
        EXPECT_EQ(picture.bytes[3 * i + 1], shown(word >> 5 & 63, 6));
        EXPECT_EQ(picture.bytes[3 * i + 2], shown(word & 31, 5));
      }
    }
  }
}

TEST_F(RawFrames, FileOfACutClipDoesNotAppear) {
  std::string cut = header(8, 8) + frame(std::vector<Sample>(64, red));
  cut += cut.substr(cut.size() - 100);
  store("in.y4m", cut);
  EXPECT_TRUE(failedWith(y4m2rgb({"--raw", "--to", "bgr565", "in.y4m", "out.raw"}), 1, "y4m2rgb",
                         "does not begin with a FRAME line"));
  EXPECT_EQ(files(), std::vector<std::string>{"in.y4m"});
}

TEST_F(RawFrames, FullDevice) {
  const Outcome outcome = y4m2rgb({"--raw", "--to", "bgr565", "-", "-"},
                                  {.input = clip(1, 1, {red}), .outFile = "/dev/full"});
  EXPECT_TRUE(failedWith(outcome, 1, "y4m2rgb", "No space left on device"));
}

class Interrupted : public ProgramTest {};

TEST_F(Interrupted, NothingUnfinishedStays) {
  const std::string begun = header(64, 64) + frame(std::vector<Sample>(64 * 64, red));
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    EXPECT_EQ(runInterrupted({Y4M2RGB, "--raw", "--to", "bgr565", "-", "out.raw"}, begun, signal),
              signal);
    EXPECT_EQ(files(), std::vector<std::string>{});
    EXPECT_EQ(runInterrupted({TESTCLIP, "--frames", "1000000", "out.y4m"}, "", signal), signal);
    EXPECT_EQ(files(), std::vector<std::string>{});
  }
}

TEST_F(Interrupted, OlderFileStays) {
  store("picture.y4m", clip(1, 1, {red}));
  ASSERT_TRUE(succeeded(y4m2rgb({"--to", "bgr565", "picture.y4m", "in.png"})));
  store("out.y4m", "an older clip");
  const auto before = files();
  EXPECT_EQ(runInterrupted({PNG2Y4M, "--via", "bgr565", "--chroma", "420", "--frames", "1000000",
                            "in.png", "out.y4m"},
                           "", SIGINT),
            SIGINT);
  EXPECT_EQ(files(), before);
  EXPECT_EQ(load("out.y4m"), "an older clip");
}

}  // namespace
}  // namespace programs
