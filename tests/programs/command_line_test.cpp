// SPDX-License-Identifier: MIT
// Command lines and targets that y4m2rgb cannot carry out.
#include <filesystem>
#include <string>
#include <vector>

#include "clip_bytes.h"
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
    {"NoArguments", {}, "--to FORMAT is missing"},
    {"NoTarget", {"in.y4m", "out.png"}, "--to FORMAT is missing"},
    {"UnknownTarget",
     {"--to", "bgr888", "in.y4m", "out.png"},
     "'bgr888' is not one of bgr565, rgb"},
    {"UpperCaseTarget", {"--to", "BGR565", "in.y4m", "out.png"}, "'BGR565' is not one of"},
    {"TargetWithoutName", {"in.y4m", "out.png", "--to"}, "'--to' needs a value"},
    {"UnknownOption", {"--to", "bgr565", "--fast", "in.y4m", "out.png"}, "'--fast' is not known"},
    {"ValueForDither", {"--to", "bgr565", "--dither=1", "in.y4m", "o.png"}, "'--dither=1'"},
    {"UnknownMatrix", {"--to", "bgr565", "--matrix", "rgb", "i", "o"}, "'rgb' is not one of ycbcr"},
    {"MatrixWithoutName", {"--to", "bgr565", "--matrix"}, "'--matrix' needs a value"},
    {"NoInput", {"--to", "bgr565"}, "INPUT or OUTPUT is missing"},
    {"NoOutput", {"--to", "bgr565", "in.y4m"}, "INPUT or OUTPUT is missing"},
    {"ThirdName", {"--to", "bgr565", "in.y4m", "out.png", "more"}, "'more' is too much"},
    {"NoFrames", {"--to", "bgr565", "--frames", "0", "in.y4m", "o.png"}, "--frames '0'"},
    {"NegativeFrames", {"--to", "bgr565", "--frames", "-3", "in.y4m", "o.png"}, "--frames '-3'"},
    {"WordyFrames", {"--to", "bgr565", "--frames", "1x", "in.y4m", "o.png"}, "--frames '1x'"},
    {"HugeFrames", {"--to", "bgr565", "--frames", "99999999999999999999", "i", "o"}, "--frames '9"},
    {"EmptyOutput", {"--to", "bgr565", "in.y4m", ""}, "OUTPUT '' is not the name of a file"},
    {"StandardOutput", {"--to", "bgr565", "in.y4m", "-"}, "OUTPUT '-' is not the name of a file"},
    {"SwapWithoutRaw", {"--to", "bgr565", "--swap", "in.y4m", "o.png"}, "--swap is for --raw"},
    {"EmptyRawOutput", {"--raw", "--to", "bgr565", "in.y4m", ""}, "OUTPUT '' is not the name of"},
    {"String", {"--to", "bgr565", "in.y4m", "%s.png"}, "'%s.png' has a % that is none of"},
    {"Count", {"--to", "bgr565", "in.y4m", "%n.png"}, "'%n.png' has a % that is none of"},
    {"SpacePadding", {"--to", "bgr565", "in.y4m", "%3d.png"}, "'%3d.png' has a % that is none of"},
    {"WidePadding", {"--to", "bgr565", "in.y4m", "%010d.png"}, "'%010d.png' has a % that is none"},
    {"ZeroPadding", {"--to", "bgr565", "in.y4m", "%00d.png"}, "'%00d.png' has a % that is none of"},
    {"LonePercent", {"--to", "bgr565", "in.y4m", "o%"}, "'o%' has a % that is none of"},
    {"CutPadding", {"--to", "bgr565", "in.y4m", "o%03"}, "'o%03' has a % that is none of"},
    {"TwoNumbers", {"--to", "bgr565", "in.y4m", "%d%02d.png"}, "has a second place"},
    {"LineBreak", {"--to", "a\nb", "in.y4m", "o.png"}, "'a?b' is not one of"},
};

class CommandLine : public ProgramTest, public testing::WithParamInterface<BadCommand> {};

TEST_P(CommandLine, IsRejected) {
  store("in.y4m", flatClip(1, 1, {16, 128, 128}));
  const Outcome outcome = y4m2rgb(GetParam().arguments);
  EXPECT_TRUE(failedWith(outcome, 2, "y4m2rgb", GetParam().reason));
  EXPECT_EQ(files(), Names{"in.y4m"});
}

INSTANTIATE_TEST_SUITE_P(All, CommandLine, testing::ValuesIn(kBadCommands),
                         [](const auto& parameters) { return parameters.param.name; });

class OutputFiles : public ProgramTest {
 protected:
  OutputFiles() {
    std::vector<Sample> samples;
    for (int i = 0; i < 100 * 100; ++i) {
      samples.push_back({i * i % 251, i * 7 % 256, i * i * 3 % 255});
    }
    store("in.y4m", clip(100, 100, samples));
  }

  Outcome convertTo(const std::string& output, const Surroundings& around = {}) const {
    return y4m2rgb({"--to", "bgr565", "in.y4m", output}, around);
  }
};

TEST_F(OutputFiles, MissingInput) {
  EXPECT_TRUE(failedWith(y4m2rgb({"--to", "bgr565", "none.y4m", "out.png"}), 1, "y4m2rgb",
                         "cannot open 'none.y4m': No such file or directory"));
  EXPECT_EQ(files(), Names{"in.y4m"});
}

