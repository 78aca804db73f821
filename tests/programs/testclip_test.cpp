// SPDX-License-Identifier: MIT
// The test clip: form, known colours, motion, and the ways to fail.
#include <filesystem>
#include <string>
#include <vector>

#include "program_run.h"

namespace programs {
namespace {

using Names = std::vector<std::string>;

class Testclip : public ProgramTest {
 protected:
  std::string make(const std::vector<std::string>& options) const {
    std::vector<std::string> arguments = options;
    arguments.push_back("clip.y4m");
    EXPECT_TRUE(succeeded(testclip(arguments)));
    EXPECT_EQ(files(), Names{"clip.y4m"});
    return load("clip.y4m");
  }
};

const std::string kHeader = "YUV4MPEG2 W640 H360 F25:1 Ip A1:1 C444\n";
const std::string kFrameLine = "FRAME\n";
constexpr size_t kPlane = 640 * 360;

TEST_F(Testclip, HasOneFrame) {
  const std::string bytes = make({});
  EXPECT_EQ(bytes.substr(0, kHeader.size() + kFrameLine.size()), kHeader + kFrameLine);
  EXPECT_EQ(bytes.size(), kHeader.size() + kFrameLine.size() + 3 * kPlane);
}

// Saturated colours in studio range are well-known triples.
TEST_F(Testclip, HasSaturatedBars) {
  const std::string bytes = make({});
  const unsigned char bars[8][3] = {{235, 128, 128}, {210, 16, 146},  {170, 166, 16},
                                    {145, 54, 34},   {106, 202, 222}, {81, 90, 240},
                                    {41, 240, 110},  {16, 128, 128}};
  const size_t start = kHeader.size() + kFrameLine.size();
  for (size_t bar = 0; bar < 8; ++bar) {
    for (size_t x : {bar * 80, bar * 80 + 40, bar * 80 + 79}) {
      for (size_t plane = 0; plane < 3; ++plane) {
        const size_t i = start + plane * kPlane + 20 * 640 + x;
        EXPECT_EQ(static_cast<unsigned char>(bytes[i]), bars[bar][plane]) << bar << " " << plane;
      }
    }
  }
}

TEST_F(Testclip, RampRisesFromBlackToWhite) {
  const std::string bytes = make({});
  const size_t row = kHeader.size() + kFrameLine.size() + 60 * 640;
  EXPECT_EQ(static_cast<unsigned char>(bytes[row]), 16);
  EXPECT_EQ(static_cast<unsigned char>(bytes[row + 639]), 235);
  for (size_t x = 1; x < 640; ++x) {
    const int step =
        static_cast<unsigned char>(bytes[row + x]) - static_cast<unsigned char>(bytes[row + x - 1]);
    EXPECT_TRUE(step == 0 || step == 1) << x;
  }
}

TEST_F(Testclip, SamplesStayInStudioRange) {
  const std::string bytes = make({"--size", "101x77"});
  const size_t start = bytes.find(kFrameLine) + kFrameLine.size();
  const size_t plane = 101 * 77;
  ASSERT_EQ(bytes.size(), start + 3 * plane);
  for (size_t i = 0; i < 3 * plane; ++i) {
    const int sample = static_cast<unsigned char>(bytes[start + i]);
    ASSERT_GE(sample, 16) << i;
    ASSERT_LE(sample, i < plane ? 235 : 240) << i;
  }
}

TEST_F(Testclip, IsTheSameInEveryRunAndOnStandardOutput) {
  const std::string bytes = make({"--size", "97x61", "--frames", "3"});
  EXPECT_EQ(make({"--frames=3", "--size=97x61"}), bytes);
  const Outcome outcome = testclip({"--size", "97x61", "--frames", "3", "-"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, bytes);
}

TEST_F(Testclip, FramesDiffer) {
  const std::string bytes = make({"--size", "64x48", "--frames", "2"});
  const size_t first = bytes.find(kFrameLine);
  const size_t length = kFrameLine.size() + 3 * 64 * 48;
  ASSERT_EQ(bytes.size(), first + 2 * length);
  EXPECT_EQ(bytes.substr(first + length, kFrameLine.size()), kFrameLine);
  EXPECT_NE(bytes.substr(first, length), bytes.substr(first + length));
}

TEST_F(Testclip, EverySmallSizeConverts) {
  for (int width = 1; width <= 9; ++width) {
    for (int height = 1; height <= 17; height += 2) {
      const std::string size = std::to_string(width) + "x" + std::to_string(height);
      ASSERT_TRUE(succeeded(testclip({"--size", size, "clip.y4m"}))) << size;
      ASSERT_TRUE(succeeded(y4m2rgb({"--to", "bgr555", "clip.y4m", "out.png"}))) << size;
      EXPECT_EQ(readPicture(path("out.png")).width, width);
      EXPECT_EQ(readPicture(path("out.png")).height, height);
    }
  }
}

TEST_F(Testclip, RefusesBadCommandLines) {
  const std::vector<std::vector<std::string>> commands = {{},
                                                          {""},
                                                          {"a", "b"},
                                                          {"--frames", "0", "a"},
                                                          {"--frames", "1000001", "a"},
                                                          {"--frames"},
                                                          {"--size", "640", "a"},
                                                          {"--size", "0x5", "a"},
                                                          {"--size", "5x0", "a"},
                                                          {"--size", "5x5x5", "a"},
                                                          {"--size", "16385x1", "a"},
                                                          {"--size", "x", "a"},
                                                          {"--colour", "a"},
                                                          {"--help=1", "a"}};
  for (const auto& command : commands) {
    EXPECT_TRUE(failedWith(testclip(command), 2, "testclip", ""));
  }
  EXPECT_EQ(files(), Names{});
}

TEST_F(Testclip, ReportsAFullDisk) {
  const std::string noSpace = "No space left on device";
  EXPECT_TRUE(
      failedWith(testclip({"/dev/full"}), 1, "testclip", "cannot write '/dev/full': " + noSpace));
  EXPECT_TRUE(failedWith(testclip({"--size", "1x1", "/dev/full"}), 1, "testclip", noSpace));
  EXPECT_TRUE(failedWith(testclip({"-"}, {.outFile = "/dev/full"}), 1, "testclip", noSpace));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST_F(Testclip, LeavesNoPartOfAFile) {
  EXPECT_TRUE(failedWith(testclip({"clip.y4m"}, {.longestFile = 100000}), 1, "testclip",
                         "cannot write 'clip.y4m': File too large"));
  EXPECT_TRUE(failedWith(testclip({"none/clip.y4m"}), 1, "testclip", "No such file or directory"));
  EXPECT_EQ(files(), Names{});
}

}  // namespace
}  // namespace programs
