// SPDX-License-Identifier: MIT
#include "bench/summary.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "tests/support/variants.h"

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
    if (std::string_view(variantTags[variant]) == "l9" && isWide(*result.conversion))
      keepLeast(summary.leastByKind, "256-bit kernels", comparison);
  }
  summary.geometricMean = std::exp(
      logarithms / static_cast<double>(std::max<std::size_t>(1, summary.comparisons.size())));
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
