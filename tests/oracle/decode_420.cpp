// SPDX-License-Identifier: MIT

#include <algorithm>

#include "decode_job.h"
#include "rows.h"

namespace oracle {
namespace {

// The rows that one chroma row serves: two, or one at the bottom of an odd height.
struct Rows {
  int first;
  int count;
  const std::uint8_t* luma;  // the first of them
  const std::uint8_t* cb;
  const std::uint8_t* cr;
  std::uint8_t* target;  // the first of them
};

// The distance of the first row wraps in every plane. The second lies one pitch on, in full width.
Rows rowsAt(const DecodeCall& call, int first) {
  return {first,
          std::min(2, call.height - first),
          wrappedRowAt(call.src[0], call.srcStep[0], first),
          wrappedRowAt(call.src[1], call.srcStep[1], first / 2),
          wrappedRowAt(call.src[2], call.srcStep[2], first / 2),
          wrappedPixelRowAt(call.dst, call.dstStep, first)};
}

// The plain conversions of YUV round where whole blocks lie, and do not in an odd last row or
// column.
Rgb colourAt(const DecodeJob& job, const Samples& s, int row, int column) {
  if (job.name.source == DecodeSource::YCbCr420) return decodeStaged(s.y, s.cb, s.cr);
  if (job.name.dither) return decodeYuvStaged(s.y, s.cb, s.cr);
  const bool whole = row / 2 < job.call.height / 2 && column / 2 < job.call.width / 2;
  return whole ? decodeYuvRounded(s.y, s.cb, s.cr) : decodeYuvPlain(s.y, s.cb, s.cr);
}

// Decodes the pixels that one chroma sample serves, the upper row before the lower.
void decodeBlock(const DecodeJob& job, const Rows& rows, int first) {
  const int end = std::min(first + 2, job.call.width);
  for (int k = 0; k < rows.count; ++k) {
    const std::uint8_t* luma = rowAt(rows.luma, job.call.srcStep[0], k);
    std::uint8_t* target = rowAt(rows.target, evenStep(job.call.dstStep), k);
    for (int column = first; column < end; ++column) {
      const Samples s{luma[column], rows.cb[column / 2], rows.cr[column / 2]};
      const Rgb c = colourAt(job, s, rows.first + k, column);
      storeWord(target, column, packed(job.name, c, rows.first + k, column));
    }
  }
}

// The plain conversions of YUV leave a region one pixel wide or high as it is.
bool writesNothing(const DecodeJob& job) {
  const bool plainYuv = job.name.source == DecodeSource::YUV420 && !job.name.dither;
  return plainYuv && (job.call.width == 1 || job.call.height == 1);
}

}  // namespace

void decode420(const DecodeJob& job) {
  if (writesNothing(job)) return;
  for (int row = 0; row < job.call.height; row += 2) {
    const Rows rows = rowsAt(job.call, row);
    for (int column = 0; column < job.call.width; column += 2) decodeBlock(job, rows, column);
  }
}

}  // namespace oracle
