// SPDX-License-Identifier: MIT
#ifndef BENCH_OPTIONS_H_
#define BENCH_OPTIONS_H_

#include <stdexcept>
#include <string>
#include <vector>

#include "bench/result.h"

struct Options {
  std::vector<int> variants;
  std::vector<const Conversion*> conversions;
  std::vector<Size> sizes;
  std::string output;
  std::string against;  // another build of the library; empty for none
  bool peers = true, quick = false, threads = false, help = false;
};

struct BadOption : std::runtime_error {
  using runtime_error::runtime_error;
};

// Throws BadOption with a message of one line.
Options parseOptions(int count, const char* const* words);

std::string usage();

#endif
