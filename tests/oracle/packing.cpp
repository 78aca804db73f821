// SPDX-License-Identifier: MIT

#include "arithmetic.h"
#include "oracle.h"

namespace oracle {
namespace {

constexpr int kThresholds444[4][4] = {{0, 2312, 578, 2890},
                                      {3468, 1156, 4046, 1734},
                                      {867, 3179, 289, 2601},
                                      {4335, 2023, 3757, 1445}};

// Serves 565 as well.
constexpr int kThresholds555[4][4] = {
    {0, 1118, 279, 1398}, {1678, 559, 1957, 839}, {419, 1538, 139, 1258}, {2097, 978, 1817, 699}};

// Takes the level at or below a component and raises it by one where what remains of the
// component exceeds the threshold. levels is the highest level, step the size of one.
std::int64_t raisedLevel(int value, int threshold, int levels, int step) {
  const std::int64_t level = floorShift(std::int64_t{value} * levels, 8);
  const std::int64_t residue = std::int64_t{value} * 256 - level * step;
  return threshold < residue ? level + 1 : level;
}

// Puts three fields, none wider than its place, into a word.
std::uint16_t assemble(int red, int green, int blue, int depth, bool bgr) {
  const int greenAt = depth == 444 ? 4 : 5;
  const int topAt = depth == 444 ? 8 : depth == 555 ? 10 : 11;
  const int low = bgr ? blue : red;
  const int top = bgr ? red : blue;
  return static_cast<std::uint16_t>(low + green * (1 << greenAt) + top * (1 << topAt));
}

}  // namespace

int ditherLevel4(int value, int threshold) {
  return static_cast<int>(raisedLevel(value, threshold, 15, 4352));
}

int ditherLevel5(int value, int threshold) {
  return static_cast<int>(floorShift(raisedLevel(value, threshold, 31, 2105) * 2105, 11));
}

int ditherLevel6(int value, int threshold) {
  const int half = static_cast<int>(floorShift(threshold, 1));
  return static_cast<int>(floorShift(raisedLevel(value, half, 63, 1036) * 1036, 10));
}

int threshold(int depth, int row, int column) {
  return depth == 444 ? kThresholds444[row & 3][column & 3] : kThresholds555[row & 3][column & 3];
}

std::uint16_t packPlain(Rgb c, int depth, bool bgr) {
  const int outerUnit = depth == 444 ? 16 : 8;
  const int greenUnit = depth == 444 ? 16 : depth == 555 ? 8 : 4;
  return assemble(c.r / outerUnit, c.g / greenUnit, c.b / outerUnit, depth, bgr);
}

std::uint16_t packDither(Rgb c, int depth, bool bgr, int row, int column) {
  const int t = threshold(depth, row, column);
  if (depth == 444) {
    return assemble(ditherLevel4(c.r, t), ditherLevel4(c.g, t), ditherLevel4(c.b, t), depth, bgr);
  }
  const int green = depth == 555 ? ditherLevel5(c.g, t) : ditherLevel6(c.g, t);
  return assemble(ditherLevel5(c.r, t), green, ditherLevel5(c.b, t), depth, bgr);
}

}  // namespace oracle
