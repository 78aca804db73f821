// SPDX-License-Identifier: MIT
// What every program prints when asked.
#include <set>
#include <string>

#include "program_run.h"

namespace programs {
namespace {

class Programs : public ProgramTest {};

TEST_F(Programs, HelpGoesToStandardOutput) {
  for (const char* program : {BANDS, Y4M2RGB, PNG2Y4M, TESTCLIP, WHICH_VARIANT}) {
    const Outcome outcome = run({program, "--help"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.out.compare(0, 7, "Usage: "), 0);
    EXPECT_EQ(outcome.err, "");
  }
}

TEST_F(Programs, VersionIsThatOfTheLibrary) {
  const char* const programs[][2] = {{BANDS, "bands"},
                                     {Y4M2RGB, "y4m2rgb"},
                                     {PNG2Y4M, "png2y4m"},
                                     {TESTCLIP, "testclip"},
                                     {WHICH_VARIANT, "which_variant"}};
  for (const auto& [path, name] : programs) {
    const Outcome outcome = run({path, "--version"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.out, std::string(name) + " of pxmcc90lgc 9.0.0\n");
    EXPECT_EQ(outcome.err, "");
  }
}

TEST_F(Programs, UnprintableHelpIsAFailure) {
  const Surroundings full = {.outFile = "/dev/full"};
  EXPECT_TRUE(failedWith(y4m2rgb({"--help"}, full), 1, "y4m2rgb", "No space left on device"));
  EXPECT_TRUE(failedWith(png2y4m({"--help"}, full), 1, "png2y4m", "No space left on device"));
  EXPECT_TRUE(failedWith(testclip({"--help"}, full), 1, "testclip", "No space left on device"));
}

TEST_F(Programs, WhichVariantPrintsItsLinesInOrder) {
  const Outcome outcome = run({WHICH_VARIANT});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.err, "");
  size_t at = 0;
  for (const char* name :
       {"variant    ", "\nlabel      pxmCC ", "\nneeds      ", "\nprocessor  0x",
        "MMX, SSE, SSE2, SSE3", "\nrelease    ", "\ndate       ", "\ninit       ", ", ok"}) {
    const size_t found = outcome.out.find(name, at);
    ASSERT_NE(found, std::string::npos) << name;
    at = found + 1;
  }
}

TEST_F(Programs, WhichVariantNamesATagOfTheLibrary) {
  const std::string out = run({WHICH_VARIANT}).out;
  const std::string tag = out.substr(0, out.find('\n')).substr(11);
  const std::set<std::string> tags = {
#define VARIANT(tag, ...) #tag,
#include "frame/variants.def"
  };
  EXPECT_EQ(tags.count(tag), 1u) << tag;
  EXPECT_NE(out.find("(" + tag + ")"), std::string::npos);
}

TEST_F(Programs, WhichVariantReportsAFullDisk) {
  const Outcome outcome = run({WHICH_VARIANT}, {.outFile = "/dev/full"});
  EXPECT_TRUE(failedWith(outcome, 1, "which_variant", "No space left on device"));
}

}  // namespace
}  // namespace programs
