// SPDX-License-Identifier: MIT
#include "catalogue/shapes.h"

#include "catalogue/variants.h"

namespace {

int half(int n) {
  return n / 2;
}
int halfUp(int n) {
  return (n + 1) / 2;
}

// The two conversions of l9 that have a packed pixel even at width 1.
bool isWidePacked(const Conversion& c, int variant) {
  return (c.has("422ToBGR555_8u16u_C2") || c.has("422ToBGR565_8u16u_C2")) &&
         variant == variantNamed("l9");
}

bool storesThreeBytes(const Conversion& c, int variant, int width) {
  return c.kind == Kind::Decode && c.has("_C2C3R") && !c.has("Dither") && width == 1 &&
         !isWidePacked(c, variant);
}

bool writesNothing(const Conversion& c, int variant, int width, int height) {
  if (c.has("Dither")) return false;
  if (c.has("YUV420To")) return width == 1 || height == 1;
  return variant > 0 && c.has("422To") && c.has("P3C3R") && width == 1;
}

// 4:2:0 in the SIMD variants: two columns after an odd corner under dither; without it, in
// YUV, two columns from the even width on where the last block is one of four.
void goBeyondTheRegion(const Conversion& c, int w, int h, Shape& shape) {
  if (c.has("Dither") && (w & 1) && (h & 1)) {
    shape.src[0].afterLastRow = 2;
    shape.src[1].afterLastRow = shape.src[2].afterLastRow = 1;
    shape.dst[0].afterLastRow = 4;
  }
  if (!c.has("Dither") && c.has("YUV420To") && (w & 6) == 4) {
    const int columns = (w & 1) ? 1 : 2;
    shape.src[0].afterPairs = columns;
    shape.src[1].afterPairs = shape.src[2].afterPairs = columns - 1;
    shape.dst[0].afterPairs = 2 * columns;
    shape.src[0].pairedRows = shape.dst[0].pairedRows = h & ~1;
    shape.src[1].pairedRows = shape.src[2].pairedRows = h / 2;
  }
}

Shape decodeShape(const Conversion& c, int variant, int w, int h) {
  const std::vector<PlaneShape> pixels = {{storesThreeBytes(c, variant, w) ? 3 : 2 * w, h}};
  if (writesNothing(c, variant, w, h)) return {{{0, 0}, {0, 0}, {0, 0}}, {{0, 0}}, false};
  if (c.has("_C2C3R")) {
    PlaneShape source = {2 * w, h};
    if (w == 1 && isWidePacked(c, variant)) source.beforeRows = 1;
    return {{source}, pixels, false};
  }
  if (c.has("8u16u_C3R")) return {{{3 * w, h}}, pixels, false};
  if (c.has("422To")) return {{{w, h}, {halfUp(w), h}, {halfUp(w), h}}, pixels, false};
  if (c.has("420To")) {
    Shape shape = {{{w, h}, {halfUp(w), halfUp(h)}, {halfUp(w), halfUp(h)}}, pixels, false};
    if (variant > 0) goBeyondTheRegion(c, w, h, shape);
    return shape;
  }
  if (c.has("411To")) return {{{w, h}, {w / 4, h}, {w / 4, h}}, pixels, false};
  return {{{w, h}, {w, h}, {w, h}}, pixels, true};
}

Shape encodeShape(const Conversion& c, int variant, int w, int h) {
  const std::vector<PlaneShape> pixels = {{2 * w, h}};
  const int evenW = w & ~1, evenH = h & ~1;
  if (c.has("C3C2R")) return {pixels, {{2 * w, h}}, false};
  if (c.has("411")) {
    // Of BGR555, SIMD variants give the remaining columns their luma.
    const int columns = variant > 0 && c.has("BGR555") ? w : w & ~3;
    return {{{2 * columns, h}}, {{columns, h}, {w / 4, h}, {w / 4, h}}, false};
  }
  if (c.has("YUV422")) return {{{2 * evenW, h}}, {{evenW, h}, {half(w), h}, {half(w), h}}, false};
  if (c.has("YUV420"))
    return {{{2 * evenW, evenH}}, {{evenW, evenH}, {half(w), half(h)}, {half(w), half(h)}}, false};
  if (c.has("422")) return {pixels, {{w, h}, {half(w), h}, {half(w), h}}, false};
  return {pixels, {{w, h}, {half(w), half(h)}, {half(w), half(h)}}, false};
}

Shape depthShape(const Conversion& c, int w, int h) {
  const PlaneShape words = {2 * w, h}, bytes = {3 * w, h};
  return c.has("_16u8u_") ? Shape{{words}, {bytes}, false} : Shape{{bytes}, {words}, false};
}

// The fourth byte of the last pixel is not touched.
Shape twistShape(const Conversion& c, int w, int h) {
  const int rowBytes = c.has("AC4") ? 4 * w - 1 : c.has("P3") ? w : 3 * w;
  const std::vector<PlaneShape> planes(c.has("P3") ? 3 : 1, {rowBytes, h});
  const bool inPlace = c.has("IR") || c.has("IP3");
  return {inPlace ? std::vector<PlaneShape>{} : planes, planes, true};
}

std::vector<std::ptrdiff_t> evenly(int rows, std::ptrdiff_t pitch) {
  std::vector<std::ptrdiff_t> offsets;
  for (int y = 0; y < rows; ++y) offsets.push_back(y * pitch);
  return offsets;
}

std::ptrdiff_t even(int pitch) {
  return pitch - (pitch & 1);
}

std::vector<RowSpan> spans(const PlaneShape& plane, const std::vector<std::ptrdiff_t>& offsets) {
  std::vector<RowSpan> rows;
  for (int y = 0; y < plane.rows; ++y) {
    const std::ptrdiff_t offset = offsets[static_cast<std::size_t>(y)];
    const int behind = (y + 1 == plane.rows ? plane.afterLastRow : 0) +
                       (y < plane.pairedRows ? plane.afterPairs : 0);
    rows.push_back({offset - plane.beforeRows, offset + plane.rowBytes + behind});
  }
  return rows;
}

}  // namespace

Shape shapeOf(const Conversion& c, int variant, int width, int height) {
  switch (c.kind) {
    case Kind::Decode:
      return decodeShape(c, variant, width, height);
    case Kind::Encode:
      return encodeShape(c, variant, width, height);
    case Kind::Depth:
      return depthShape(c, width, height);
    default:
      return twistShape(c, width, height);
  }
}

std::vector<RowSpan> sourceRows(const Conversion& c, const PlaneShape& plane, int pitch) {
  if (c.kind == Kind::Depth && c.has("_16u8u_"))
    return spans(plane, evenly(plane.rows, even(pitch)));
  std::vector<std::ptrdiff_t> offsets = evenly(plane.rows, pitch);
  const bool bgrPairs = c.kind == Kind::Encode && c.has("BGR") && c.has("420_");
  if (bgrPairs)
    for (std::size_t y = 1; y < offsets.size(); y += 2) offsets[y] = offsets[y - 1] + even(pitch);
  return spans(plane, offsets);
}

std::vector<RowSpan> destinationRows(const Conversion& c, int variant, int width,
                                     const PlaneShape& plane, int pitch) {
  if (storesThreeBytes(c, variant, width)) return spans(plane, evenly(plane.rows, even(pitch) / 2));
  const bool words = (c.kind == Kind::Decode && !c.has("411")) || c.has("565_8u16u_C3R");
  return spans(plane, evenly(plane.rows, words ? even(pitch) : pitch));
}
