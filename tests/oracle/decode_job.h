// SPDX-License-Identifier: MIT
//
// What the decoders of the chroma formats share.

#ifndef TESTS_ORACLE_DECODE_JOB_H_
#define TESTS_ORACLE_DECODE_JOB_H_

#include <cstdint>

#include "decode.h"
#include "vector_decode.h"

namespace oracle {

// A decoding call with its name taken apart.
struct DecodeJob {
  const DecodeName& name;
  Variant variant;
  const DecodeCall& call;
};

// What one pixel decodes from. The chroma samples are Cb and Cr, or U and V.
struct Samples {
  int y;
  int cb;
  int cr;
};

inline std::uint16_t packed(const DecodeName& name, Rgb c, int row, int column) {
  if (name.dither) return packDither(c, name.depth, name.bgr, row, column);
  return packPlain(c, name.depth, name.bgr);
}

// A pixel of a kernel that treats all its rows alike.
inline std::uint16_t pixelAt(const DecodeJob& job, const Samples& s, int row, int column) {
  const bool inVectorColumns = column < vectorColumns(job.name, job.variant, job.call.width);
  return decodePixel(job.name, job.variant, inVectorColumns, s.y, s.cb, s.cr, row, column);
}

void decode411(const DecodeJob& job);
void decode420(const DecodeJob& job);  // YCbCr and YUV
void decode422Planar(const DecodeJob& job);
void decode422Interleaved(const DecodeJob& job);
void decode444(const DecodeJob& job);

}  // namespace oracle

#endif  // TESTS_ORACLE_DECODE_JOB_H_
