// SPDX-License-Identifier: MIT
//
// Where the rows of an image lie, and its 16-bit pixels as bytes in memory. A conversion either
// counts a row's distance in full width or lets the product of row and pitch wrap in 32 bits.

#ifndef TESTS_ORACLE_ROWS_H_
#define TESTS_ORACLE_ROWS_H_

#include <cstddef>
#include <cstdint>

#include "arithmetic.h"

namespace oracle {

// The address of a row, counted in full width. The pitch may have any sign.
template <typename Byte>
Byte* rowAt(Byte* first, std::int64_t step, std::int64_t row) {
  return first + static_cast<std::ptrdiff_t>(step * row);
}

// The address of a row whose distance in bytes wraps in 32 bits and is widened afterwards.
template <typename Byte>
Byte* wrappedRowAt(Byte* first, std::int64_t step, std::int64_t row) {
  return first + static_cast<std::ptrdiff_t>(wrap32(step * row));
}

// The address of a row of 16-bit pixels whose distance in pixels wraps in 32 bits. It is widened
// before it is doubled. The pitch is in bytes.
inline std::uint8_t* wrappedPixelRowAt(std::uint8_t* first, int step, std::int64_t row) {
  return first + static_cast<std::ptrdiff_t>(wrap32(floorShift(step, 1) * row) * 2);
}

// The pitch in bytes of an image that is stepped in whole 16-bit pixels: an odd pitch loses its low
// bit, and a negative odd one grows.
constexpr std::int64_t evenStep(int step) {
  return floorShift(step, 1) * 2;
}

// A row's pixel as a little-endian word. The row may stand at any address.
inline std::uint16_t loadWord(const std::uint8_t* row, int column) {
  const std::uint8_t* pixel = row + std::ptrdiff_t{column} * 2;
  return static_cast<std::uint16_t>(pixel[0] + pixel[1] * 256);
}

inline void storeWord(std::uint8_t* row, int column, std::uint16_t word) {
  std::uint8_t* pixel = row + std::ptrdiff_t{column} * 2;
  pixel[0] = static_cast<std::uint8_t>(word % 256);
  pixel[1] = static_cast<std::uint8_t>(word / 256);
}

}  // namespace oracle

#endif  // TESTS_ORACLE_ROWS_H_
