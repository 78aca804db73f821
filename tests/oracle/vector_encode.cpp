// SPDX-License-Identifier: MIT

#include "vector_encode.h"

#include <stdexcept>

#include "families.h"
#include "lanes.h"

namespace oracle {
namespace {

// The product of a component at the top of its lane and a factor, without the low half.
Lane topProduct(int component, Lane factor) {
  return laneMulHiU(wrapLaneU(component * 256), factor);
}

// Three products and a rounding term, added one by one.
Lane lumaSum(Lane first, Lane second, Lane third, Lane rounding) {
  return saturateLaneU(saturateLaneU(saturateLaneU(first + second) + third) + rounding);
}

// The product of a sum of components and a factor, without the low half.
Lane sumProduct(int sum, Lane factor) {
  return laneMulHiU(wrapLaneU(sum * 32), factor);
}

// One colour against the two others, as a byte: 128 steps and an eighth, a step being 64 or 128.
int chroma(Lane plus, Lane firstMinus, Lane secondMinus, int groupSize) {
  const Lane distance = wrapLane(plus - saturateLaneU(firstMinus + secondMinus));
  const bool four = groupSize == 4;
  return packLane(shiftLaneU(saturateLane(distance + (four ? 16400 : 8200)), four ? 7 : 6));
}

// The sum of a colour stands in fields of five bits, the levels in eight: 256 of the one are 32 of
// the other.
int bgrChroma(int sum, Lane levelSum, Lane factor) {
  const Lane colour = wrapLane(floorShift(sum, 3) * 256);
  const Lane distance = wrapLane(colour - wrapLane(levelSum * 32));
  return packLane(floorShift(saturateLane(laneMulHi(distance, factor) + 8224), 6));
}

// The lanes hold four times a component. Both terms of the difference are twice a mean.
int rgbChroma(int sum, Lane weightSum, int groupSize, Lane factor) {
  const bool four = groupSize == 4;
  const Lane colour = shiftLaneU(saturateLane(sum * 4), four ? 3 : 2);
  const Lane luma = shiftLaneU(saturateLane(weightSum), four ? 2 : 1);
  return packLane(saturateLane(laneMulHi(wrapLane(colour - luma), factor) + 128));
}

// The blocks of two sizes of the encoders of YCbCr cover less than they could: the walk of the
// large ones stops where twice their size no longer fits, and one small one follows.
int columnsOf(Family family, int width) {
  switch (family) {
    case Family::Encode422Planar:
    case Family::Encode422Interleaved:
      return width / 32 * 32 + width % 16 / 8 * 8;
    case Family::Encode420:
      return width / 16 * 16 + width % 8 / 4 * 4;
    case Family::Encode411:
    case Family::EncodeYuv420:
      return width / 4 * 4;
    case Family::RgbToYuv420:
    case Family::RgbToYuv422:
      return width / 16 * 16;
    default:
      throw std::invalid_argument("not an encoding conversion");
  }
}

}  // namespace

int laneLuma(Rgb c) {
  const Lane t =
      lumaSum(topProduct(c.r, 8422), topProduct(c.g, 16515), topProduct(c.b, 3212), 2112);
  return packLane(shiftLaneU(t, 7));
}

int laneCb(int sumR, int sumG, int sumB, int groupSize) {
  return chroma(sumProduct(sumB, 28770), sumProduct(sumR, 9699), sumProduct(sumG, 19071),
                groupSize);
}

int laneCr(int sumR, int sumG, int sumB, int groupSize) {
  return chroma(sumProduct(sumR, 28770), sumProduct(sumG, 24117), sumProduct(sumB, 4653),
                groupSize);
}

std::int64_t laneBgrLevel(Rgb c) {
  const Lane t = lumaSum(topProduct(c.r, 9798), topProduct(c.g, 19235), topProduct(c.b, 3736), 64);
  return floorShift(wrapLane(t), 7);
}

int laneBgrLuma(std::int64_t level) {
  return packLane(level);
}

int laneBgrU(int sumB, std::int64_t levelSum) {
  return bgrChroma(sumB, levelSum, 16122);
}

int laneBgrV(int sumR, std::int64_t levelSum) {
  return bgrChroma(sumR, levelSum, 28737);
}

std::int64_t laneRgbWeight(Rgb c) {
  const Lane outer = saturateLane(laneMulHi(c.r * 4, 9798) + laneMulHi(c.b * 4, 3736));
  return saturateLane(outer + laneMulHi(c.g * 4, 19235));
}

int laneRgbLuma(std::int64_t weight) {
  return packLane(floorShift(saturateLane(weight + 1), 1));
}

int laneRgbU(int sumB, std::int64_t weightSum, int groupSize) {
  return rgbChroma(sumB, weightSum, groupSize, 16121);
}

int laneRgbV(int sumR, std::int64_t weightSum, int groupSize) {
  return rgbChroma(sumR, weightSum, groupSize, 28737);
}

int encoderVectorColumns(std::string_view name, Variant variant, int width) {
  const int columns = columnsOf(familyOf(name), width);
  return variant == Variant::mx ? 0 : columns;
}

}  // namespace oracle
