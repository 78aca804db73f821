// SPDX-License-Identifier: MIT
#include "bench/report.h"
#include "bench/summary.h"
#include "catalogue/variants.h"

namespace {

std::string quoted(std::string_view words) {
  std::string result = "\"";
  for (const char c : words) {
    if (c == '"' || c == '\\') result += '\\';
    result += c;
  }
  return result + "\"";
}

// Items between brackets, each made by `write`.
template <class Items, class Write>
std::string list(const Items& items, Write write) {
  std::string result;
  for (const auto& item : items) result += (result.empty() ? "\n" : ",\n") + write(item);
  return "[" + result + "]";
}

std::string entryOf(const Result& result, const Entry& entry) {
  const Figure& f = entry.figure;
  std::string line = "{\"maker\":" + quoted(entry.maker) + ",\"call\":" + quoted(entry.call) +
                     ",\"peer_class\":" + quoted(nameOf(entry.peerClass)) +
                     text(
                         ",\"best_ns\":%.1f,\"median_ns\":%.1f,\"quartiles_ns\":[%.1f,%.1f],"
                         "\"cycles_per_pixel\":%.4f,\"share_of_copy\":%.4f",
                         f.best, f.median, f.lowerQuartile, f.upperQuartile,
                         result.cyclesPerPixel(entry), result.copy().figure.median / f.median);
  if (const Entry* peer = result.peerOf(entry))
    line += ",\"peer\":" + quoted(peer->maker) + ",\"peer_call\":" + quoted(peer->call) +
            text(",\"ratio\":%.4f,\"equal\":%s", ratio(entry, *peer),
                 areEqual(f, peer->figure) ? "true" : "false");
  if (entry.psnr > 0) line += text(",\"psnr\":%.1f", entry.psnr);
  if (const Entry* other = result.otherBuildOf(entry))
    line += text(",\"other_build_median_ns\":%.1f,\"other_build_ratio\":%.4f", other->figure.median,
                 ratio(entry, *other));
  return line + "}";
}

std::string resultOf(const Result& result) {
  return "{\"conversion\":" + quoted(result.conversion->name) +
         ",\"kind\":" + quoted(kindOf(*result.conversion)) +
         text(",\"width\":%d,\"height\":%d,\"rounds\":%d,\"clock_ghz\":%.3f,\"entries\":",
              result.size.width, result.size.height, result.rounds,
              1 / result.nanosecondsPerCycle) +
         list(result.entries, [&](const Entry& entry) { return entryOf(result, entry); }) + "}";
}

std::string comparisonOf(const Comparison& c) {
  return "{\"conversion\":" + quoted(c.result->conversion->name) +
         text(",\"ratio\":%.4f,\"equal\":%s", c.ratio, c.equal ? "true" : "false") +
         ",\"peer\":" + quoted(c.peer->maker) + ",\"peer_call\":" + quoted(c.peer->call) + "}";
}

std::string summaryOf(const Summary& summary) {
  return "{\"size\":" + quoted(summary.size.name()) +
         ",\"variant\":" + quoted(variantTags[summary.variant]) +
         text(",\"geometric_mean\":%.4f,\"conversions\":%zu,\"equal\":%d,\"least\":",
              summary.geometricMean, summary.comparisons.size(), summary.countEqual()) +
         list(summary.leastByKind,
              [](const auto& least) {
                return "{\"kind\":" + quoted(least.first) +
                       ",\"is\":" + comparisonOf(least.second) + "}";
              }) +
         ",\"slower\":" + list(summary.slower(), comparisonOf) + "}";
}

std::string ratioOf(const BuildComparison& c) {
  return "{\"conversion\":" + quoted(c.result->conversion->name) +
         text(",\"ratio\":%.4f}", c.ratio);
}

std::string buildSummaryOf(const BuildSummary& summary) {
  return "{\"size\":" + quoted(summary.size.name()) +
         ",\"variant\":" + quoted(variantTags[summary.variant]) +
         text(",\"geometric_mean\":%.4f,\"conversions\":%zu,\"worst\":", summary.geometricMean,
              summary.comparisons.size()) +
         ratioOf(summary.comparisons.front()) + ",\"slower\":" + list(summary.slower(), ratioOf) +
         "}";
}

std::string leftOutOf(const LeftOut& l) {
  return "{\"maker\":" + quoted(l.maker) + ",\"call\":" + quoted(l.call) +
         ",\"conversion\":" + quoted(l.conversion) + ",\"size\":" + quoted(l.size) +
         text(",\"psnr\":%.1f,\"worst_column_psnr\":%.1f,\"gain\":%.2f}", l.psnr, l.worstColumn,
              l.gain);
}

}  // namespace

std::string jsonOf(const Run& run) {
  return "{\"environment\":" + list(run.environment, quoted) +
         ",\n\"results\":" + list(run.results, resultOf) +
         ",\n\"left_out\":" + list(run.leftOut, leftOutOf) +
         ",\n\"summary\":" + list(summarize(run), summaryOf) +
         ",\n\"against\":" + quoted(run.against) +
         ",\n\"against_summary\":" + list(summarizeBuilds(run), buildSummaryOf) + "}\n";
}
