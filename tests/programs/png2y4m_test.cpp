// SPDX-License-Identifier: MIT
// Command lines and targets of png2y4m.
#include <filesystem>
#include <string>
#include <vector>

#include "png_bytes.h"
#include "program_run.h"

namespace programs {
namespace {

using Names = std::vector<std::string>;

struct BadCommand {
  const char* name;
  std::vector<std::string> arguments;
  const char* reason;
};

const BadCommand kBadCommands[] = {
    {"NoArguments", {}, "--via FORMAT is missing"},
    {"NoVia", {"--chroma", "420", "in.png", "o"}, "--via FORMAT is missing"},
    {"NoChroma", {"--via", "bgr565", "in.png", "o"}, "--chroma FORMAT is missing"},
    {"UnknownVia",
     {"--via", "rgb555", "--chroma", "420", "in.png", "o"},
     "--via 'rgb555' is not one of bgr555, bgr565, rgb565"},
    {"UnknownChroma",
     {"--via", "bgr565", "--chroma", "444", "in.png", "o"},
     "--chroma '444' is not one of 420, 422, 411, yuv420"},
    {"Rgb565To420",
     {"--via", "rgb565", "--chroma", "420", "in.png", "o"},
     "--via rgb565 goes with --chroma yuv420 only"},
    {"Rgb565To422", {"--via", "rgb565", "--chroma", "422", "in.png", "o"}, "yuv420 only"},
    {"Rgb565To411", {"--chroma", "411", "--via", "rgb565", "in.png", "o"}, "yuv420 only"},
    {"ViaWithoutName", {"--via"}, "'--via' needs a value"},
    {"UnknownOption", {"--via", "bgr565", "--dither"}, "'--dither' is not known"},
    {"NoFrames", {"--via=bgr565", "--chroma=420", "--frames=0", "in.png", "o"}, "--frames '0'"},
    {"ManyFrames", {"--via=bgr565", "--chroma=420", "--frames=1000001", "i", "o"}, "1 to 1000000"},
    {"NoInput", {"--via", "bgr565", "--chroma", "420"}, "INPUT or OUTPUT is missing"},
    {"NoOutput", {"--via", "bgr565", "--chroma", "420", "in.png"}, "INPUT or OUTPUT is missing"},
    {"ThirdName", {"--via", "bgr565", "--chroma", "420", "in.png", "o", "p"}, "'p' is too much"},
    {"EmptyOutput", {"--via", "bgr565", "--chroma", "420", "in.png", ""}, "OUTPUT ''"},
};

class Png2y4mCommandLine : public ProgramTest, public testing::WithParamInterface<BadCommand> {};

TEST_P(Png2y4mCommandLine, IsRefused) {
  store("in.png", flatPng(1, 1, {0, 0, 0}));
  EXPECT_TRUE(failedWith(png2y4m(GetParam().arguments), 2, "png2y4m", GetParam().reason));
  EXPECT_EQ(files(), Names{"in.png"});
}

INSTANTIATE_TEST_SUITE_P(All, Png2y4mCommandLine, testing::ValuesIn(kBadCommands),
                         [](const auto& parameters) { return parameters.param.name; });

class Png2y4mFiles : public ProgramTest {
 protected:
  Png2y4mFiles() { store("in.png", flatPng(100, 100, {200, 40, 40})); }

  Outcome convert(const std::string& input, const std::string& output,
                  const Surroundings& around = {}) const {
    return png2y4m({"--via", "bgr565", "--chroma", "420", input, output}, around);
  }
};

TEST_F(Png2y4mFiles, FramesAreEqual) {
  EXPECT_TRUE(succeeded(convert("in.png", "one.y4m")));
  EXPECT_TRUE(
      succeeded(png2y4m({"--via=bgr565", "--chroma=420", "--frames", "3", "in.png", "three.y4m"})));
  const std::string one = load("one.y4m");
  const std::string frame = one.substr(one.find("FRAME\n"));
  EXPECT_EQ(load("three.y4m"), one + frame + frame);
}

TEST_F(Png2y4mFiles, StandardInputAndOutput) {
  EXPECT_TRUE(succeeded(convert("in.png", "out.y4m")));
  const Outcome outcome = convert("-", "-", {.input = load("in.png")});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, load("out.y4m"));
}

TEST_F(Png2y4mFiles, MissingInput) {
  EXPECT_TRUE(failedWith(convert("none.png", "out.y4m"), 1, "png2y4m",
                         "cannot open 'none.png': No such file or directory"));
  EXPECT_EQ(files(), Names{"in.png"});
}

TEST_F(Png2y4mFiles, DirectoryAsInput) {
  EXPECT_TRUE(failedWith(convert(".", "out.y4m"), 1, "png2y4m", "cannot read '.': Is a directory"));
  EXPECT_EQ(files(), Names{"in.png"});
}

TEST_F(Png2y4mFiles, MissingDirectory) {
  EXPECT_TRUE(failedWith(convert("in.png", "none/out.y4m"), 1, "png2y4m",
                         "cannot write 'none/out.y4m': No such file or directory"));
  EXPECT_EQ(files(), Names{"in.png"});
}

TEST_F(Png2y4mFiles, FullDevice) {
  const std::string noSpace = "No space left on device";
  EXPECT_TRUE(failedWith(convert("in.png", "/dev/full"), 1, "png2y4m",
                         "cannot write '/dev/full': " + noSpace));
  EXPECT_TRUE(failedWith(convert("in.png", "-", {.outFile = "/dev/full"}), 1, "png2y4m", noSpace));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST_F(Png2y4mFiles, OlderClipSurvivesAFailure) {
  store("out.y4m", "an older clip");
  EXPECT_TRUE(failedWith(convert("in.png", "out.y4m", {.longestFile = 8192}), 1, "png2y4m",
                         "cannot write 'out.y4m': File too large"));
  EXPECT_EQ(load("out.y4m"), "an older clip");
  EXPECT_EQ(files(), (Names{"in.png", "out.y4m"}));
}

}  // namespace
}  // namespace programs
