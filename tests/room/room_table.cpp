// SPDX-License-Identifier: MIT
// Prints, for every conversion in every variant, what it touches beyond its region and what of its
// region it leaves: a table in Markdown. It is made from the shapes that the geometry tests hold
// the library to, with guard pages directly beside them.
#include <cstdio>
#include <functional>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/shapes.h"
#include "catalogue/variants.h"

namespace {

constexpr int mostWidth = 80, mostHeight = 8;

using Sizes = std::set<std::pair<int, int>>;

struct Condition {
  const char* text;
  bool (*holds)(int w, int h);
};

// What sizes can have in common. A fact that holds at other sizes stops the program.
const Condition conditions[] = {
    {"always", [](int, int) { return true; }},
    {"width 1", [](int w, int) { return w == 1; }},
    {"width 1 or height 1", [](int w, int h) { return w == 1 || h == 1; }},
    {"odd width above 1", [](int w, int) { return w % 2 == 1 && w > 1; }},
    {"odd width above 1, height above 1",
     [](int w, int h) { return w % 2 == 1 && w > 1 && h > 1; }},
    {"odd height above 1, width above 1",
     [](int w, int h) { return h % 2 == 1 && h > 1 && w > 1; }},
    {"odd width", [](int w, int) { return w % 2 == 1; }},
    {"odd height", [](int, int h) { return h % 2 == 1; }},
    {"odd width or odd height", [](int w, int h) { return w % 2 == 1 || h % 2 == 1; }},
    {"odd width and odd height", [](int w, int h) { return w % 2 == 1 && h % 2 == 1; }},
    {"width & 7 is 4, height above 1", [](int w, int h) { return w % 8 == 4 && h > 1; }},
    {"width & 7 is 5, height above 1", [](int w, int h) { return w % 8 == 5 && h > 1; }},
    {"width not a multiple of 4", [](int w, int) { return w % 4 != 0; }},
};

const char* conditionOf(const Conversion& c, const std::string& fact, const Sizes& sizes,
                        const Sizes& all) {
  for (const Condition& condition : conditions) {
    Sizes expected;
    for (const auto& [w, h] : all)
      if (condition.holds(w, h)) expected.insert({w, h});
    if (expected == sizes) return condition.text;
  }
  throw std::logic_error(std::string(c.name) + ": no condition is known for '" + fact + "'");
}

std::string counted(int n, const char* what) {
  return std::to_string(n) + " " + what + (n == 1 ? "" : "s");
}

// The facts of one side at one size.
std::vector<std::string> factsOf(const std::vector<PlaneShape>& planes,
                                 const std::vector<PlaneShape>& region, const char* verb) {
  std::vector<std::string> facts;
  const std::string does = verb;
  bool nothing = true;
  for (const PlaneShape& plane : planes) nothing = nothing && plane.rowBytes * plane.rows == 0;
  if (nothing) return {does + "s nothing"};
  for (std::size_t i = 0; i < planes.size(); ++i) {
    if (i == 2) {
      const bool isAlike = planes[1].afterLastRow == planes[2].afterLastRow &&
                           planes[1].afterPairs == planes[2].afterPairs;
      if (!isAlike) throw std::logic_error("the chroma planes differ");
      break;
    }
    const std::string of = planes.size() == 1 ? "" : i == 0 ? " of luma" : " of each chroma plane";
    const PlaneShape &plane = planes[i], &whole = region[i];
    if (plane.afterLastRow)
      facts.push_back(does + "s " + counted(plane.afterLastRow, "byte") + " after the last row" +
                      of);
    if (plane.afterPairs)
      facts.push_back(does + "s " + counted(plane.afterPairs, "byte") +
                      " after each row that is one of a pair" + of);
    if (plane.beforeRows)
      facts.push_back(does + "s " + counted(plane.beforeRows, "byte") + " before each row" + of);
    if (plane.rowBytes > whole.rowBytes)
      facts.push_back(does + "s " + counted(plane.rowBytes, "byte") + " for a row of " +
                      std::to_string(whole.rowBytes));
    if (plane.rowBytes < whole.rowBytes) facts.push_back("leaves the last columns" + of);
    if (plane.rows < whole.rows) facts.push_back("leaves the last row" + of);
  }
  return facts;
}

// The region as a caller thinks of it, without what any variant does at its edges.
std::vector<PlaneShape> regionOf(const Conversion& c, const std::vector<PlaneShape>& planes, int w,
                                 int h) {
  std::vector<PlaneShape> region;
  for (std::size_t i = 0; i < planes.size(); ++i) {
    int bytes = w;
    if (planes.size() == 1)
      bytes = c.kind == Kind::Decode  ? 2 * w
              : c.kind == Kind::Twist ? (c.has("AC4") ? 4 * w - 1 : 3 * w)
                                      : planes[i].rowBytes;
    const bool isChroma = i > 0 && c.kind != Kind::Twist;
    region.push_back(isChroma ? planes[i] : PlaneShape{bytes, h});
  }
  return region;
}

using Facts = std::map<std::string, Sizes>;

Facts factsOf(const Conversion& c, int variant, Sizes& all) {
  Facts facts;
  for (int w = c.has("411") ? 4 : 1; w <= mostWidth; ++w)
    for (int h = 1; h <= mostHeight; ++h) {
      const bool isTooSmall =
          c.kind == Kind::Encode && c.has("BGR") && (w < 2 || (c.has("420") && h < 2));
      if (isTooSmall) continue;
      all.insert({w, h});
      const Shape shape = shapeOf(c, variant, w, h);
      for (const std::string& fact : factsOf(shape.dst, regionOf(c, shape.dst, w, h), "write"))
        facts[fact].insert({w, h});
      if (c.kind != Kind::Decode) continue;
      if (shape.dst[0].rowBytes == 0) continue;  // nothing is read either
      for (const std::string& fact : factsOf(shape.src, shape.src, "read"))
        facts[fact].insert({w, h});
    }
  return facts;
}

// All, all but the first, or their tags.
std::string variantsText(const std::set<int>& variants) {
  if (static_cast<int>(variants.size()) == variantCount) return "all";
  if (static_cast<int>(variants.size()) == variantCount - 1 && variants.count(0) == 0)
    return "all but `" + std::string(variantTags[0]) + "`";
  std::string text;
  for (const int v : variants)
    text += (text.empty() ? "`" : ", `") + std::string(variantTags[v]) + "`";
  return text;
}

const std::string exactly =
    "| all | always | touches its region, no byte more and no byte less |\n";

// The rows of a conversion: what it does, in which variants, where.
std::string rowsOf(const Conversion& c) {
  std::map<std::pair<std::string, std::string>, std::set<int>> variants;
  for (int v = 0; v < variantCount; ++v) {
    Sizes all;
    const Facts facts = factsOf(c, v, all);
    for (const auto& [fact, sizes] : facts)
      variants[{conditionOf(c, fact, sizes, all), fact}].insert(v);
  }
  std::map<std::pair<std::string, std::string>, std::string> merged;  // by variants and condition
  for (const auto& [key, set] : variants) {
    std::string& text = merged[{variantsText(set), key.first}];
    text += (text.empty() ? "" : "; ") + key.second;
  }
  std::string rows;
  for (const auto& [key, text] : merged)
    rows += "| " + key.first + " | " + key.second + " | " + text + " |\n";
  return rows.empty() ? exactly : rows;
}

// One or two functions by name, more by what they have in common: sources, dither, layouts.
std::string heading(const std::vector<std::string>& names) {
  std::set<std::string> sources, layouts;
  std::string text;
  std::size_t dithered = 0;
  for (const std::string& name : names) {
    sources.insert("from " + name.substr(0, name.find("To")));
    layouts.insert(name.substr(name.rfind('_') + 1));
    text += (text.empty() ? "" : ", ") + name.substr(0, name.find('_'));
    dithered += name.find("Dither") != name.npos;
  }
  if (names.size() > 2) {
    text.clear();
    for (const std::string& source : sources) text += (text.empty() ? "" : ", ") + source;
    text += dithered == 0              ? ", without dither"
            : dithered == names.size() ? ", dithered"
                                       : ", with dither and without";
    text[0] = 'F';
  }
  return layouts.size() > 1 ? text : text + ", " + *layouts.begin();
}

void printGroup(const std::string& title, const std::string& rows,
                const std::vector<std::string>& names) {
  std::printf("\n## %s\n\n| Variants | Where | What it does |\n|---|---|---|\n%s\n", title.c_str(),
              rows.c_str());
  for (const std::string& name : names) std::printf("- legacy90pxmi%s()\n", name.c_str());
}

void print() {
  std::vector<std::string> order;
  std::map<std::string, std::vector<std::string>> names;  // by rows
  for (const Conversion& c : conversions()) {
    const std::string rows = rowsOf(c);
    if (names[rows].empty()) order.push_back(rows);
    names[rows].push_back(std::string(c.name));
  }
  for (const std::string& rows : order)
    if (rows != exactly) printGroup(heading(names[rows]), rows, names[rows]);
  printGroup("All others", exactly, names[exactly]);
}

}  // namespace

int main() {
  try {
    print();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "room_table: %s\n", error.what());
    return 1;
  }
}
