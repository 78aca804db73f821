// SPDX-License-Identifier: MIT
// Bars in SVG.
#include <algorithm>
#include <map>

#include "bench/report.h"
#include "catalogue/variants.h"

namespace {

constexpr int left = 290, barsWidth = 560, right = 250, top = 64, barHeight = 11, gap = 12;

struct Bar {
  std::string label;
  std::string colour;
  double cycles;
};

// From light to dark in slot order.
std::string colourOf(int variant) {
  const auto between = [share = static_cast<double>(variant) / (variantCount - 1)](int a, int b) {
    return static_cast<int>(a + share * (b - a) + 0.5);
  };
  return text("#%02x%02x%02x", between(0xC6, 0x12), between(0xD3, 0x4F), between(0xE8, 0x94));
}

std::vector<Bar> barsOf(const Result& result, const Run& run) {
  std::vector<Bar> bars;
  for (const int variant : run.variants)
    bars.push_back(
        {variantTags[variant], colourOf(variant), result.cyclesPerPixel(*result.variant(variant))});
  for (const PeerClass peerClass : {PeerClass::Sse4, PeerClass::Avx2})
    if (const Entry* peer = result.peer(peerClass))
      bars.push_back(
          {peer->maker +
               (peer->peerClass == PeerClass::Any ? "" : text(" at %s", nameOf(peerClass))),
           peerClass == PeerClass::Sse4 ? "#f0b27a" : "#d9822b", result.cyclesPerPixel(*peer)});
  bars.push_back({"copy", "#9a9a9a", result.cyclesPerPixel(result.copy())});
  return bars;
}

// The axis ends where the slowest bar does, but for that of scalar code, which is cut off and says
// how long it is.
double axisEnd(const std::vector<std::vector<Bar>>& groups) {
  double end = 0, everything = 0;
  for (const auto& bars : groups)
    for (const Bar& bar : bars) {
      everything = std::max(everything, bar.cycles);
      if (bar.label != variantTags[0]) end = std::max(end, bar.cycles);
    }
  return std::min(everything, 1.15 * end);
}

double stepOf(double end) {
  for (double step = 0.1;; step *= 10)
    for (const double times : {1.0, 2.0, 5.0})
      if (end / (step * times) <= 8) return step * times;
}

std::string plot(const std::vector<const Result*>& results, const Run& run,
                 const std::string& family) {
  std::vector<std::vector<Bar>> groups;
  int height = top;
  for (const Result* result : results) {
    groups.push_back(barsOf(*result, run));
    height += static_cast<int>(groups.back().size()) * barHeight + gap;
  }
  const double end = axisEnd(groups), step = stepOf(end);
  const auto x = [end](double cycles) { return left + barsWidth * std::min(cycles / end, 1.0); };

  std::string svg = text(
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%d\" height=\"%d\" "
      "font-family=\"sans-serif\" font-size=\"10\">\n"
      "<rect width=\"100%%\" height=\"100%%\" fill=\"white\"/>\n"
      "<text x=\"12\" y=\"24\" font-size=\"15\">%s, %s: cycles per pixel</text>\n",
      left + barsWidth + right, height + 12, family.c_str(), results[0]->size.name().c_str());
  for (double at = 0; at <= end; at += step)
    svg += text(
        "<line x1=\"%.1f\" y1=\"%d\" x2=\"%.1f\" y2=\"%d\" stroke=\"#ddd\"/>"
        "<text x=\"%.1f\" y=\"%d\" text-anchor=\"middle\" fill=\"#666\">%g</text>\n",
        x(at), top - 8, x(at), height, x(at), top - 12, at);
  int y = top;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    svg += text("<text x=\"%d\" y=\"%d\" font-size=\"11\" text-anchor=\"end\">%s</text>\n",
                left - 10, y + 9, std::string(results[i]->conversion->name).c_str());
    for (const Bar& bar : groups[i]) {
      svg += text(
          "<rect x=\"%d\" y=\"%d\" width=\"%.1f\" height=\"%d\" fill=\"%s\"/>"
          "<text x=\"%.1f\" y=\"%d\">%s%.2f %s</text>\n",
          left, y, x(bar.cycles) - left, barHeight - 1, bar.colour.c_str(), x(bar.cycles) + 4,
          y + barHeight - 2, bar.cycles > end ? "... " : "", bar.cycles, bar.label.c_str());
      y += barHeight;
    }
    y += gap;
  }
  return svg + "</svg>\n";
}

}  // namespace

std::vector<Plot> plotsOf(const Run& run) {
  const auto strip = std::find_if(run.sizes.begin(), run.sizes.end(),
                                  [](const Size& size) { return size.name() == "640x16"; });
  const Size size = strip == run.sizes.end() ? run.sizes.front() : *strip;
  std::map<std::string, std::vector<const Result*>> families;
  for (const Result& result : run.results)
    if (result.size.name() == size.name())
      families[familyOf(*result.conversion)].push_back(&result);
  std::vector<Plot> plots;
  for (const auto& [family, results] : families)
    plots.push_back({family, plot(results, run, family)});
  return plots;
}
