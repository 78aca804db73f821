// SPDX-License-Identifier: MIT
// Pictures in bands of rows are those of one call, and the program tells when they are not.
#include <string>
#include <vector>

#include "program_run.h"

namespace programs {
namespace {

using Arguments = std::vector<std::string>;

class Bands : public ProgramTest {
 protected:
  Outcome bands(const Arguments& arguments, const Surroundings& around = {}) const {
    Arguments command = {BANDS};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return run(command, around);
  }

  // Success in so many bands, as "2 of 4 to 5 rows".
  testing::AssertionResult equalIn(const std::string& parts, const Arguments& arguments) const {
    const Outcome outcome = bands(arguments);
    if (outcome.exitCode == 0 && outcome.err.empty() &&
        outcome.out.find("\nbands     " + parts + "\n") != std::string::npos &&
        outcome.out.find("\nequal     yes, ") != std::string::npos) {
      return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "exit code " << outcome.exitCode
                                       << ", out: " << outcome.out << ", err: " << outcome.err;
  }
};

// Widths that end in every way; yuv420 writes into the room after rows of 12, 13 and 20.
const char* const kWidths[] = {"4", "5", "12", "13", "20", "31", "64"};

TEST_F(Bands, PlainAndDitheredPicturesAreThoseOfOneCall) {
  for (const char* chroma : {"444", "422", "420", "yuv420"})
    for (const std::string width : kWidths)
      for (const bool dither : {false, true}) {
        Arguments arguments = {"--chroma", chroma, "--size", width + "x41", "--threads", "3"};
        if (dither) arguments.push_back("--dither");
        EXPECT_TRUE(equalIn(dither ? "3 of 12 to 16 rows" : "3 of 13 to 14 rows", arguments))
            << chroma << " " << width << " " << dither;
      }
}

TEST_F(Bands, EveryTarget) {
  for (const char* target : {"bgr565", "rgb565", "bgr555", "rgb555", "bgr444", "rgb444"}) {
    EXPECT_TRUE(equalIn("2 of 4 to 6 rows",
                        {"--to", target, "--size", "16x10", "--dither", "--threads", "2"}))
        << target;
    EXPECT_TRUE(equalIn("2 of 4 to 6 rows", {"--to", target, "--size", "16x10", "--threads", "2"}))
        << target;
  }
}

TEST_F(Bands, ChromaOfFourColumns) {
  for (const std::string width : kWidths)
    for (const char* target : {"bgr565", "bgr555"})
      EXPECT_TRUE(equalIn("5 of 2 to 3 rows", {"--chroma", "411", "--to", target, "--size",
                                               width + "x11", "--threads", "5"}));
}

TEST_F(Bands, AnyNumberOfThreads) {
  const Arguments plain = {"--size", "50x46", "--threads"};
  const Arguments dithered = {"--dither", "--size", "50x46", "--threads"};
  const auto with = [](Arguments arguments, const char* threads) {
    arguments.push_back(threads);
    return arguments;
  };
  EXPECT_TRUE(equalIn("1 of 46 to 46 rows", with(plain, "1")));
  EXPECT_TRUE(equalIn("5 of 8 to 10 rows", with(plain, "5")));
  EXPECT_TRUE(equalIn("7 of 6 to 8 rows", with(plain, "7")));
  EXPECT_TRUE(equalIn("1 of 46 to 46 rows", with(dithered, "1")));
  EXPECT_TRUE(equalIn("5 of 8 to 12 rows", with(dithered, "5")));
  EXPECT_TRUE(equalIn("7 of 4 to 8 rows", with(dithered, "7")));
}

TEST_F(Bands, MoreThreadsThanBands) {
  EXPECT_TRUE(equalIn("23 of 2 to 2 rows", {"--size", "50x46", "--threads", "64"}));
  EXPECT_TRUE(equalIn("11 of 4 to 6 rows", {"--size", "50x46", "--dither", "--threads", "1024"}));
  EXPECT_TRUE(equalIn("2 of 4 to 5 rows", {"--size", "16x9", "--dither", "--threads", "3"}));
}

// A last band of the row left over would stay as it was, or lose the rounding of a last row.
TEST_F(Bands, RowsLeftOverGoWithTheLastBand) {
  EXPECT_TRUE(
      equalIn("2 of 2 to 3 rows", {"--chroma", "yuv420", "--size", "16x5", "--threads", "9"}));
  EXPECT_TRUE(equalIn("1 of 3 to 3 rows", {"--size", "5x3", "--dither", "--threads", "9"}));
  EXPECT_TRUE(equalIn("1 of 1 to 1 rows", {"--size", "1x1", "--threads", "9"}));
  EXPECT_TRUE(
      equalIn("1 of 2 to 2 rows", {"--chroma", "yuv420", "--size", "1x1", "--threads", "9"}));
}

TEST_F(Bands, LargerUnitsAreAsGood) {
  EXPECT_TRUE(equalIn("3 of 8 to 16 rows",
                      {"--size", "50x39", "--unit", "8", "--dither", "--threads", "3"}));
  EXPECT_TRUE(equalIn("1 of 39 to 39 rows", {"--size", "50x39", "--unit", "40", "--threads", "3"}));
}

// Bands of 14 and 12 rows: the second starts in the middle of the pattern.
TEST_F(Bands, SeamInAPatternIsTold) {
  const Outcome outcome = bands({"--dither", "--size", "64x26", "--unit", "2", "--threads", "2"});
  EXPECT_TRUE(failedWith(outcome, 1, "bands", "in bands row 14 differs from that of one call"));
}

// The second band starts between two rows that share chroma, so pairs up others.
TEST_F(Bands, SeamInAPairOfRowsIsTold) {
  const Outcome outcome = bands({"--size", "64x30", "--unit", "1", "--threads", "2"});
  EXPECT_TRUE(failedWith(outcome, 1, "bands", "differs from that of one call"));
}

// Bands of one row, of which plain YUV conversions write nothing.
TEST_F(Bands, MissingRowsAreTold) {
  const Outcome outcome =
      bands({"--chroma", "yuv420", "--size", "64x2", "--unit", "1", "--threads", "2"});
  EXPECT_TRUE(failedWith(outcome, 1, "bands", "in bands row 0 differs from that of one call"));
}

TEST_F(Bands, ThreadsOfTheMachineByDefault) {
  const Outcome outcome = bands({"--size", "64x48"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.err, "");
  size_t at = 0;
  for (const char* name : {"picture   64x48, 420 to bgr565\n", "\nbands     ", "\none call  ",
                           " ms\nin bands  ", " ms\nspeed-up  ", "\nequal     yes, 48 rows\n"}) {
    const size_t found = outcome.out.find(name, at);
    ASSERT_NE(found, std::string::npos) << name;
    at = found + 1;
  }
}

TEST_F(Bands, RefusesBadCommandLines) {
  const struct {
    Arguments arguments;
    const char* reason;
  } commands[] = {
      {{"--threads", "0"}, "--threads '0' is not 1 to 1024"},
      {{"--threads", "1025"}, "--threads '1025' is not 1 to 1024"},
      {{"--threads", "two"}, "--threads 'two' is not 1 to 1024"},
      {{"--threads"}, "'--threads' needs a value"},
      {{"--unit", "-4"}, "--unit '-4' is not 1 to 16384"},
      {{"--unit", "16385"}, "--unit '16385' is not 1 to 16384"},
      {{"--to", "bgr888"}, "--to 'bgr888' is not one of bgr565, "},
      {{"--chroma", "410"}, "--chroma '410' is not one of 444, 422, 420, 411, yuv420"},
      {{"--chroma", "411", "--dither"}, "goes to bgr565 and bgr555 without --dither"},
      {{"--chroma", "411", "--to", "rgb565"}, "goes to bgr565 and bgr555 without --dither"},
      {{"--size", ""}, "--size '' is not 1x1 to 16384x16384"},
      {{"--size", "64"}, "--size '64' is not 1x1"},
      {{"--size", "x"}, "--size 'x' is not 1x1"},
      {{"--size", "0x5"}, "--size '0x5' is not 1x1"},
      {{"--size", "5x"}, "--size '5x' is not 1x1"},
      {{"--size", "5x5x5"}, "--size '5x5x5' is not 1x1"},
      {{"--size", "16385x1"}, "--size '16385x1' is not 1x1"},
      {{"--dither=1"}, "'--dither=1' is not known"},
      {{"--fast"}, "'--fast' is not known"},
      {{"picture"}, "'picture' is too much"},
  };
  for (const auto& [arguments, reason] : commands) {
    EXPECT_TRUE(failedWith(bands(arguments), 2, "bands", reason));
  }
}

TEST_F(Bands, FullDisk) {
  const Surroundings full = {.outFile = "/dev/full"};
  EXPECT_TRUE(failedWith(bands({"--help"}, full), 1, "bands", "No space left on device"));
  EXPECT_TRUE(failedWith(bands({"--size", "8x8"}, full), 1, "bands", "No space left on device"));
}

}  // namespace
}  // namespace programs
