// SPDX-License-Identifier: MIT
#include "bench/environment.h"

#include <cpuid.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

#include "bench/peers.h"
#include "include/pxmcc90lgc.h"

namespace {

std::string processor() {
  unsigned most = 0, b, c, d;
  if (!__get_cpuid(0x80000000, &most, &b, &c, &d) || most < 0x80000004) return "unknown";
  char name[49] = {};
  for (unsigned i = 0; i < 3; ++i) {
    unsigned words[4];
    __get_cpuid(0x80000002 + i, &words[0], &words[1], &words[2], &words[3]);
    std::memcpy(name + 16 * i, words, 16);
  }
  const std::string padded = name;
  const auto first = padded.find_first_not_of(' '), last = padded.find_last_not_of(' ');
  return first == std::string::npos ? "unknown" : padded.substr(first, last - first + 1);
}

// A neighbour on the same core changes not only the times but their ratios.
std::string load() {
  double average = 0;
  if (getloadavg(&average, 1) != 1) return "unknown";
  char digits[32];
  std::snprintf(digits, sizeof digits, "%.2f", average);
  return digits + std::string(" processes in the minute before the run") +
         (average > 0.5 ? "; ratios hold for an idle machine only" : "");
}

std::string compiler() {
#ifdef __clang__
  return "Clang " __clang_version__;
#else
  return "GCC " __VERSION__;
#endif
}

// A line for each level of kernels; what it has in common with the first one stands there only.
std::vector<std::string> flags() {
  std::vector<std::string> lines(1);
  for (const char c : std::string(PXM_BUILD_FLAGS))
    if (c == '\n')
      lines.emplace_back();
    else
      lines.back() += c;
  lines.pop_back();

  std::string first, common;
  for (std::string& line : lines) {
    const std::size_t colon = line.find(": ");
    if (first.empty() && line.find("kernels_") == 0) {
      first = line.substr(0, colon);
      common = line.substr(colon + 2);
    } else if (!first.empty() && line.find(common) == colon + 2) {
      line.replace(colon + 2, common.size(), "as " + first + ", and");
    }
    line.insert(0, "flags      ");
  }
  return lines;
}

// The levels of kernels that the variants use.
std::vector<std::string> levels() {
  return {
#define VARIANT(tag, kernels, depth_kernels, ...) \
  "variant    " #tag ": kernels_" #kernels ", depth_kernels_" #depth_kernels,
#include "frame/variants.def"
  };
}

}  // namespace

std::vector<std::string> describeEnvironment(bool withPeers) {
  const pxmVersionRecord& record = *legacy90pxmccGetLibVersion();
  std::vector<std::string> lines = {
      "processor  " + processor() + ", " + std::to_string(std::thread::hardware_concurrency()) +
          " hardware threads for this process",
      "load       " + load(),
      "compiler   " + compiler(),
      "library    pxmcc90lgc " + std::to_string(record.versionMajor) + "." +
          std::to_string(record.versionMinor) + "." + std::to_string(record.versionPatch) +
          ", runs as " + record.variantTag + " here",
  };
  for (const std::vector<std::string>& more : {levels(), flags()})
    lines.insert(lines.end(), more.begin(), more.end());
  if (withPeers)
    for (const std::string& peer :
         {describeLibyuv(), describeSwscale(), describeSdl(), describePixman()})
      lines.push_back("peer       " + peer);
  return lines;
}
