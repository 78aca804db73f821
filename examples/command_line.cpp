// SPDX-License-Identifier: MIT
#include "command_line.h"

#include <getopt.h>

#include <climits>

#include "failure.h"

namespace examples {

namespace {

// What getopt_long returns for the two of every program, and for the first of the program's own.
enum : int { kHelp = 1000, kVersion, kFirstOption };

std::vector<option> optionsForGetopt(const CommandLine& line) {
  std::vector<option> options = {{"help", no_argument, nullptr, kHelp},
                                 {"version", no_argument, nullptr, kVersion}};
  for (int code = kFirstOption; const Option& each : line.options) {
    options.push_back(
        {each.name, each.value == nullptr ? no_argument : required_argument, nullptr, code++});
  }
  options.push_back({nullptr, 0, nullptr, 0});
  return options;
}

void requireOptions(const CommandLine& line) {
  for (const Option& each : line.options) {
    if (each.mustBeSet != nullptr && !*each.mustBeSet) {
      throw UsageFailure(std::string("--") + each.name + " " + each.value + " is missing");
    }
  }
}

void readFileNames(const CommandLine& line, int argc, char** argv) {
  const auto count = static_cast<size_t>(argc - optind);
  if (count < line.files.size()) {
    std::string names;
    for (const FileName& file : line.files) {
      names += names.empty() ? "" : " or ";
      names += file.name;
    }
    throw UsageFailure(names + " is missing");
  }
  for (size_t i = 0; i < count; ++i) {
    const char* word = argv[optind + static_cast<int>(i)];
    if (i >= line.files.size()) {
      throw UsageFailure(quoted(word) + " is too much");
    }
    if (*word == '\0') {
      throw UsageFailure(std::string(line.files[i].name) + " '' is not the name of a file");
    }
    *line.files[i].path = word;
  }
}

}  // namespace

bool readCommandLine(const CommandLine& line, int argc, char** argv) {
  const std::vector<option> options = optionsForGetopt(line);
  opterr = 0;
  for (int code; (code = getopt_long(argc, argv, ":h", options.data(), nullptr)) != -1;) {
    if (code == 'h' || code == kHelp) {
      printToStandardOutput(line.help);
      return false;
    }
    if (code == kVersion) {
      printToStandardOutput(std::string(line.program) + " of pxmcc90lgc " PXM_VERSION "\n");
      return false;
    }
    if (code == ':') {
      throw UsageFailure(quoted(argv[optind - 1]) + " needs a value");
    }
    if (code < kFirstOption) {
      throw UsageFailure("option " + quoted(argv[optind - 1]) + " is not known");
    }
    line.options[static_cast<size_t>(code - kFirstOption)].set(optarg);
  }
  requireOptions(line);
  readFileNames(line, argc, argv);
  return true;
}

long long numberOf(const char* option, const char* value, long long limit) {
  const long long number = positiveNumber(value, limit);
  if (number == 0) {
    throw UsageFailure(std::string("--") + option + " " + quoted(value) +
                       (limit == LLONG_MAX ? std::string(" is not a number from 1 up")
                                           : " is not 1 to " + std::to_string(limit)));
  }
  return number;
}

}  // namespace examples
