// SPDX-License-Identifier: MIT
// The lane operations by their definitions: plain loops over eight 16-bit elements, with the names
// that the chains and packers use. Proves them before any intrinsic is trusted.
#ifndef TESTS_SUPPORT_PORTABLE_LANES_INL_
#define TESTS_SUPPORT_PORTABLE_LANES_INL_

#include <stdint.h>
#include <string.h>

#include "frame/variant.h"

PXM_TEXT_BEGIN

struct I16xPortable {
  static constexpr int lanes = 8;
  int16_t e[8];
};

struct LaneShift {
  int count;
  explicit LaneShift(int n) : count(n) {}
};

template <class L>
L all(int value);
template <>
inline I16xPortable all<I16xPortable>(int value) {
  I16xPortable r;
  for (int16_t& lane : r.e) lane = static_cast<int16_t>(value);
  return r;
}

template <class Operation>
I16xPortable each(I16xPortable a, I16xPortable b, Operation operation) {
  I16xPortable r;
  for (int i = 0; i < 8; ++i) r.e[i] = static_cast<int16_t>(operation(int{a.e[i]}, int{b.e[i]}));
  return r;
}

inline int unsignedOf(int lane) {
  return lane & 0xFFFF;
}

inline I16xPortable operator+(I16xPortable a, I16xPortable b) {
  return each(a, b, [](int x, int y) { return x + y; });
}
inline I16xPortable operator-(I16xPortable a, I16xPortable b) {
  return each(a, b, [](int x, int y) { return x - y; });
}
inline I16xPortable operator&(I16xPortable a, I16xPortable b) {
  return each(a, b, [](int x, int y) { return x & y; });
}
inline I16xPortable operator|(I16xPortable a, I16xPortable b) {
  return each(a, b, [](int x, int y) { return x | y; });
}
inline I16xPortable operator^(I16xPortable a, I16xPortable b) {
  return each(a, b, [](int x, int y) { return x ^ y; });
}
inline I16xPortable min(I16xPortable a, I16xPortable b) {
  return each(a, b, [](int x, int y) { return x < y ? x : y; });
}
inline I16xPortable max(I16xPortable a, I16xPortable b) {
  return each(a, b, [](int x, int y) { return x > y ? x : y; });
}
inline I16xPortable average(I16xPortable a, I16xPortable b) {
  return each(a, b, [](int x, int y) { return (unsignedOf(x) + unsignedOf(y) + 1) >> 1; });
}
inline I16xPortable LaneMulHi(I16xPortable a, I16xPortable b) {
  return each(a, b, [](int x, int y) { return x * y >> 16; });
}
inline I16xPortable LaneMulHiU(I16xPortable a, I16xPortable b) {
  return each(a, b, [](int x, int y) {
    return static_cast<int>(static_cast<int64_t>(unsignedOf(x)) * unsignedOf(y) >> 16);
  });
}
template <int n>
I16xPortable shiftLeft(I16xPortable a) {
  return each(a, a, [](int x, int) { return unsignedOf(x) << n; });
}
template <int n>
I16xPortable shiftRight(I16xPortable a) {
  return each(a, a, [](int x, int) { return x >> n; });
}
template <int n>
I16xPortable shiftRightLogical(I16xPortable a) {
  return each(a, a, [](int x, int) { return unsignedOf(x) >> n; });
}
inline I16xPortable shiftLeft(I16xPortable a, LaneShift s) {
  return each(a, a, [s](int x, int) { return unsignedOf(x) << s.count; });
}

// Clamps as the narrowing of 32-bit sums does.
template <int factor>
I16xPortable addNeighbours(I16xPortable a, I16xPortable b) {
  I16xPortable r;
  for (int i = 0; i < 8; ++i) {
    const int16_t* const pair = (i < 4 ? a.e : b.e) + 2 * (i % 4);
    const int sum = factor * (pair[0] + pair[1]);
    r.e[i] = static_cast<int16_t>(sum > 32767 ? 32767 : sum < -32768 ? -32768 : sum);
  }
  return r;
}

template <class L>
L loadLanes(const void* p);
template <>
inline I16xPortable loadLanes<I16xPortable>(const void* p) {
  I16xPortable r;
  memcpy(r.e, p, sizeof r.e);
  return r;
}

PXM_TEXT_END

#endif
