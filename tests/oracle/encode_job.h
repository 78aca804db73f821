// SPDX-License-Identifier: MIT
//
// What the encoders of the chroma formats share.

#ifndef TESTS_ORACLE_ENCODE_JOB_H_
#define TESTS_ORACLE_ENCODE_JOB_H_

#include <cstdint>

#include "encode.h"
#include "rows.h"

namespace oracle {

using Unpack = Rgb (*)(std::uint16_t);

// An encoding call with what its name says. Its destination planes are in the order Y, Cb, Cr or
// Y, U, V, whatever the order of the caller.
struct EncodeJob {
  const EncodeCall& call;
  Unpack unpack;
  int vectorColumns;  // encoded in SIMD; the others are not
};

// The forms by which a group of pixels is encoded to YCbCr. A sum is over the pixels of the group.
struct YCbCrForms {
  int (*luma)(Rgb c);
  int (*cb)(int sumR, int sumG, int sumB, int groupSize);
  int (*cr)(int sumR, int sumG, int sumB, int groupSize);
};

// The forms by which a group of pixels is encoded to YUV. A weight is what stands for a pixel's
// luma in the chroma of its group.
struct YuvForms {
  std::int64_t (*weight)(Rgb c);
  int (*luma)(std::int64_t weight);
  int (*u)(int sumB, std::int64_t weightSum, int groupSize);
  int (*v)(int sumR, std::int64_t weightSum, int groupSize);
};

inline Rgb pixelAt(const EncodeJob& job, const std::uint8_t* row, int column) {
  return job.unpack(loadWord(row, column));
}

// The two rows of a block, or two rows of the same plane.
template <typename Byte>
struct RowPair {
  Byte* upper;
  Byte* lower;
};

// A pair of source rows. Pairs lie exactly twice the pitch apart, in full width; the lower row lies
// at a distance of its own.
inline RowPair<const std::uint8_t> sourcePair(const EncodeCall& call, int pair,
                                              std::int64_t lowerStep) {
  const std::uint8_t* upper = rowAt(call.src, std::int64_t{call.srcStep} * 2, pair);
  return {upper, upper + lowerStep};
}

// A pair of luma rows. The distance of the upper one wraps, and the lower one lies a pitch on.
inline RowPair<std::uint8_t> lumaPair(const EncodeCall& call, int pair) {
  std::uint8_t* upper = wrappedRowAt(call.dst[0], call.dstStep[0], std::int64_t{pair} * 2);
  return {upper, upper + call.dstStep[0]};
}

inline void storeByte(std::uint8_t* row, int column, int value) {
  row[column] = static_cast<std::uint8_t>(value);
}

// With lumaBeyond, the columns after the last group get their luma.
void encode411(const EncodeJob& job, bool lumaBeyond);
void encode420(const EncodeJob& job);
void encode422Planar(const EncodeJob& job);
void encode422Interleaved(const EncodeJob& job);

// The BGR encoder and the two RGB encoders.
void encodeBgrToYuv420(const EncodeJob& job);
void encodeRgbToYuv420(const EncodeJob& job);
void encodeRgbToYuv422(const EncodeJob& job);

}  // namespace oracle

#endif  // TESTS_ORACLE_ENCODE_JOB_H_
