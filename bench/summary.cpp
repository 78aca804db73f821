// SPDX-License-Identifier: MIT
#include "bench/summary.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

void keepLeast(std::map<std::string, Comparison>& least, const std::string& kind,
               const Comparison& comparison) {
  const auto [place, isNew] = least.try_emplace(kind, comparison);
  if (!isNew && comparison.ratio < place->second.ratio) place->second = comparison;
}

Summary summarizeOne(const Run& run, const Size& size, int variant) {
  Summary summary = {size, variant, 0, {}, {}};
  double logarithms = 0;
  for (const Result& result : run.results) {
    if (result.size.name() != size.name()) continue;
    const Entry* ours = result.variant(variant);
    const Entry* peer = ours ? result.peerOf(*ours) : nullptr;
    if (!peer) continue;
    const Comparison comparison = {&result, ours, peer, ratio(*ours, *peer),
                                   areEqual(ours->figure, peer->figure)};
    summary.comparisons.push_back(comparison);
    logarithms += std::log(comparison.ratio);
    keepLeast(summary.leastByKind, kindOf(*result.conversion), comparison);
  }
  summary.geometricMean = std::exp(
      logarithms / static_cast<double>(std::max<std::size_t>(1, summary.comparisons.size())));
  return summary;
}

BuildSummary summarizeBuild(const Run& run, const Size& size, int variant) {
  BuildSummary summary = {size, variant, 0, {}};
  double logarithms = 0;
  for (const Result& result : run.results) {
    if (result.size.name() != size.name()) continue;
    const Entry *ours = result.variant(variant), *other = result.otherBuildOf(*ours);
    summary.comparisons.push_back({&result, ours, other, ratio(*ours, *other)});
    logarithms += std::log(summary.comparisons.back().ratio);
  }
  std::ranges::stable_sort(summary.comparisons, {}, &BuildComparison::ratio);
  summary.geometricMean = std::exp(logarithms / static_cast<double>(summary.comparisons.size()));
  return summary;
}

}  // namespace

std::vector<Comparison> Summary::slower() const {
  std::vector<Comparison> some;
  for (const Comparison& c : comparisons)
    if (c.ratio < 1 && !c.equal) some.push_back(c);
  std::sort(some.begin(), some.end(),
            [](const Comparison& a, const Comparison& b) { return a.ratio < b.ratio; });
  return some;
}

int Summary::countEqual() const {
  return static_cast<int>(std::count_if(comparisons.begin(), comparisons.end(),
                                        [](const Comparison& c) { return c.equal; }));
}

std::vector<Summary> summarize(const Run& run) {
  std::vector<Summary> summaries;
  for (const Size& size : run.sizes)
    for (const int variant : run.variants) {
      Summary summary = summarizeOne(run, size, variant);
      if (!summary.comparisons.empty()) summaries.push_back(std::move(summary));
    }
  return summaries;
}

std::vector<BuildComparison> BuildSummary::slower() const {
  std::vector<BuildComparison> some;
  std::ranges::copy_if(comparisons, std::back_inserter(some),
                       [](const BuildComparison& c) { return c.ratio < 1 / 1.02; });
  return some;
}

std::vector<BuildSummary> summarizeBuilds(const Run& run) {
  std::vector<BuildSummary> summaries;
  if (run.against.empty()) return summaries;
  for (const Size& size : run.sizes)
    for (const int variant : run.variants) summaries.push_back(summarizeBuild(run, size, variant));
  return summaries;
}
