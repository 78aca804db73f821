// SPDX-License-Identifier: MIT
//
// Decoding: samples to packed 16-bit pixels.

#ifndef TESTS_ORACLE_DECODE_H_
#define TESTS_ORACLE_DECODE_H_

#include <cstdint>
#include <optional>
#include <string_view>

#include "basics.h"

namespace oracle {

// ---- Decode forms ------------------------------------------------------------------------------

// The forms that decode YCbCr. All samples are 0 to 255 as stored.
Rgb decodeStaged(int y, int cb, int cr);
Rgb decodeWide(int y, int cb, int cr);
Rgb decodeFolded(int y, int cb, int cr);
Rgb decodeRounded(int y, int cb, int cr);  // of 4:1:1 alone

// The forms that decode YUV. All samples are 0 to 255 as stored.
Rgb decodeYuvPlain(int y, int u, int v);
Rgb decodeYuvRounded(int y, int u, int v);
Rgb decodeYuvStaged(int y, int u, int v);

// ---- Dither and packing ------------------------------------------------------------------------

// The field of 4, 5 or 6 bits to which a component (0 to 255) is dithered at a matrix entry. The
// 6-bit level halves the entry itself: all three take the entry as it stands in the matrix.
int ditherLevel4(int value, int threshold);
int ditherLevel5(int value, int threshold);
int ditherLevel6(int value, int threshold);

// The matrix entry that holds for a depth (444, 555 or 565) at a row and column of the region,
// both counted from 0 and of any size: the matrix repeats every four.
int threshold(int depth, int row, int column);

// The 16-bit word of a pixel at a depth of 444, 555 or 565. With bgr, blue is in the low bits;
// without, red is. packPlain truncates; packDither rounds by the matrix at (row, column).
std::uint16_t packPlain(Rgb c, int depth, bool bgr);
std::uint16_t packDither(Rgb c, int depth, bool bgr, int row, int column);

// ---- Names -------------------------------------------------------------------------------------

enum class DecodeSource { YCbCr, YCbCr422, YCbCr420, YUV420, YCbCr411 };

// C3 is the interleaved 4:4:4 image, C2C3 the interleaved 4:2:2 image, P3C3 three planes.
enum class DecodeLayout { C3, C2C3, P3C3 };

// The name of a decoding export, taken apart.
struct DecodeName {
  DecodeSource source;
  bool bgr;   // true for BGR, false for RGB
  int depth;  // 444, 555 or 565
  bool dither;
  DecodeLayout layout;
};

// Takes apart the name of a decoding export, given without its prefix "legacy90pxmi". Anything
// that is not one of the 74 decoding names gives nullopt.
std::optional<DecodeName> parseDecodeName(std::string_view name);

// ---- Decoding ----------------------------------------------------------------------------------

// The arguments of a decoding call. A packed source is src[0] with srcStep[0], and so is the pitch
// of the planes of 4:4:4, which share one.
struct DecodeCall {
  const std::uint8_t* src[3];
  int srcStep[3];     // bytes, any sign
  std::uint8_t* dst;  // any address, even or odd, with room for what a variant writes beyond a row
  int dstStep;        // bytes as the caller gives them, any sign, odd allowed
  int width;          // 1 or more, 4 or more in 4:1:1
  int height;         // 1 or more
};

// Carries out a whole decoding call and returns its status. The arguments are taken as good: no
// check is made. Reads no byte that the conversion does not need, and writes the destination bytes
// in the order in which the conversion does. Throws std::invalid_argument for any name that is not
// one of the 74 decoding names.
int decode(std::string_view name, Variant variant, const DecodeCall& call);

}  // namespace oracle

#endif  // TESTS_ORACLE_DECODE_H_
