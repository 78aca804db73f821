// SPDX-License-Identifier: MIT

#include <cstddef>

#include "decode_job.h"
#include "rows.h"

namespace oracle {
namespace {

Samples interleaved444(const DecodeCall& call, int row, int column) {
  const std::uint8_t* pixel = rowAt(call.src[0], call.srcStep[0], row) + std::ptrdiff_t{column} * 3;
  return {pixel[0], pixel[1], pixel[2]};
}

// The three planes share one pitch.
Samples planar444(const DecodeCall& call, int row, int column) {
  const auto sample = [&](int plane) -> int {
    return rowAt(call.src[plane], call.srcStep[0], row)[column];
  };
  return {sample(0), sample(1), sample(2)};
}

}  // namespace

void decode444(const DecodeJob& job) {
  const DecodeCall& call = job.call;
  for (int row = 0; row < call.height; ++row) {
    std::uint8_t* target = rowAt(call.dst, evenStep(call.dstStep), row);
    for (int column = 0; column < call.width; ++column) {
      const Samples s = job.name.layout == DecodeLayout::C3 ? interleaved444(call, row, column)
                                                            : planar444(call, row, column);
      storeWord(target, column, pixelAt(job, s, row, column));
    }
  }
}

}  // namespace oracle
