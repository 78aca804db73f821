// SPDX-License-Identifier: MIT
// What an input says: a conversion, its size, where its planes stand, their samples, and what is
// wrong with the arguments. A case is documented as valid, or the checks reject it.
#ifndef TESTS_FUZZ_CASE_H_
#define TESTS_FUZZ_CASE_H_

#include <cstddef>
#include <cstdint>

#include "catalogue/conversions.h"
#include "tests/fuzz/input.h"

// How the bytes of a plane's pitch are meant; see pitchFor.
struct PitchWish {
  int style, value;
};

struct PlaneWish {
  PitchWish pitch;
  int offset;  // of the first sample's address, from a multiple of 64
};

// What the samples are made of.
enum class Fill { Random, Extremes, Both, Constant, Ramp };

enum class Style { Ordinary, Tall, Wide, Faulty, ExtremeSize, Far };

struct Case {
  Style style;
  const Conversion* conversion;
  int firstVariant;  // the variants take turns from here
  pxmSize size;
  PlaneWish src[3], dst[3];
  unsigned nulls;   // a bit for each of src, dst and twist, and for each plane of both
  bool badPitches;  // the twist's may be rejected
  bool sameImage;   // twist: source and destination are one
  unsigned mxcsr;   // rounding mode and the treatment of denormals
  Fill fill;
  std::uint64_t seed;
  float twist[3][4];
  Input samples;  // what stands first in the sources

  bool isNull(int bit) const { return nulls >> bit & 1; }
};

// The bits of `nulls`.
inline constexpr int nullSrc = 0, nullDst = 1, nullTwist = 2, nullSrcPlane = 3, nullDstPlane = 6;

// The largest images that are converted: two SIMD iterations with every remainder in ordinary
// cases; wide ones are low, and tall ones narrow.
inline constexpr pxmSize mostOrdinary = {72, 7}, mostTall = {9, 40}, mostWide = {1021, 3},
                         mostFar = {8, 7};

Case decodeCase(const std::uint8_t* bytes, std::size_t size);

// The pitch of a plane with rows of so many bytes. What is extreme goes to planes of a single row.
int pitchFor(const PitchWish& wish, int rowBytes, bool singleRow);

#endif
