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

bool isPlainYuv(const DecodeName& name) {
  return name.source == DecodeSource::YUV420 && !name.dither;
}

// Columns that are decoded as one, in one way.
struct Block {
  int first;
  int size;
  bool inVectorColumns;
};

// Decodes a block, the upper row before the lower.
void decodeBlock(const DecodeJob& job, const Rows& rows, const Block& block) {
  for (int k = 0; k < rows.count; ++k) {
    const std::uint8_t* luma = rowAt(rows.luma, job.call.srcStep[0], k);
    std::uint8_t* target = rowAt(rows.target, evenStep(job.call.dstStep), k);
    for (int column = block.first; column < block.first + block.size; ++column) {
      storeWord(target, column,
                decodePixel(job.name, job.variant, block.inVectorColumns, luma[column],
                            rows.cb[column / 2], rows.cr[column / 2], rows.first + k, column));
    }
  }
}

// The columns of a row pair that its blocks cover. The plain conversions of YUV have whole blocks
// in the reference as well.
int blockColumns(const DecodeJob& job) {
  if (job.variant == Variant::mx && isPlainYuv(job.name)) return job.call.width / 2 * 2;
  return vectorColumns(job.name, job.variant, job.call.width);
}

// The largest block that the remaining columns fill. Lanes of 256 bits have blocks of 16 and 8, the
// others of 8, 4 and 2.
int blockSize(const DecodeJob& job, int remaining) {
  if (job.variant == Variant::mx) return 2;
  if (hasWideLanes(job.name, job.variant)) return remaining >= 16 ? 16 : 8;
  return remaining >= 8 ? 8 : remaining >= 4 ? 4 : 2;
}

// The plain vector kernels of YUV take a block of four columns without counting it, and run their
// last block of two once too often after it.
bool runsOnceTooOften(const DecodeJob& job) {
  return job.variant != Variant::mx && isPlainYuv(job.name) && job.call.width % 8 / 2 == 2;
}

// The dithering vector kernels write two pixels more in the odd last row of an odd width.
bool writesPastTheCorner(const DecodeJob& job) {
  return job.variant != Variant::mx && job.name.dither && job.call.width % 2 == 1;
}

// Scalar code takes two columns at a time.
void decodeScalar(const DecodeJob& job, const Rows& rows, int first, int end) {
  for (int column = first; column < end; column += 2) {
    decodeBlock(job, rows, {column, std::min(2, end - column), false});
  }
}

void decodePair(const DecodeJob& job, const Rows& rows) {
  const int end = blockColumns(job);
  for (int column = 0; column < end;) {
    const int size = blockSize(job, end - column);
    decodeBlock(job, rows, {column, size, true});
    column += size;
  }
  if (runsOnceTooOften(job)) decodeBlock(job, rows, {end, 2, true});
  decodeScalar(job, rows, end, job.call.width);
}

// Scalar code decodes all of an odd last row.
void decodeOddRow(const DecodeJob& job, const Rows& rows) {
  const int end = job.call.width + (writesPastTheCorner(job) ? 2 : 0);
  decodeScalar(job, rows, 0, end);
}

// The plain conversions of YUV leave a region one pixel wide or high as it is.
bool writesNothing(const DecodeJob& job) {
  return isPlainYuv(job.name) && (job.call.width == 1 || job.call.height == 1);
}

}  // namespace

void decode420(const DecodeJob& job) {
  if (writesNothing(job)) return;
  for (int row = 0; row < job.call.height; row += 2) {
    const Rows rows = rowsAt(job.call, row);
    if (rows.count == 2) {
      decodePair(job, rows);
    } else {
      decodeOddRow(job, rows);
    }
  }
}

}  // namespace oracle
