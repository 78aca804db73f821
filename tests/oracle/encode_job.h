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
  Variant variant;
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

void encode411(const EncodeJob& job);
void encode420(const EncodeJob& job);
void encode422Planar(const EncodeJob& job);
void encode422Interleaved(const EncodeJob& job);

// lowerStep is the distance from the upper to the lower row of a source pair.
void encodeYuv420(const EncodeJob& job, int rounding, std::int64_t lowerStep);
void encodeYuv422(const EncodeJob& job, int rounding);

}  // namespace oracle

#endif  // TESTS_ORACLE_ENCODE_JOB_H_
