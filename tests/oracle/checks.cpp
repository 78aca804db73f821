// SPDX-License-Identifier: MIT

#include <algorithm>

#include "families.h"
#include "oracle.h"

namespace oracle {
namespace {

constexpr Check kSrc{Argument::Src, 0, kStatusNullPointer};
constexpr Check kDst{Argument::Dst, 0, kStatusNullPointer};
constexpr Check kSrcDst{Argument::SrcDst, 0, kStatusNullPointer};
constexpr Check kTwist{Argument::Twist, 0, kStatusNullPointer};
constexpr Check kSrcPlanes{Argument::SrcPlanes, 0, kStatusNullPointer};
constexpr Check kDstPlanes{Argument::DstPlanes, 0, kStatusNullPointer};
constexpr Check kSrcDstPlanes{Argument::SrcDstPlanes, 0, kStatusNullPointer};
constexpr Check kSrcStep{Argument::SrcStep, 1, kStatusBadStep};
constexpr Check kDstStep{Argument::DstStep, 1, kStatusBadStep};
constexpr Check kSrcDstStep{Argument::SrcDstStep, 1, kStatusBadStep};

constexpr Check leastWidth(int least) {
  return {Argument::Width, least, kStatusBadSize};
}
constexpr Check leastHeight(int least) {
  return {Argument::Height, least, kStatusBadSize};
}

std::vector<Check> checksOfFamily(Family family) {
  switch (family) {
    case Family::DecodePlanar:
      return {kSrc, kDst, leastWidth(1), leastHeight(1), kSrcPlanes};
    case Family::DecodeInterleaved:
    case Family::Depth:
      return {kSrc, kDst, leastWidth(1), leastHeight(1)};
    case Family::Decode411:
      return {kSrc, kDst, kSrcPlanes, leastWidth(4), leastHeight(1)};
    case Family::Encode411:
      return {kSrc, kDst, kDstPlanes, leastWidth(4), leastHeight(1)};
    case Family::Encode420:
    case Family::EncodeYuv420:
      return {kSrc, kDst, kDstPlanes, leastWidth(2), leastHeight(2)};
    case Family::Encode422Planar:
      return {kSrc, kDst, kDstPlanes, leastWidth(2), leastHeight(1)};
    case Family::Encode422Interleaved:
      return {kSrc, kDst, leastWidth(2), leastHeight(1)};
    case Family::RgbToYuv420:
    case Family::RgbToYuv422:
      return {kSrc, kDst, leastWidth(1), leastHeight(1), kDstPlanes};
    case Family::TwistPacked:
      return {kSrc, kDst, kTwist, leastWidth(1), leastHeight(1), kSrcStep, kDstStep};
    case Family::TwistPackedInPlace:
      return {kSrcDst, kTwist, leastWidth(1), leastHeight(1), kSrcDstStep};
    case Family::TwistPlanar:
      return {kSrc,          kDst,           kTwist,   kSrcPlanes, kDstPlanes,
              leastWidth(1), leastHeight(1), kSrcStep, kDstStep};
    case Family::TwistPlanarInPlace:
      return {kSrcDst, kTwist, kSrcDstPlanes, leastWidth(1), leastHeight(1), kSrcDstStep};
  }
  return {};
}

// The number that a check on sizes and pitches compares.
int numberOf(Argument argument, const CallFacts& facts) {
  switch (argument) {
    case Argument::Width:
      return facts.width;
    case Argument::Height:
      return facts.height;
    case Argument::SrcStep:
      return facts.srcStep;
    case Argument::DstStep:
      return facts.dstStep;
    default:
      return facts.srcDstStep;
  }
}

bool fails(const Check& check, const CallFacts& facts) {
  if (check.status == kStatusNullPointer) {
    return std::find(facts.nulls.begin(), facts.nulls.end(), check.argument) != facts.nulls.end();
  }
  return numberOf(check.argument, facts) < check.minimum;
}

}  // namespace

std::vector<Check> checksOf(std::string_view name) {
  return checksOfFamily(familyOf(name));
}

int rejectionOf(std::string_view name, const CallFacts& facts) {
  for (const Check& check : checksOf(name)) {
    if (fails(check, facts)) return check.status;
  }
  return kStatusOk;
}

int statusAfter(std::string_view name, int width, int height) {
  bool uneven = false;
  switch (familyOf(name)) {
    case Family::Decode411:
    case Family::Encode411:
      uneven = width % 4 != 0;
      break;
    case Family::EncodeYuv420:
    case Family::RgbToYuv420:
      uneven = width % 2 != 0 || height % 2 != 0;
      break;
    case Family::RgbToYuv422:
      uneven = width % 2 != 0;
      break;
    default:
      break;
  }
  return uneven ? kStatusSizeWarning : kStatusOk;
}

}  // namespace oracle
