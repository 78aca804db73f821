// SPDX-License-Identifier: MIT
// One line on stderr for everything that goes wrong in an example program.
#ifndef PXM_EXAMPLES_FAILURE_H
#define PXM_EXAMPLES_FAILURE_H

#include <stdexcept>
#include <string>
#include <string_view>

namespace examples {

/// What stops a program; the text is one line without a full stop.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A command line that cannot be carried out.
class UsageFailure : public Failure {
 public:
  using Failure::Failure;
};

/// Text between quotes, on one line and of bounded length whatever it holds.
std::string quoted(std::string_view text);

/// "cannot DOING 'PATH': REASON" with the reason of a system error number.
std::string systemFailure(std::string_view doing, std::string_view path, int errorNumber);

/// Reads a whole number from 1 to limit; digits only.
/// @return the number, or 0 if the text is not one.
long long positiveNumber(std::string_view text, long long limit);

/// Prints a text to standard output and fails if it cannot be written.
void printToStandardOutput(std::string_view text);

/// Runs the body of a program.
/// @return 0 after success; 1 after a Failure and 2 after a UsageFailure, with one line on stderr.
int runProgram(const char* name, void (*body)(int argc, char** argv), int argc, char** argv);

}  // namespace examples

#endif
