// SPDX-License-Identifier: MIT
// The calls after which traces are looked for.
#ifndef TESTS_TRACES_CALLS_H_
#define TESTS_TRACES_CALLS_H_

#include "catalogue/conversions.h"
#include "catalogue/variants.h"
#include "tests/support/images.h"

// Blocks of every size and what is left of them; odd and even; rejected.
inline constexpr pxmSize tracedSizes[] = {{0, 0},  {1, 1},  {2, 2},  {4, 1},  {7, 3},
                                          {15, 3}, {32, 2}, {37, 5}, {64, 4}, {95, 3}};

// Calls `visit` with every conversion in every variant that runs here, at every size.
template <typename Visit>
void forAllCalls(Visit visit) {
  Random random("traces");
  Images images(random);
  for (const int variant : runnableVariants()) {
    const SelectedVariant selected(variant);
    for (const Conversion& c : conversions())
      for (const pxmSize size : tracedSizes) visit(c, variant, images.arguments(size));
  }
}

#endif
