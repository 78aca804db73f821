// SPDX-License-Identifier: MIT
//
// The names of the conversions, their argument checks and their statuses.

#ifndef TESTS_ORACLE_CHECKS_H_
#define TESTS_ORACLE_CHECKS_H_

#include <string_view>
#include <vector>

namespace oracle {

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
int rejectionOf(std::string_view name, const CallFacts& facts);

// The status with which a conversion of a region that passed the checks ends: kStatusOk or
// kStatusSizeWarning. Throws as checksOf does.
int statusAfter(std::string_view name, int width, int height);

}  // namespace oracle

#endif  // TESTS_ORACLE_CHECKS_H_
