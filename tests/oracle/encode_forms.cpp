// SPDX-License-Identifier: MIT

#include "encode_forms.h"

#include "arithmetic.h"
#include "encode.h"

namespace oracle {
namespace {

using Wide = std::int64_t;

// Three fields of which the outer ones have five bits.
struct Fields {
  int low;
  int middle;
  int high;
};

Fields fields565(std::uint16_t word) {
  return {word % 32, word / 32 % 64, word / 2048};
}

// The eight bits of a sum that start at a bit. The sum wraps in 32 bits, and no bit above these
// eight survives, so the sign of the sum does not show.
int eightBitsAt(Wide sum, int bit) {
  return static_cast<int>(floorShift(wrap32(sum), bit) & 255);
}

// A bias and the first of the eight bits to keep. The bias is negative, and acts on those bits as
// 128 steps and an eighth.
struct Scale {
  Wide bias;
  int bit;
};

constexpr Scale kSingle{-8380416, 16};
constexpr Scale kPair{-16760832, 17};
constexpr Scale kFour{-33521664, 18};

int cbAt(Wide r, Wide g, Wide b, const Scale& scale) {
  return eightBitsAt(28770 * b - 19071 * g - 9699 * r + scale.bias, scale.bit);
}

int crAt(Wide r, Wide g, Wide b, const Scale& scale) {
  return eightBitsAt(28770 * r - 4653 * b - 24117 * g + scale.bias, scale.bit);
}

// How far a colour stands from luma, times a factor and divided by the size of the group.
Wide scaledDistance(int sum, Wide weightSum, int groupSize, Wide factor) {
  const Wide rounding = groupSize == 4 ? 131071 : 65535;
  const Wide distance = floorShift(Wide{sum} * 65536 - weightSum + rounding, 16);
  return floorShift(distance * factor, groupSize == 4 ? 18 : 17);
}

}  // namespace

Rgb unpackBgr555(std::uint16_t word) {
  return {word / 1024 % 32 * 8, word / 32 % 32 * 8, word % 32 * 8};
}

Rgb unpackBgr565(std::uint16_t word) {
  const Fields f = fields565(word);
  return {f.high * 8, f.middle * 4, f.low * 8};
}

Rgb unpackRgb565(std::uint16_t word) {
  const Fields f = fields565(word);
  return {f.low * 8, f.middle * 4, f.high * 8};
}

int encodeLuma(Rgb c) {
  return static_cast<int>(
      floorShift(Wide{6423} * c.b + Wide{33030} * c.g + Wide{16843} * c.r + 1081344, 16));
}

int encodeCb(int sumR, int sumG, int sumB, int groupSize) {
  return cbAt(sumR, sumG, sumB, groupSize == 4 ? kFour : kPair);
}

int encodeCr(int sumR, int sumG, int sumB, int groupSize) {
  return crAt(sumR, sumG, sumB, groupSize == 4 ? kFour : kPair);
}

int encodeCbSingle(Rgb c) {
  return cbAt(c.r, c.g, c.b, kSingle);
}

std::int64_t encodeYuvWeight(Rgb c) {
  return Wide{19595} * c.r + Wide{38470} * c.g + Wide{7471} * c.b;
}

int encodeYuvLuma(std::int64_t weight, int rounding) {
  return static_cast<int>(floorShift(weight + rounding, 16));
}

std::int64_t biasedU(int sumB, std::int64_t weightSum, int groupSize) {
  return scaledDistance(sumB, weightSum, groupSize, 32244) + 128;
}

std::int64_t biasedV(int sumR, std::int64_t weightSum, int groupSize) {
  return scaledDistance(sumR, weightSum, groupSize, 57475) + 128;
}

// U keeps its low eight bits. It is not clamped.
int encodeU(int sumB, std::int64_t weightSum, int groupSize) {
  return static_cast<int>(biasedU(sumB, weightSum, groupSize) & 255);
}

// V is clamped.
int encodeV(int sumR, std::int64_t weightSum, int groupSize) {
  return saturate(biasedV(sumR, weightSum, groupSize));
}

}  // namespace oracle
