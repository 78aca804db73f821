// SPDX-License-Identifier: MIT
//
// Encoding in the six SIMD variants, column by column. A row begins with columns that vector
// blocks encode; scalar code encodes the others. A block truncates each product by itself, so its
// bytes are not always those of the scalar code.

#ifndef TESTS_ORACLE_VECTOR_ENCODE_H_
#define TESTS_ORACLE_VECTOR_ENCODE_H_

#include <cstdint>
#include <string_view>

#include "basics.h"

namespace oracle {

// The forms of the vector blocks, in lanes of 16 bits. Components are as unpacked, multiples of 8
// or, green of 565, of 4; a sum is over the components of a group of 4 or 2 pixels.

// ---- YCbCr -------------------------------------------------------------------------------------

int laneLuma(Rgb c);
int laneCb(int sumR, int sumG, int sumB, int groupSize);
int laneCr(int sumR, int sumG, int sumB, int groupSize);

// ---- YUV from BGR ------------------------------------------------------------------------------

// The luma of a pixel before the pack to a byte, and that byte.
std::int64_t laneBgrLevel(Rgb c);
int laneBgrLuma(std::int64_t level);

// The chroma of a group of four pixels, from the sum of their levels.
int laneBgrU(int sumB, std::int64_t levelSum);
int laneBgrV(int sumR, std::int64_t levelSum);

// ---- YUV from RGB ------------------------------------------------------------------------------

// Twice the luma of a pixel, truncated, and the luma as a byte.
std::int64_t laneRgbWeight(Rgb c);
int laneRgbLuma(std::int64_t weight);

// The chroma of a group of 4 or 2 pixels, from the sum of their weights.
int laneRgbU(int sumB, std::int64_t weightSum, int groupSize);
int laneRgbV(int sumR, std::int64_t weightSum, int groupSize);

// ---- Columns -----------------------------------------------------------------------------------

// The number of columns, from the left, that vector blocks encode in a row of a region. An odd last
// row of an encoder that takes rows in pairs has none, and mx has none at all. Throws
// std::invalid_argument for any name that is not one of the 14 encoding names.
int encoderVectorColumns(std::string_view name, Variant variant, int width);

}  // namespace oracle

#endif  // TESTS_ORACLE_VECTOR_ENCODE_H_
