// SPDX-License-Identifier: MIT
//
// The colour twist of signed 8-bit images. Its float operations are made one by one and in order,
// under any compiler options that keep to the arithmetic of the language. In mx they follow the
// rounding mode that holds when the call is made; in the SIMD variants they round to nearest.

#ifndef TESTS_ORACLE_TWIST_H_
#define TESTS_ORACLE_TWIST_H_

#include <cstdint>
#include <string_view>

#include "basics.h"

namespace oracle {

// One channel of the result, -128 to 127, from a row of the matrix and the three samples of a
// pixel, each -128 to 127. A value that is not a number gives 0.
int twistChannel(const float row[4], int s0, int s1, int s2);

// The same in the SIMD variants: the constant is added last, a value that is not a number gives
// 127, and the rounding mode of the caller does not matter. It is as before afterwards, and so are
// the flags of exceptions.
int vectorTwistChannel(const float row[4], int s0, int s1, int s2);

// The arguments of a twist. A packed image is src[0] and dst[0]. For an in-place conversion the
// caller gives the one image and its pitch on both sides.
struct TwistCall {
  const std::int8_t* src[3];
  int srcStep;  // bytes, 1 or more, one pitch for all planes
  std::int8_t* dst[3];
  int dstStep;
  int width;   // 1 or more
  int height;  // 1 or more
  float twist[3][4];
};

// Carries out a whole call and returns its status. The arguments are taken as good: no check is
// made. Throws std::invalid_argument for any name that is not one of the six of this family.
int twist(std::string_view name, Variant variant, const TwistCall& call);

}  // namespace oracle

#endif  // TESTS_ORACLE_TWIST_H_
