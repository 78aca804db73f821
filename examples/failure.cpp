// SPDX-License-Identifier: MIT
#include "failure.h"

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <new>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace examples {

namespace {

constexpr size_t kLongestQuote = 200;

bool isControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7f;
}

int report(const char* program, const char* text, int exitCode) {
  std::fprintf(stderr, "%s: %s\n", program, text);
  return exitCode;
}

}  // namespace

std::string quoted(std::string_view text) {
  const bool cut = text.size() > kLongestQuote;
  std::string result = "'";
  for (const char c : text.substr(0, kLongestQuote)) {
    result += isControl(c) ? '?' : c;
  }
  return result + (cut ? "...'" : "'");
}

std::string systemFailure(std::string_view doing, std::string_view path, int errorNumber) {
  const char* reason = errorNumber != 0 ? std::strerror(errorNumber) : "unknown reason";
  return "cannot " + std::string(doing) + " " + quoted(path) + ": " + reason;
}

long long positiveNumber(std::string_view text, long long limit) {
  if (text.empty() || text.front() < '0' || text.front() > '9') {
    return 0;
  }
  long long number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end && number <= limit ? number : 0;
}

void printToStandardOutput(std::string_view text) {
  const size_t written = std::fwrite(text.data(), 1, text.size(), stdout);
  if (written != text.size() || std::fflush(stdout) != 0) {
    throw Failure(systemFailure("write to", "standard output", errno));
  }
}

int runProgram(const char* name, void (*body)(int argc, char** argv), int argc, char** argv) {
#ifdef _WIN32
  // Clips and pictures are no text.
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
#endif
  try {
    body(argc, argv);
    return 0;
  } catch (const UsageFailure& failure) {
    return report(name, (std::string(failure.what()) + "; --help lists the options").c_str(), 2);
  } catch (const Failure& failure) {
    return report(name, failure.what(), 1);
  } catch (const std::bad_alloc&) {
    return report(name, "not enough memory", 1);
  } catch (const std::exception& failure) {
    return report(name, failure.what(), 1);
  }
}

}  // namespace examples
