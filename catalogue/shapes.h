// SPDX-License-Identifier: MIT
// Which bytes a conversion may touch: its planes, as rows at offsets from their first byte. The
// rows are exactly what is read and written, so that guard pages may stand directly beside them.
#ifndef CATALOGUE_SHAPES_H_
#define CATALOGUE_SHAPES_H_

#include <cstddef>
#include <vector>

#include "catalogue/conversions.h"

struct PlaneShape {
  int rowBytes;  // of the region; 0 where nothing of the plane is touched
  int rows;
  // What SIMD variants touch beyond the region, in bytes.
  int afterLastRow = 0;
  int afterPairs = 0;  // behind each row that belongs to a pair of luma rows
  int pairedRows = 0;  // how many rows of this plane do
  int beforeRows = 0;
};

struct Shape {
  std::vector<PlaneShape> src, dst;  // one or three planes each; in place, only dst
  bool onePitch;                     // three planes share the pitch of the first
};

Shape shapeOf(const Conversion& conversion, int variant, int width, int height);

// The bytes of a row that are touched, from `begin` up to `end`, as offsets from a plane's first
// byte.
struct RowSpan {
  std::ptrdiff_t begin, end;
};

// The rows of a plane for a pitch as it is passed; they follow the conversion's own rules for odd
// pitches.
std::vector<RowSpan> sourceRows(const Conversion& conversion, const PlaneShape& plane, int pitch);
std::vector<RowSpan> destinationRows(const Conversion& conversion, int variant, int width,
                                     const PlaneShape& plane, int pitch);

#endif
