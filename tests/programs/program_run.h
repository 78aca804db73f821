// SPDX-License-Identifier: MIT
// Runs built programs and looks at what they leave behind.
#ifndef PXM_TESTS_PROGRAMS_PROGRAM_RUN_H
#define PXM_TESTS_PROGRAMS_PROGRAM_RUN_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace programs {

/// How a program ended and what it printed.
struct Outcome {
  int exitCode = -1;  ///< -1 if a signal ended it
  std::string out;
  std::string err;
};

/// What a program finds around itself.
struct Surroundings {
  std::string input = {};    ///< bytes on standard input
  const char* outFile = "";  ///< where standard output goes instead of Outcome::out
  long longestFile = -1;     ///< bytes a file may grow to; -1 for no limit
};

/// A test with an empty directory of its own, in which programs run.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest();
  ~ProgramTest() override;

  Outcome run(const std::vector<std::string>& command, const Surroundings& around = {}) const;

  /// Runs a program on a pipe that holds some bytes and does not end; once the program has begun a
  /// file in the directory, sends it a signal.
  /// @return the signal that ended it, 0 if it ended by itself
  int runInterrupted(const std::vector<std::string>& command, const std::string& input,
                     int signal) const;

  /// Runs y4m2rgb with these arguments.
  Outcome y4m2rgb(std::vector<std::string> arguments, const Surroundings& around = {}) const;
  /// Runs png2y4m with these arguments.
  Outcome png2y4m(std::vector<std::string> arguments, const Surroundings& around = {}) const;
  /// Runs testclip with these arguments.
  Outcome testclip(std::vector<std::string> arguments, const Surroundings& around = {}) const;

  /// Absolute name of a file in the directory.
  std::string path(const std::string& name) const { return directory_ + "/" + name; }
  void store(const std::string& name, const std::string& bytes) const;
  std::string load(const std::string& name) const;
  /// Names in the directory in alphabetical order, hidden ones included.
  std::vector<std::string> files() const;

 private:
  std::string directory_;
};

/// Success without a word on either stream.
testing::AssertionResult succeeded(const Outcome& outcome);

/// Success with exactly one line on standard error, a warning that begins with the program's name
/// and holds a text.
testing::AssertionResult warned(const Outcome& outcome, const std::string& program,
                                const std::string& text);

/// Exactly one line on standard error that begins with the program's name and holds a text,
/// nothing on standard output, and an exit code.
testing::AssertionResult failedWith(const Outcome& outcome, int exitCode,
                                    const std::string& program, const std::string& text);

/// A picture as libpng reads it: rows of bytes R, G, B.
struct Picture {
  int width = 0;
  int height = 0;
  bool isPlainRgb = false;  ///< 8 bits, three channels, nothing else
  std::vector<unsigned char> bytes;

  /// The pixel as 0xRRGGBB.
  unsigned at(int x, int y) const;
};

/// Reads a picture; an empty one if libpng does not accept the file.
Picture readPicture(const std::string& path);

}  // namespace programs

#endif
