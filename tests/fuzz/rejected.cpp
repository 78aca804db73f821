// SPDX-License-Identifier: MIT
#include "tests/fuzz/rejected.h"

#include <algorithm>
#include <cstring>

#include "tests/fuzz/guard.h"
#include "tests/fuzz/run.h"
#include "tests/oracle/oracle.h"

namespace {

constexpr int ordinaryPitch = 64;

int rejectedPitch(const Case& c, const PlaneWish& wish) {
  return c.badPitches ? pitchFor(wish.pitch, ordinaryPitch, true) : ordinaryPitch;
}

// Pointers to memory that is not to be touched.
CallArguments argumentsOf(const Case& c, std::uint8_t* memory) {
  CallArguments a = {};
  a.size = c.size;
  std::memcpy(a.twist, c.twist, sizeof a.twist);
  const bool srcPlanes = hasPlanes(*c.conversion, true);
  const bool dstPlanes = hasPlanes(*c.conversion, false);
  for (int i = 0; i < 3; ++i) {
    const bool nullSource = c.isNull(srcPlanes ? nullSrcPlane + i : nullSrc);
    const bool nullDestination = c.isNull(dstPlanes ? nullDstPlane + i : nullDst);
    a.src[i] = nullSource ? nullptr : memory + 64 * i + c.src[i].offset;
    a.dst[i] = nullDestination ? nullptr : memory + 256 + 64 * i + c.dst[i].offset;
    a.srcStep[i] = rejectedPitch(c, c.src[i]);
    a.dstStep[i] = rejectedPitch(c, c.dst[i]);
  }
  a.nullSrcPlanes = srcPlanes && c.isNull(nullSrc);
  a.nullDstPlanes = dstPlanes && c.isNull(nullDst);
  a.nullTwist = c.isNull(nullTwist);
  return a;
}

}  // namespace

int rejectionOf(const Case& c) {
  using oracle::Argument;
  oracle::CallFacts facts;
  const auto null = [&](Argument argument) { facts.nulls.push_back(argument); };
  if (c.isNull(nullSrc)) null(Argument::Src);
  if (c.isNull(nullDst)) null(Argument::Dst), null(Argument::SrcDst);
  if (c.isNull(nullTwist)) null(Argument::Twist);
  if (c.nulls >> nullSrcPlane & 7) null(Argument::SrcPlanes);
  if (c.nulls >> nullDstPlane & 7) null(Argument::DstPlanes), null(Argument::SrcDstPlanes);
  facts.width = c.size.width;
  facts.height = c.size.height;
  facts.srcStep = rejectedPitch(c, c.src[0]);
  facts.dstStep = facts.srcDstStep = rejectedPitch(c, c.dst[0]);
  return oracle::rejectionOf(c.conversion->name, facts);
}

void expectRejection(const Case& c, int status) {
  static constexpr std::size_t size = 512;
  alignas(64) static std::uint8_t memory[size];
  const CallArguments a = argumentsOf(c, memory);
  forEachVariant(c, [&](int variant) {
    std::memset(memory, 0x5A, size);
    guard::forbid(memory, size);
    const pxmStatus got = callLibrary(c, variant, a);
    guard::allow(memory, size);
    requireStatus(c, variant, a, got, status);
    if (std::any_of(memory, memory + size, [](std::uint8_t byte) { return byte != 0x5A; }))
      fail(c, variant, a, "a call that is rejected writes");
  });
}
