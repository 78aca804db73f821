// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdarg>
#include <cstdio>

#include "bench/report.h"
#include "bench/summary.h"
#include "catalogue/variants.h"

std::string text(const char* format, ...) {
  char buffer[512];
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(buffer, sizeof buffer, format, arguments);
  va_end(arguments);
  return buffer;
}

namespace {

constexpr const char* legend =
    "Medians of rounds in which all candidates took their turns, in processor time. A cell has\n"
    "cycles per pixel; x how many times as fast as the fastest comparable peer, with = where the\n"
    "two medians are no further apart than their spreads together; and the share of the copy's\n"
    "speed. The spread is half the distance of the quartiles. Beneath stands the fastest call of\n"
    "each peer, with cycles per pixel and spread. Scalar code has no peer, nor has the colour\n"
    "twist. Rows are tight; those of odd widths are padded to 64 bytes.\n";

int spreadOf(const Entry& entry) {
  return static_cast<int>(100 * entry.figure.spread() / entry.figure.median + 0.5);
}

std::string cell(const Result& result, const Entry& entry) {
  std::string line = text(" %6.2f", result.cyclesPerPixel(entry));
  if (const Entry* peer = result.peerOf(entry))
    line +=
        text(" x%5.2f%c", ratio(entry, *peer), areEqual(entry.figure, peer->figure) ? '=' : ' ');
  else
    line += "        ";
  return line + text("%3.0f%%", 100 * result.copy().figure.median / entry.figure.median);
}

std::string peersOf(const Result& result, PeerClass peerClass) {
  std::string line;
  for (const char* name : peerNames)
    if (const Entry* peer = result.peer(peerClass, name))
      line += text("%s %s %s %.2f +-%d%%", line.empty() ? "" : ";", name, peer->call.c_str(),
                   result.cyclesPerPixel(*peer), spreadOf(*peer));
  return line;
}

std::string rowsOf(const Result& result, const Run& run) {
  std::string rows = text("%-36s %5.2f", std::string(result.conversion->name).c_str(),
                          result.cyclesPerPixel(result.copy()));
  for (const int variant : run.variants) rows += cell(result, *result.variant(variant));
  rows += "\n";
  for (const PeerClass peerClass : {PeerClass::Sse4, PeerClass::Avx2}) {
    const bool asked = std::any_of(run.variants.begin(), run.variants.end(),
                                   [peerClass](int v) { return peerClassOf(v) == peerClass; });
    const std::string peers = asked ? peersOf(result, peerClass) : "";
    if (!peers.empty()) rows += text("    %s:", nameOf(peerClass)) + peers + "\n";
  }
  return rows;
}

std::string tableOfSize(const Run& run, const Size& size) {
  std::string rows, head = text("\n%-36s %5s", size.name().c_str(), "copy");
  for (const int variant : run.variants) head += text(" %6s            ", variantTags[variant]);
  std::vector<double> clocks;
  std::vector<int> spreads, rounds;
  for (const Result& result : run.results) {
    if (result.size.name() != size.name()) continue;
    rows += rowsOf(result, run);
    clocks.push_back(1 / result.nanosecondsPerCycle);
    rounds.push_back(result.rounds);
    for (const int variant : run.variants) spreads.push_back(spreadOf(*result.variant(variant)));
  }
  std::sort(clocks.begin(), clocks.end());
  std::sort(spreads.begin(), spreads.end());
  const auto [least, most] = std::minmax_element(rounds.begin(), rounds.end());
  head.erase(head.find_last_not_of(' ') + 1);
  return head + "\n" + rows +
         text(
             "%s: %d to %d rounds, clock %.2f to %.2f GHz, our spreads %d%% in the middle, %d%% "
             "at most\n",
             size.name().c_str(), *least, *most, clocks.front(), clocks.back(),
             spreads[spreads.size() / 2], spreads.back());
}

std::string describe(const Comparison& c) {
  return text("%.2f%s %s against %s %s", c.ratio, c.equal ? "=" : "",
              std::string(c.result->conversion->name).c_str(), c.peer->maker.c_str(),
              c.peer->call.c_str());
}

std::string summaryOf(const Run& run) {
  const std::vector<Summary> summaries = summarize(run);
  if (summaries.empty()) return "";
  std::string lines =
      "\nSummary: how many times as fast as the fastest comparable peer, as a geometric mean, and\n"
      "the least by kind\n";
  for (const Summary& summary : summaries) {
    const std::vector<Comparison> slower = summary.slower();
    lines += text("\n%s %s: mean %.2f over %zu conversions; equal %d, slower %zu\n",
                  summary.size.name().c_str(), variantTags[summary.variant], summary.geometricMean,
                  summary.comparisons.size(), summary.countEqual(), slower.size());
    for (const auto& [kind, least] : summary.leastByKind)
      lines += text("  least, %-16s ", (kind + ":").c_str()) + describe(least) + "\n";
    for (const Comparison& c : slower) lines += "  slower: " + describe(c) + "\n";
  }
  return lines;
}

std::string buildsOfSize(const Run& run, const Size& size) {
  std::string lines = text("\n%-36s", size.name().c_str());
  for (const int variant : run.variants)
    lines += text(" %6s %6s       ", "other", variantTags[variant]);
  lines.erase(lines.find_last_not_of(' ') + 1);
  lines += "\n";
  for (const Result& result : run.results) {
    if (result.size.name() != size.name()) continue;
    lines += text("%-36s", std::string(result.conversion->name).c_str());
    for (const int variant : run.variants) {
      const Entry &ours = *result.variant(variant), &other = *result.otherBuildOf(ours);
      lines += text(" %6.2f %6.2f x%5.3f", result.cyclesPerPixel(other),
                    result.cyclesPerPixel(ours), ratio(ours, other));
    }
    lines += "\n";
  }
  return lines;
}

std::string describe(const BuildComparison& c) {
  return text("%.3f %s\n", c.ratio, std::string(c.result->conversion->name).c_str());
}

std::string buildsOf(const Run& run) {
  const std::vector<BuildSummary> summaries = summarizeBuilds(run);
  if (summaries.empty()) return "";
  std::string lines = "\nThe other build is " + run.against +
                      "\nIts cycles per pixel, ours, and x how many times as fast ours is\n";
  for (const Size& size : run.sizes) lines += buildsOfSize(run, size);
  lines += "\nSummary: how many times as fast as the other build\n";
  for (const BuildSummary& summary : summaries) {
    const std::vector<BuildComparison> slower = summary.slower();
    lines += text("\n%s %s: mean %.3f over %zu conversions; slower by more than 2 %%: %zu\n",
                  summary.size.name().c_str(), variantTags[summary.variant], summary.geometricMean,
                  summary.comparisons.size(), slower.size());
    lines += "  worst:  " + describe(summary.comparisons.front());
    for (const BuildComparison& c : slower) lines += "  slower: " + describe(c);
  }
  return lines;
}

std::string leftOutOf(const Run& run) {
  if (run.leftOut.empty()) return "";
  std::string lines = "\nLeft out, because the result is another kind of picture than ours:\n";
  for (const LeftOut& l : run.leftOut)
    lines += text("  %s %s for %s at %s: PSNR %.1f dB, worst column %.1f dB, gain %.2f\n",
                  l.maker.c_str(), l.call.c_str(), l.conversion.c_str(), l.size.c_str(), l.psnr,
                  l.worstColumn, l.gain);
  return lines;
}

}  // namespace

std::string tableOf(const Run& run) {
  std::string all;
  for (const std::string& line : run.environment) all += line + "\n";
  all += "\n" + std::string(legend);
  for (const Size& size : run.sizes) all += tableOfSize(run, size);
  return all + leftOutOf(run) + summaryOf(run) + buildsOf(run);
}
