// SPDX-License-Identifier: MIT

#include "vector_chains.h"

#include "oracle.h"

namespace oracle {
namespace {

struct Factors {
  Lane red, greenU, greenV, blue;
};

constexpr Factors kYCbCrFactors = {13074, 3211, 6660, 16523};
constexpr Factors kYuvFactors = {9338, 3227, 4759, 16646};
constexpr Lane kLumaFactor = 9535;
constexpr Lane kHalfLevel = 8;

// A sample without its offset, times 128.
Lane scaled(int sample, int offset) {
  return wrapLane(wrapLane(sample - offset) * 128);
}

// The chroma terms. Luma and the sums are left open.
ChainLanes chromaLanes(int first, int second, const Factors& f) {
  ChainLanes c{};
  c.u = scaled(first, 128);
  c.v = scaled(second, 128);
  c.red = laneMulHi(c.v, f.red);
  c.greenU = laneMulHi(c.u, f.greenU);
  c.greenV = laneMulHi(c.v, f.greenV);
  c.blue = laneMulHi(c.u, f.blue);
  return c;
}

// The pack to bytes is what holds a component to 0..255.
Rgb packedToBytes(const ChainLanes& c) {
  return {saturate(floorShift(c.sumRed, 4)), saturate(floorShift(c.sumGreen, 4)),
          saturate(floorShift(c.sumBlue, 4))};
}

}  // namespace

ChainLanes narrowLanes(int y, int cb, int cr) {
  ChainLanes c = chromaLanes(cb, cr, kYCbCrFactors);
  c.a = scaled(y, 16);
  c.luma = laneMulHi(c.a, kLumaFactor);
  c.sumRed = saturateLane(c.luma + c.red);
  c.sumGreen = wrapLane(wrapLane(c.luma - c.greenV) - c.greenU);
  c.sumBlue = wrapLane(c.luma + c.blue);
  return c;
}

ChainLanes roundedNarrowLanes(int y, int cb, int cr) {
  ChainLanes c = chromaLanes(cb, cr, kYCbCrFactors);
  c.a = scaled(y, 16);
  c.luma = saturateLane(laneMulHi(c.a, kLumaFactor) + kHalfLevel);
  c.sumRed = saturateLane(c.luma + c.red);
  c.sumGreen = saturateLane(c.luma - saturateLane(c.greenU + c.greenV));
  c.sumBlue = saturateLane(c.luma + c.blue);
  return c;
}

ChainLanes stagedYuvLanes(int y, int u, int v) {
  ChainLanes c = chromaLanes(u, v, kYuvFactors);
  c.a = y;
  c.luma = wrapLane(c.a * 16);
  c.sumRed = wrapLane(c.luma + c.red);
  c.sumGreen = wrapLane(wrapLane(c.luma - c.greenU) - c.greenV);
  c.sumBlue = wrapLane(c.luma + c.blue);
  return c;
}

Rgb narrowChain(int y, int cb, int cr) {
  return packedToBytes(narrowLanes(y, cb, cr));
}
Rgb roundedNarrowChain(int y, int cb, int cr) {
  return packedToBytes(roundedNarrowLanes(y, cb, cr));
}
Rgb stagedYuvChain(int y, int u, int v) {
  return packedToBytes(stagedYuvLanes(y, u, v));
}

// The factors are one or two below those of the wide form, and all components are rounded.
Rgb decodeWideLanesTail(int y, int cb, int cr) {
  const std::int64_t luma = (std::int64_t{y} - 16) * 76282 + 32768;
  const std::int64_t u = std::int64_t{cb} - 128;
  const std::int64_t v = std::int64_t{cr} - 128;
  return {saturate(floorShift(luma + v * 104593, 16)),
          saturate(floorShift(luma - u * 25689 - v * 53279, 16)),
          saturate(floorShift(luma + u * 132184, 16))};
}

}  // namespace oracle
