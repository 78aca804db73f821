// SPDX-License-Identifier: MIT
#include "tests/fuzz/placement.h"

#include <algorithm>
#include <cstdlib>

namespace {

// A plane in each class, and what all of them have in common.
struct Plane {
  const Case& c;
  bool source;
  std::size_t number;
  const int (&variants)[classCount];
  const Shape (&shapes)[classCount];

  const PlaneShape* shape(std::size_t k) const {
    const auto& planes = source ? shapes[k].src : shapes[k].dst;
    return number < planes.size() ? &planes[number] : nullptr;
  }
  bool exists() const {
    for (std::size_t k = 0; k < classCount; ++k)
      if (shape(k)) return true;
    return false;
  }
  int most(int PlaneShape::*what) const {
    int value = 0;
    for (std::size_t k = 0; k < classCount; ++k)
      if (const PlaneShape* plane = shape(k)) value = std::max(value, plane->*what);
    return value;
  }
  std::vector<RowSpan> rows(std::size_t k, int pitch) const {
    return source ? sourceRows(*c.conversion, *shape(k), pitch)
                  : destinationRows(*c.conversion, variants[k], c.size.width, *shape(k), pitch);
  }
};

// The twist takes positive pitches alone, and what becomes of rows that overlap is not promised
// there.
int twistPitch(int pitch, const Plane& plane, int rowBytes, bool singleRow) {
  const int positive = std::max(pitch < 0 ? -(pitch + 1) : pitch, 1);
  return plane.source || singleRow ? positive : std::max(positive, rowBytes);
}

int pitchOf(const Plane& plane, const PlaneWish& wish, int rows) {
  const int rowBytes = std::max(plane.most(&PlaneShape::rowBytes), 1);
  const int pitch = pitchFor(wish.pitch, rowBytes, rows <= 1);
  if (plane.c.conversion->kind != Kind::Twist) return pitch;
  return twistPitch(pitch, plane, rowBytes, rows <= 1);
}

// Puts a plane behind what is placed already, at the offset that is wished for.
std::ptrdiff_t placePlane(const Plane& plane, int pitch, int offset, Placement& p) {
  std::vector<RowSpan> rows[classCount];
  std::ptrdiff_t least = 0, most = 0;
  for (std::size_t k = 0; k < classCount; ++k) {
    if (!plane.shape(k)) continue;
    rows[k] = plane.rows(k, pitch);
    for (const RowSpan& row : rows[k]) {
      least = std::min(least, row.begin);
      most = std::max(most, row.end);
    }
  }
  const std::ptrdiff_t lowest = p.size - least;
  const std::ptrdiff_t first = lowest + ((offset - lowest) & 63);
  for (std::size_t k = 0; k < classCount; ++k)
    for (const RowSpan& row : rows[k]) {
      const Stretch stretch = {first + row.begin, first + row.end};
      p.touched[k].push_back(stretch);
      if (!plane.source) p.written[k].push_back(stretch);
    }
  p.size = first + most;
  return first;
}

bool rowsOverlap(const std::vector<RowSpan>& rows) {
  for (std::size_t i = 0; i < rows.size(); ++i)
    for (std::size_t j = 0; j < i; ++j)
      if (rows[i].begin < rows[j].end && rows[j].begin < rows[i].end) return true;
  return false;
}

bool overlapsItself(const Plane& plane, int pitch) {
  for (std::size_t k = 0; k < classCount; ++k)
    if (plane.shape(k) && rowsOverlap(plane.rows(k, pitch))) return true;
  return false;
}

int mostRows(const Case& c, bool source, const int (&variants)[classCount],
             const Shape (&shapes)[classCount], std::size_t number, bool onePitch) {
  int rows = 0;
  for (std::size_t i = onePitch ? 0 : number; i < (onePitch ? 3 : number + 1); ++i)
    rows = std::max(rows, Plane{c, source, i, variants, shapes}.most(&PlaneShape::rows));
  return rows;
}

}  // namespace

Placement place(const Case& c, const int (&variants)[classCount]) {
  Placement p = {};
  p.size = 64;  // before the first plane
  Shape shapes[classCount];
  bool onePitch = false;
  for (std::size_t k = 0; k < classCount; ++k) {
    p.exists[k] = variants[k] >= 0;
    if (!p.exists[k]) continue;
    shapes[k] = shapeOf(*c.conversion, variants[k], c.size.width, c.size.height);
    onePitch = shapes[k].onePitch;
    p.touched[k].reserve(64);
    p.written[k].reserve(32);
  }
  for (const bool source : {true, false})
    for (std::size_t i = 0; i < 3; ++i) {
      const Plane plane = {c, source, i, variants, shapes};
      if (!plane.exists()) continue;
      const PlaneWish& wish = source ? c.src[i] : c.dst[i];
      int* const steps = source ? p.srcStep : p.dstStep;
      const bool shares = onePitch && i > 0;
      steps[i] = shares ? steps[0]
                        : pitchOf(plane, wish, mostRows(c, source, variants, shapes, i, onePitch));
      (source ? p.src : p.dst)[i] = placePlane(plane, steps[i], wish.offset, p);
      if (!source) p.destinationOverlaps |= overlapsItself(plane, steps[i]);
    }
  p.size += 64;  // after the last
  return p;
}
