// SPDX-License-Identifier: MIT
// Calls of any conversion with chosen arguments made bad.
#ifndef TESTS_SUPPORT_ARGUMENT_FAULTS_H_
#define TESTS_SUPPORT_ARGUMENT_FAULTS_H_

#include <string>
#include <string_view>
#include <vector>

#include "include/pxmcc90lgc.h"
#include "tests/oracle/oracle.h"

// What a call is given. By default everything is good: 8x8 pixels, rows of 64 bytes.
struct FaultyCall {
  bool nullSrc = false, nullDst = false, nullSrcDst = false, nullTwist = false;
  int nullSrcPlane = -1, nullDstPlane = -1, nullSrcDstPlane = -1;  // 0 to 2, or none
  int width = 8, height = 8;
  int srcStep = 64, dstStep = 64, srcDstStep = 64;
  // The arrays of planes and of pitches stand where nothing can be read.
  bool unreadablePlanes = false, unreadablePitches = false;
  // Images, matrix and arrays of pitches stand there.
  bool unreadableImages = false;
};

struct CheckedCall {
  std::string_view name;  // without the prefix of exports
  // Makes the call on memory of its own. `untouched` is set to whether every byte of that memory
  // and of the pointer and pitch arrays is as before.
  pxmStatus (*call)(const FaultyCall&, bool* untouched);
};

// Every conversion that is exported, through its exported name.
const std::vector<CheckedCall>& exportedConversions();

// All 98 conversions as entries that check their arguments and convert nothing.
const std::vector<CheckedCall>& checkedConversions();

#endif
