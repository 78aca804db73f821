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

struct BuildComparison {
  const Result* result;
  const Entry *ours, *other;
  double ratio;
};

// One size and variant beside the other build.
struct BuildSummary {
  Size size;
  int variant;
  double geometricMean;                      // of the other build's time over ours
  std::vector<BuildComparison> comparisons;  // of all conversions, lowest ratio first

  // Slower than the other build by more than 2 %; lowest ratio first.
  std::vector<BuildComparison> slower() const;
};

// Nothing where there is no other build.
std::vector<BuildSummary> summarizeBuilds(const Run& run);

#endif
