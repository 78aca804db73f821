// SPDX-License-Identifier: MIT
//
// Decoding in the six SIMD variants, column by column. A row begins with columns that vector
// blocks decode; scalar code decodes the others.

#ifndef TESTS_ORACLE_VECTOR_DECODE_H_
#define TESTS_ORACLE_VECTOR_DECODE_H_

#include <cstdint>

#include "basics.h"
#include "decode.h"

namespace oracle {

// ---- Forms -------------------------------------------------------------------------------------

// The chains of the vector blocks, in lanes of 16 bits. All samples are 0 to 255 as stored.
Rgb narrowChain(int y, int cb, int cr);
Rgb roundedNarrowChain(int y, int cb, int cr);
Rgb stagedYuvChain(int y, int u, int v);

// The scalar form of the two interleaved 4:2:2 kernels of 256 bits.
Rgb decodeWideLanesTail(int y, int cb, int cr);

// The dither in SIMD. Each gives the field of its scalar twin, for every component and entry of
// the matrix: decode() makes no difference between them.
int laneDither4(int value, int threshold);
int laneDither5(int value, int threshold);
int laneDither6(int value, int threshold);

// ---- Columns -----------------------------------------------------------------------------------

// Whether l9 decodes in lanes of 256 bits: true for five names.
bool hasWideLanes(const DecodeName& name, Variant variant);

// The number of columns, from the left, that vector blocks decode in a row of a region. An odd last
// row of 4:2:0 and YUV 4:2:0 has none. The columns that a block writes beyond the region are not
// counted, and mx has none at all.
int vectorColumns(const DecodeName& name, Variant variant, int width);

// ---- Pixels ------------------------------------------------------------------------------------

// One pixel of any decoding conversion: samples 0 to 255, place counted from the region's top left.
// In mx the flag matters to plain YUV alone, where it tells the whole blocks of two by two from the
// odd last column and row. The three bytes of plain interleaved 4:2:2 of width 1 are no pixel.
std::uint16_t decodePixel(const DecodeName& name, Variant variant, bool inVectorColumns, int y,
                          int cb, int cr, int row, int column);

}  // namespace oracle

#endif  // TESTS_ORACLE_VECTOR_DECODE_H_
