// SPDX-License-Identifier: MIT
// Which bytes a conversion may touch: its planes, as rows at offsets from their first byte. The
// rows are exactly what is read and written, so that guard pages may stand directly beside them.
#ifndef TESTS_SUPPORT_SHAPES_H_
#define TESTS_SUPPORT_SHAPES_H_

#include <cstddef>
#include <vector>

#include "tests/support/calls.h"

struct PlaneShape {
  int rowBytes;  // 0 where nothing of the plane is touched
  int rows;
};

struct Shape {
  std::vector<PlaneShape> src, dst;  // one or three planes each; in place, only dst
  bool onePitch;                     // three planes share the pitch of the first
};

Shape shapeOf(const Conversion& conversion, int width, int height);

// Offsets in bytes of a plane's rows for a pitch as it is passed; they follow the conversion's own
// rules for odd pitches.
std::vector<std::ptrdiff_t> sourceRows(const Conversion& conversion, int rows, int pitch);
std::vector<std::ptrdiff_t> destinationRows(const Conversion& conversion, int width, int rows,
                                            int pitch);

#endif
