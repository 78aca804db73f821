// SPDX-License-Identifier: MIT
//
// The chains before the pack to bytes, for tests that look at their ranges.

#ifndef TESTS_ORACLE_VECTOR_CHAINS_H_
#define TESTS_ORACLE_VECTOR_CHAINS_H_

#include "lanes.h"

namespace oracle {

// The lanes of a chain, step by step. The terms of green are subtracted. In the YUV chain a is the
// luma as stored.
struct ChainLanes {
  Lane a, u, v;                    // samples without their offset, times 128
  Lane luma;                       // the rounding of the rounded chain included
  Lane red, greenU, greenV, blue;  // chroma terms
  Lane sumRed, sumGreen, sumBlue;  // 16 times the components
};

ChainLanes narrowLanes(int y, int cb, int cr);
ChainLanes roundedNarrowLanes(int y, int cb, int cr);
ChainLanes stagedYuvLanes(int y, int u, int v);

}  // namespace oracle

#endif  // TESTS_ORACLE_VECTOR_CHAINS_H_
