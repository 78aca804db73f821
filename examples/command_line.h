// SPDX-License-Identifier: MIT
// The command line of every program: options by name, then the names of files.
#ifndef PXM_EXAMPLES_COMMAND_LINE_H
#define PXM_EXAMPLES_COMMAND_LINE_H

#include <functional>
#include <string>
#include <vector>

namespace examples {

/// An option, which is spelt "--name" or "--name VALUE".
struct Option {
  const char* name;
  const char* value;  ///< what the value is called in the help; null for a flag
  std::function<void(const char*)> set;
  const bool* mustBeSet = nullptr;  ///< if not null: false after the last option is an error
};

/// The name of a file, after the options. "-" is for the program to understand; an empty name is
/// an error.
struct FileName {
  const char* name;
  std::string* path;
};

struct CommandLine {
  const char* program;
  const char* help;  ///< the whole text of --help
  std::vector<Option> options;
  std::vector<FileName> files;
};

/// Reads a command line. --help and --version, which every program has, print to standard output.
/// @return false after one of these two: there is nothing left to do
/// Throws a UsageFailure that names the first word that cannot be carried out.
bool readCommandLine(const CommandLine& line, int argc, char** argv);

/// The value of an option as a whole number from 1 to limit; throws a UsageFailure if it is none.
long long numberOf(const char* option, const char* value, long long limit);

}  // namespace examples

#endif