TEST_F(OutputFiles, DirectoryAsInput) {
  EXPECT_TRUE(failedWith(y4m2rgb({"--to", "bgr565", ".", "out.png"}), 1, "y4m2rgb",
                         "cannot read '.': Is a directory"));
  EXPECT_EQ(files(), Names{"in.y4m"});
}

TEST_F(OutputFiles, MissingDirectory) {
  EXPECT_TRUE(failedWith(convertTo("none/out.png"), 1, "y4m2rgb",
                         "cannot write 'none/out.png': No such file or directory"));
  EXPECT_EQ(files(), Names{"in.y4m"});
}

TEST_F(OutputFiles, FileAsDirectory) {
  EXPECT_TRUE(failedWith(convertTo("in.y4m/out.png"), 1, "y4m2rgb", "Not a directory"));
  EXPECT_EQ(files(), Names{"in.y4m"});
}

TEST_F(OutputFiles, DirectoryAsOutput) {
  std::filesystem::create_directory(path("out.png"));
  EXPECT_TRUE(
      failedWith(convertTo("out.png"), 1, "y4m2rgb", "cannot write 'out.png': Is a directory"));
  EXPECT_EQ(files(), (Names{"in.y4m", "out.png"}));
}

TEST_F(OutputFiles, NameThatIsTooLong) {
  EXPECT_TRUE(failedWith(convertTo(std::string(300, 'n')), 1, "y4m2rgb", "File name too long"));
  EXPECT_EQ(files(), Names{"in.y4m"});
}

TEST_F(OutputFiles, LongestName) {
  const std::string name(255, 'n');
  EXPECT_TRUE(succeeded(convertTo(name)));
  EXPECT_EQ(files(), (Names{"in.y4m", name}));
}

TEST_F(OutputFiles, FullDevice) {
  EXPECT_TRUE(failedWith(convertTo("/dev/full"), 1, "y4m2rgb",
                         "cannot write '/dev/full': No space left on device"));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST_F(OutputFiles, FileLimitWhileWriting) {
  EXPECT_TRUE(failedWith(convertTo("out.png", {.longestFile = 8192}), 1, "y4m2rgb",
                         "cannot write 'out.png': File too large"));
  EXPECT_EQ(files(), Names{"in.y4m"});
}

TEST_F(OutputFiles, FileLimitAtTheEnd) {
  store("in.y4m", flatClip(1, 1, {16, 128, 128}));
  EXPECT_TRUE(failedWith(convertTo("out.png", {.longestFile = 60}), 1, "y4m2rgb", ""));
  EXPECT_EQ(files(), Names{"in.y4m"});
}

TEST_F(OutputFiles, OlderPictureSurvivesAFailure) {
  store("out.png", "an older picture");
  EXPECT_TRUE(failedWith(convertTo("out.png", {.longestFile = 8192}), 1, "y4m2rgb", "'out.png'"));
  EXPECT_EQ(load("out.png"), "an older picture");
  EXPECT_EQ(files(), (Names{"in.y4m", "out.png"}));
}

TEST_F(OutputFiles, LinkStaysALink) {
  store("real.png", "an older picture");
  std::filesystem::permissions(path("real.png"), std::filesystem::perms(0600));
  std::filesystem::create_symlink("real.png", path("link.png"));
  std::filesystem::create_symlink("new.png", path("dangling.png"));
  EXPECT_TRUE(succeeded(convertTo("link.png")));
  EXPECT_TRUE(succeeded(convertTo("dangling.png")));
  EXPECT_TRUE(std::filesystem::is_symlink(path("link.png")));
  EXPECT_TRUE(std::filesystem::is_symlink(path("dangling.png")));
  EXPECT_EQ(readPicture(path("real.png")).width, 100);
  EXPECT_EQ(readPicture(path("new.png")).width, 100);
  EXPECT_EQ(std::filesystem::status(path("real.png")).permissions(), std::filesystem::perms(0600));
  EXPECT_EQ(files(), (Names{"dangling.png", "in.y4m", "link.png", "new.png", "real.png"}));
}

TEST_F(OutputFiles, InputAsOutput) {
  const std::string before = load("in.y4m");
  EXPECT_TRUE(failedWith(convertTo("in.y4m"), 1, "y4m2rgb", "are the same file, 'in.y4m'"));
  EXPECT_TRUE(failedWith(y4m2rgb({"--raw", "--to", "bgr565", "in.y4m", "./in.y4m"}), 1, "y4m2rgb",
                         "are the same file, './in.y4m'"));
  std::filesystem::create_hard_link(path("in.y4m"), path("link.y4m"));
  EXPECT_TRUE(failedWith(y4m2rgb({"--raw", "--to", "bgr565", "in.y4m", "link.y4m"}), 1, "y4m2rgb",
                         "are the same file, 'link.y4m'"));
  EXPECT_EQ(load("in.y4m"), before);
  EXPECT_EQ(files(), (Names{"in.y4m", "link.y4m"}));
}

TEST_F(OutputFiles, SecondFrameWithoutAPlaceForItsNumber) {
  store("in.y4m", header(1, 1) + frame({{16, 128, 128}}) + frame({{16, 128, 128}}));
  EXPECT_TRUE(failedWith(convertTo("out.png"), 2, "y4m2rgb", "'out.png' has no %d"));
  EXPECT_EQ(files(), Names{"in.y4m"});
}

}  // namespace
}  // namespace programs
