// SPDX-License-Identifier: MIT

#include <algorithm>

#include "decode_job.h"
#include "rows.h"

namespace oracle {

// The destination pitch counts bytes and keeps its low bit. The columns after the last whole group
// of four take the chroma of that group.
void decode411(const DecodeJob& job) {
  const DecodeCall& call = job.call;
  const int lastGroup = call.width / 4 - 1;
  for (int row = 0; row < call.height; ++row) {
    const std::uint8_t* luma = rowAt(call.src[0], call.srcStep[0], row);
    const std::uint8_t* cb = rowAt(call.src[1], call.srcStep[1], row);
    const std::uint8_t* cr = rowAt(call.src[2], call.srcStep[2], row);
    std::uint8_t* target = rowAt(call.dst, call.dstStep, row);
    for (int column = 0; column < call.width; ++column) {
      const int group = std::min(column / 4, lastGroup);
      const Samples s{luma[column], cb[group], cr[group]};
      storeWord(target, column, pixelAt(job, s, row, column));
    }
  }
}

}  // namespace oracle
