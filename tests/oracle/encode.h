// SPDX-License-Identifier: MIT
//
// Encoding: packed 16-bit pixels to samples.

#ifndef TESTS_ORACLE_ENCODE_H_
#define TESTS_ORACLE_ENCODE_H_

#include <cstdint>
#include <string_view>

#include "basics.h"

namespace oracle {

// ---- Unpacking ---------------------------------------------------------------------------------

// The components of a word. A field of five bits becomes a multiple of 8, the field of six bits a
// multiple of 4; the low bits stay zero. Bit 15 of a 555 pixel is ignored.
Rgb unpackBgr555(std::uint16_t word);
Rgb unpackBgr565(std::uint16_t word);
Rgb unpackRgb565(std::uint16_t word);

// ---- YCbCr -------------------------------------------------------------------------------------

// The bytes of YCbCr, each 0 to 255. A sum is over the components of a group of 4 or 2 pixels.
int encodeLuma(Rgb c);
int encodeCb(int sumR, int sumG, int sumB, int groupSize);
int encodeCr(int sumR, int sumG, int sumB, int groupSize);

// The Cb of a pixel that stands alone.
int encodeCbSingle(Rgb c);

// ---- YUV ---------------------------------------------------------------------------------------

// The luma of a pixel times 65536.
std::int64_t encodeYuvWeight(Rgb c);

// The bytes of YUV, each 0 to 255. The rounding is 32768 or 0. A weight sum is over the weights of
// a group of 4 or 2 pixels.
int encodeYuvLuma(std::int64_t weight, int rounding);
int encodeU(int sumB, std::int64_t weightSum, int groupSize);
int encodeV(int sumR, std::int64_t weightSum, int groupSize);

// ---- Encoding ----------------------------------------------------------------------------------

// The arguments of an encoding call. A packed destination is dst[0] with dstStep[0].
struct EncodeCall {
  const std::uint8_t* src;  // the first pixel, little-endian, at any address
  int srcStep;              // bytes, any sign, odd allowed
  std::uint8_t* dst[3];
  int dstStep[3];  // bytes, any sign
  int width;       // as the checks of the conversion let through
  int height;
};

// Carries out a whole encoding call and returns its status. The arguments are taken as good: no
// check is made. Reads no byte that the conversion does not need, and writes the destination bytes
// in the order in which mx does. Throws std::invalid_argument for any name that is not
// one of the 14 encoding names.
int encode(std::string_view name, Variant variant, const EncodeCall& call);

}  // namespace oracle

#endif  // TESTS_ORACLE_ENCODE_H_
