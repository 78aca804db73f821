// SPDX-License-Identifier: MIT
#include "tests/support/shapes.h"

namespace {

int half(int n) {
  return n / 2;
}
int halfUp(int n) {
  return (n + 1) / 2;
}

bool isPlainPackedOfWidth1(const Conversion& c, int width) {
  return c.kind == Kind::Decode && c.has("_C2C3R") && !c.has("Dither") && width == 1;
}

bool writesNothing(const Conversion& c, int width, int height) {
  return c.has("YUV420To") && !c.has("Dither") && (width == 1 || height == 1);
}

Shape decodeShape(const Conversion& c, int w, int h) {
  const std::vector<PlaneShape> pixels = {{isPlainPackedOfWidth1(c, w) ? 3 : 2 * w, h}};
  if (writesNothing(c, w, h)) return {{{0, 0}, {0, 0}, {0, 0}}, {{0, 0}}, false};
  if (c.has("_C2C3R")) return {{{2 * w, h}}, pixels, false};
  if (c.has("8u16u_C3R")) return {{{3 * w, h}}, pixels, false};
  if (c.has("422To")) return {{{w, h}, {halfUp(w), h}, {halfUp(w), h}}, pixels, false};
  if (c.has("420To"))
    return {{{w, h}, {halfUp(w), halfUp(h)}, {halfUp(w), halfUp(h)}}, pixels, false};
  if (c.has("411To")) return {{{w, h}, {w / 4, h}, {w / 4, h}}, pixels, false};
  return {{{w, h}, {w, h}, {w, h}}, pixels, true};
}

Shape encodeShape(const Conversion& c, int w, int h) {
  const std::vector<PlaneShape> pixels = {{2 * w, h}};
  const int evenW = w & ~1, evenH = h & ~1;
  if (c.has("C3C2R")) return {pixels, {{2 * w, h}}, false};
  if (c.has("411")) {
    const int whole = w & ~3;
    return {{{2 * whole, h}}, {{whole, h}, {whole / 4, h}, {whole / 4, h}}, false};
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

}  // namespace

Shape shapeOf(const Conversion& c, int width, int height) {
  switch (c.kind) {
    case Kind::Decode:
      return decodeShape(c, width, height);
    case Kind::Encode:
      return encodeShape(c, width, height);
    case Kind::Depth:
      return depthShape(c, width, height);
    default:
      return twistShape(c, width, height);
  }
}

std::vector<std::ptrdiff_t> sourceRows(const Conversion& c, int rows, int pitch) {
  if (c.kind == Kind::Depth && c.has("_16u8u_")) return evenly(rows, even(pitch));
  std::vector<std::ptrdiff_t> offsets = evenly(rows, pitch);
  const bool bgrPairs = c.kind == Kind::Encode && c.has("BGR") && c.has("420_");
  if (bgrPairs)
    for (std::size_t y = 1; y < offsets.size(); y += 2) offsets[y] = offsets[y - 1] + even(pitch);
  return offsets;
}

std::vector<std::ptrdiff_t> destinationRows(const Conversion& c, int width, int rows, int pitch) {
  if (isPlainPackedOfWidth1(c, width)) return evenly(rows, even(pitch) / 2);
  const bool words = (c.kind == Kind::Decode && !c.has("411")) || c.has("565_8u16u_C3R");
  return evenly(rows, words ? even(pitch) : pitch);
}
