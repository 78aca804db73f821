// SPDX-License-Identifier: MIT

#include "lanes.h"
#include "oracle.h"

namespace oracle {
namespace {

// levels is the highest level, step the size of one, and shift brings a level times its step back
// to the level.
int laneDither(int value, int threshold, Lane levels, Lane step, int shift) {
  const Lane x = wrapLaneU(value * 256);
  const Lane level = floorShift(laneMulHiU(x, levels * 256), 8);
  const Lane residue = wrapLane(x - wrapLaneU(level * step));
  const Lane raised = residue > threshold ? level + 1 : level;
  return static_cast<int>(floorShift(wrapLaneU(raised * step), shift));
}

}  // namespace

int laneDither4(int value, int threshold) {
  return laneDither(value, threshold, 15, 4352, 12);
}

int laneDither5(int value, int threshold) {
  return laneDither(value, threshold, 31, 2105, 11);
}

int laneDither6(int value, int threshold) {
  return laneDither(value, static_cast<int>(floorShift(threshold, 1)), 63, 1036, 10);
}

}  // namespace oracle
