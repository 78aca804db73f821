// SPDX-License-Identifier: MIT
//
// A second, independent statement of what the conversions compute. It is plain rather than fast,
// shares no code, header or table with the library, and exists only to be compared with it.

#ifndef TESTS_ORACLE_ORACLE_H_
#define TESTS_ORACLE_ORACLE_H_

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace oracle {

// The processor variants, in slot order: mx is 0, l9 is 6.
enum class Variant { mx, m7, u8, n8, y8, e9, l9 };

// ---- Decode forms ------------------------------------------------------------------------------

// The three components of a decoded pixel, each 0 to 255.
struct Rgb {
  int r;
  int g;
  int b;
  friend bool operator==(const Rgb&, const Rgb&) = default;
};

// The forms that decode YCbCr. All samples are 0 to 255 as stored.
Rgb decodeStaged(int y, int cb, int cr);
Rgb decodeWide(int y, int cb, int cr);
Rgb decodeFolded(int y, int cb, int cr);

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

// The names of all 98 conversions without the prefix "legacy90pxmi", in byte order. The views
// last as long as the program.
const std::vector<std::string_view>& conversionNames();

// ---- Checks and status -------------------------------------------------------------------------

inline constexpr int kStatusOk = 0;
inline constexpr int kStatusSizeWarning = 35;
inline constexpr int kStatusBadSize = -6;
inline constexpr int kStatusNullPointer = -8;
inline constexpr int kStatusBadStep = -14;

// What a check looks at. SrcPlanes, DstPlanes and SrcDstPlanes stand for the three pointers of
// the array, tested in the order 0, 1, 2.
enum class Argument {
  Src,
  Dst,
  SrcDst,
  Twist,
  SrcPlanes,
  DstPlanes,
  SrcDstPlanes,
  Width,
  Height,
  SrcStep,
  DstStep,
  SrcDstStep
};

// One argument check of a conversion. A pointer fails when it is null, and its minimum is 0 and
// means nothing. A number fails when it is below minimum, compared as signed.
struct Check {
  Argument argument;
  int minimum;
  int status;  // what the call returns when the check fails
  friend bool operator==(const Check&, const Check&) = default;
};

// The checks of one of the 98 conversions, in the order in which they are made. Throws
// std::invalid_argument for any other name.
std::vector<Check> checksOf(std::string_view name);

// The arguments of a call as far as the checks see them. By default they are good for every
// conversion.
struct CallFacts {
  std::vector<Argument> nulls;  // pointers that are null; for an array of planes, any entry of it
  int width = 8;
  int height = 8;
  int srcStep = 64;  // bytes
  int dstStep = 64;
  int srcDstStep = 64;
};

// The status of the first check that fails, or kStatusOk when all pass. Throws as checksOf does.
int refusalOf(std::string_view name, const CallFacts& facts);

// The status with which a conversion of a region that passed the checks ends: kStatusOk or
// kStatusSizeWarning. Throws as checksOf does.
int statusAfter(std::string_view name, int width, int height);

// ---- Decoding ----------------------------------------------------------------------------------

// The arguments of a decoding call. A packed source is src[0] with srcStep[0]; a family with one
// pitch for three planes uses srcStep[0] for all of them.
struct DecodeCall {
  const std::uint8_t* src[3];
  int srcStep[3];     // bytes, any sign
  std::uint8_t* dst;  // any address, even or odd
  int dstStep;        // bytes as the caller gives them, any sign, odd allowed
  int width;          // 1 or more
  int height;         // 1 or more
};

// Carries out a whole decoding call and returns its status. The arguments are taken as good: no
// check is made. Knows the 24 conversions of 4:4:4, for which every variant answers as mx does;
// throws std::invalid_argument for any other name.
int decode(std::string_view name, Variant variant, const DecodeCall& call);

// One pixel of a 4:4:4 conversion: samples 0 to 255, place counted from the region's top left.
std::uint16_t decodePixel444(const DecodeName& name, Variant variant, int y, int cb, int cr,
                             int row, int column);

}  // namespace oracle

#endif  // TESTS_ORACLE_ORACLE_H_
