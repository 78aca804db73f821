// SPDX-License-Identifier: MIT
// What a run comes to, for each size and variant.
#ifndef BENCH_SUMMARY_H_
#define BENCH_SUMMARY_H_

#include <map>
#include <string>
#include <vector>

#include "bench/result.h"

struct Comparison {
  const Result* result;
  const Entry* ours;
  const Entry* peer;
  double ratio;
  bool equal;
};

struct Summary {
  Size size;
  int variant;
  double geometricMean;  // of the ratios of all conversions that have a comparable peer
  std::vector<Comparison> comparisons;
  std::map<std::string, Comparison> leastByKind;

  // Slower than the peer by more than the spread; lowest ratio first.
  std::vector<Comparison> slower() const;
  int countEqual() const;
};

// Without those variants that are compared with nothing.
std::vector<Summary> summarize(const Run& run);

#endif
