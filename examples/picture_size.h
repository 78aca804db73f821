// SPDX-License-Identifier: MIT
// Sizes of pictures: what the machine holds, what a conversion takes, and padding between them.
#ifndef PXM_EXAMPLES_PICTURE_SIZE_H
#define PXM_EXAMPLES_PICTURE_SIZE_H

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace examples {

struct Size {
  int width = 0;
  int height = 0;
};

/// The longest side that --size takes.
inline constexpr int kLongestSide = 16384;

/// Reads the value of --size, such as "640x360"; throws a UsageFailure if it is none.
Size readSize(std::string_view text);

/// Which sizes a conversion takes.
struct SizeRule {
  int leastWidth = 1;
  int leastHeight = 1;
  int widthMultiple = 1;
  int heightMultiple = 1;
  bool rowsWithin32Bits = false;  ///< the offset of a row, in bytes, must fit in 32 bits

  /// The smallest size that the rule allows and that holds a picture; INT_MAX where it would be
  /// more.
  Size padded(Size size) const;
};

/// Pixels of room after each row of a destination. Some processor variants of the subsampled
/// formats use two.
inline constexpr int kRowRoom = 2;

/// The product of two lengths.
inline size_t area(int a, int b) {
  return static_cast<size_t>(a) * static_cast<size_t>(b);
}

/// Throws a Failure if pictures of that size have rows that are longer than the programs handle,
/// or more bytes than the machine has memory. After it no sum or product of a picture overflows:
/// rows have at most 1/8 of INT_MAX pixels, and a picture 2^56.
void requireMemory(Size size, int bytesPerPixel);

/// Throws a Failure if rows of a padded 16-bit picture, room included, begin further than INT_MAX
/// bytes from its first.
void requireRowsWithin32Bits(Size size);

/// Fills an image from its own size up to a larger one with its last column and row.
/// @param pitch elements from row to row
template <class T>
void repeatEdges(T* image, size_t pitch, Size own, Size larger) {
  for (int y = 0; y < own.height; ++y) {
    T* row = image + pitch * static_cast<size_t>(y);
    std::fill(row + own.width, row + larger.width, row[own.width - 1]);
  }
  const T* last = image + pitch * static_cast<size_t>(own.height - 1);
  for (int y = own.height; y < larger.height; ++y) {
    std::copy(last, last + larger.width, image + pitch * static_cast<size_t>(y));
  }
}

}  // namespace examples

#endif
