// SPDX-License-Identifier: MIT

#include "encode_job.h"

namespace oracle {
namespace {

// What the chroma of a group comes from. Green takes part through the weight alone.
struct YuvSums {
  int r = 0;
  int b = 0;
  std::int64_t weight = 0;
  void add(Rgb c, std::int64_t pixelWeight) {
    r += c.r;
    b += c.b;
    weight += pixelWeight;
  }
};

// Encodes the luma of the two pixels from a column on, and adds them to the sums.
void encodeTwo(const EncodeJob& job, int rounding, const std::uint8_t* source, std::uint8_t* luma,
               int column, YuvSums& sums) {
  for (int k = 0; k < 2; ++k) {
    const Rgb c = pixelAt(job, source, column + k);
    const std::int64_t weight = encodeYuvWeight(c);
    storeByte(luma, column + k, encodeYuvLuma(weight, rounding));
    sums.add(c, weight);
  }
}

}  // namespace

// An odd last column or row is left alone, its luma as well.
void encodeYuv420(const EncodeJob& job, int rounding, std::int64_t lowerStep) {
  const EncodeCall& call = job.call;
  for (int pair = 0; pair < call.height / 2; ++pair) {
    const auto source = sourcePair(call, pair, lowerStep);
    const auto luma = lumaPair(call, pair);
    std::uint8_t* u = wrappedRowAt(call.dst[1], call.dstStep[1], pair);
    std::uint8_t* v = wrappedRowAt(call.dst[2], call.dstStep[2], pair);
    for (int i = 0; i < call.width / 2; ++i) {
      YuvSums sums;
      encodeTwo(job, rounding, source.upper, luma.upper, 2 * i, sums);
      encodeTwo(job, rounding, source.lower, luma.lower, 2 * i, sums);
      storeByte(u, i, encodeU(sums.b, sums.weight, 4));
      storeByte(v, i, encodeV(sums.r, sums.weight, 4));
    }
  }
}

// An odd last column is left alone, its luma as well.
void encodeYuv422(const EncodeJob& job, int rounding) {
  const EncodeCall& call = job.call;
  for (int row = 0; row < call.height; ++row) {
    const std::uint8_t* source = rowAt(call.src, call.srcStep, row);
    std::uint8_t* luma = wrappedRowAt(call.dst[0], call.dstStep[0], row);
    std::uint8_t* u = wrappedRowAt(call.dst[1], call.dstStep[1], row);
    std::uint8_t* v = wrappedRowAt(call.dst[2], call.dstStep[2], row);
    for (int i = 0; i < call.width / 2; ++i) {
      YuvSums sums;
      encodeTwo(job, rounding, source, luma, 2 * i, sums);
      storeByte(u, i, encodeU(sums.b, sums.weight, 2));
      storeByte(v, i, encodeV(sums.r, sums.weight, 2));
    }
  }
}

}  // namespace oracle
