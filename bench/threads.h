// SPDX-License-Identifier: MIT
// One frame in bands of rows, a thread for each.
#ifndef BENCH_THREADS_H_
#define BENCH_THREADS_H_

#include <string>

#include "bench/options.h"

struct ThreadReport {
  std::string table, csv;
};

// With the highest of the variants asked for.
ThreadReport timeThreads(const Options& options);

#endif
