// SPDX-License-Identifier: MIT
// The forms that a run is written in.
#ifndef BENCH_REPORT_H_
#define BENCH_REPORT_H_

#include <string>

#include "bench/result.h"

std::string tableOf(const Run& run);
std::string csvOf(const Run& run);
std::string jsonOf(const Run& run);

struct Plot {
  std::string name;  // of the file, without a suffix
  std::string svg;
};

// One for each family, of the in-cache strip if it was measured.
std::vector<Plot> plotsOf(const Run& run);

// Text by a format of printf.
[[gnu::format(printf, 1, 2)]] std::string text(const char* format, ...);

#endif
