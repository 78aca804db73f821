// SPDX-License-Identifier: MIT
// Prints the matrix of the ordered dither, as it shows in what the library writes: tables in
// Markdown. Grey YUV decodes to its luma exactly, so that every component of every value can be
// seen at every place.
#include <array>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "catalogue/variants.h"

namespace {

constexpr int values = 256, places = 16;
using Places = std::array<int, places>;  // row * 4 + column

// The words of all greys at one of sixteen places: every fourth column, in one of four rows.
std::vector<std::uint16_t> greys(const char* name, int place) {
  constexpr int columns = 4 * values, rows = 4;
  std::vector<std::uint8_t> luma(columns), chroma(columns, 128);
  for (std::size_t x = 0; x < columns; ++x) luma[x] = static_cast<std::uint8_t>(x / 4);
  std::vector<std::uint16_t> image(columns * rows), words;
  CallArguments a = {};
  a.src[0] = luma.data(), a.src[1] = a.src[2] = chroma.data();  // every row is the same row
  a.dst[0] = reinterpret_cast<std::uint8_t*>(image.data());
  a.dstStep[0] = 2 * columns;
  a.size = {columns, rows};
  if (conversionNamed(name).call(a) != pxmStatusOk) throw std::logic_error("a conversion fails");
  for (int v = 0; v < values; ++v)
    words.push_back(image[static_cast<std::size_t>(place / 4 * columns + 4 * v + place % 4)]);
  return words;
}

// The documented rule: the level below, raised where what is left exceeds the threshold.
int levelOf(int value, int bits, int step, int threshold) {
  const int level = value * ((1 << bits) - 1) >> 8;
  return level + (value * 256 - level * step > threshold);
}

// Thresholds in 1/256 of a component's unit, by place in the order in which places are raised.
int thresholdOf444(int index) {
  return 289 * index;
}
int thresholdOf555(int index) {
  return 839 * index / 6;
}

// How many of the fifteen other places are raised more often, by what the library writes.
Places indicesOf(const char* name, int mask) {
  Places raised = {}, indices = {};
  for (int p = 0; p < places; ++p)
    for (const std::uint16_t word : greys(name, p))
      raised[static_cast<std::size_t>(p)] += word & mask;
  for (std::size_t p = 0; p < places; ++p)
    for (const int other : raised) indices[p] += other > raised[p];
  return indices;
}

void hold(const char* name, int place, int lowBits, int greenBits, int threshold) {
  const int lowStep = lowBits == 4 ? 4352 : 2105, greenStep = greenBits == 6 ? 1036 : lowStep;
  const int greenThreshold = greenBits == 6 ? threshold >> 1 : threshold;
  const std::vector<std::uint16_t> words = greys(name, place);
  for (int v = 0; v < values; ++v) {
    const int low = levelOf(v, lowBits, lowStep, threshold);
    const int green = levelOf(v, greenBits, greenStep, greenThreshold);
    if (words[static_cast<std::size_t>(v)] !=
        (low | green << lowBits | low << (lowBits + greenBits)))
      throw std::logic_error(std::string(name) + " does not follow the documented rule");
  }
}

void printMatrix(const char* title, const Places& indices, int (*number)(int index)) {
  std::printf("\n%s:\n\n| | column 0 | 1 | 2 | 3 |\n|---|---|---|---|---|\n", title);
  for (std::size_t p = 0; p < places; ++p) {
    if (p % 4 == 0) std::printf(p == 0 ? "| row 0 |" : "| %zu |", p / 4);
    std::printf(" %d |%s", number(indices[p]), p % 4 == 3 ? "\n" : "");
  }
}

void print() {
  const Places indices = indicesOf("YUV420ToBGR444Dither_8u16u_P3C3R", 15);
  for (int p = 0; p < places; ++p) {
    const int index = indices[static_cast<std::size_t>(p)];
    hold("YUV420ToBGR444Dither_8u16u_P3C3R", p, 4, 4, thresholdOf444(index));
    hold("YUV420ToBGR555Dither_8u16u_P3C3R", p, 5, 5, thresholdOf555(index));
    hold("YUV420ToBGR565Dither_8u16u_P3C3R", p, 5, 6, thresholdOf555(index));
  }
  printMatrix("The order in which the places of an area of one colour take the next level", indices,
              [](int index) { return index; });
  printMatrix("Thresholds of 444, in 1/256 of a component's unit", indices, thresholdOf444);
  printMatrix("Thresholds of 555 and 565; green of 565 takes half of them, rounded down", indices,
              thresholdOf555);
}

}  // namespace

int main() {
  try {
    print();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "dither_table: %s\n", error.what());
    return 1;
  }
}
