// SPDX-License-Identifier: MIT
// The lane operations by their definitions: plain loops over eight 16-bit elements, with the names
// that the chains and packers use. Proves them before any intrinsic is trusted.
#ifndef TESTS_SUPPORT_PORTABLE_LANES_INL_
#define TESTS_SUPPORT_PORTABLE_LANES_INL_

#include <stdint.h>
#include <string.h>

#include "vector/lane.inl"

PXM_LEVEL_BEGIN

struct I16xPortable {
  int16_t e[8];
};

template <>
inline I16xPortable broadcast<I16xPortable>(int value) {
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

// Lanes of two bytes.
struct PortableBytes {
  uint8_t b[16];
};
inline PortableBytes bytesOf(I16xPortable a) {
  PortableBytes bytes;
  memcpy(bytes.b, a.e, sizeof bytes.b);
  return bytes;
}
inline I16xPortable lanesOf(const PortableBytes& bytes) {
  I16xPortable r;
  memcpy(r.e, bytes.b, sizeof r.e);
  return r;
}

inline I16xPortable packUnsigned(I16xPortable a, I16xPortable b) {
  PortableBytes r;
  for (int i = 0; i < 16; ++i) {
    const int lane = i < 8 ? a.e[i] : b.e[i - 8];
    r.b[i] = static_cast<uint8_t>(lane < 0 ? 0 : lane > 255 ? 255 : lane);
  }
  return lanesOf(r);
}
inline I16xPortable subtractBytes(I16xPortable a, I16xPortable b) {
  PortableBytes x = bytesOf(a);
  const PortableBytes y = bytesOf(b);
  for (int i = 0; i < 16; ++i) x.b[i] = static_cast<uint8_t>(x.b[i] < y.b[i] ? 0 : x.b[i] - y.b[i]);
  return lanesOf(x);
}
inline I16xPortable interleaveBytes(I16xPortable a, I16xPortable b, int from) {
  const PortableBytes x = bytesOf(a), y = bytesOf(b);
  PortableBytes r;
  for (int i = 0; i < 8; ++i) {
    r.b[2 * i] = x.b[from + i];
    r.b[2 * i + 1] = y.b[from + i];
  }
  return lanesOf(r);
}
inline I16xPortable interleaveLowBytes(I16xPortable a, I16xPortable b) {
  return interleaveBytes(a, b, 0);
}
inline I16xPortable interleaveHighBytes(I16xPortable a, I16xPortable b) {
  return interleaveBytes(a, b, 8);
}

template <>
inline I16xPortable loadLanes<I16xPortable>(const void* p) {
  I16xPortable r;
  memcpy(r.e, p, sizeof r.e);
  return r;
}

inline I16xPortable interleaveLanes(I16xPortable a, I16xPortable b, int from) {
  I16xPortable r;
  for (int i = 0; i < 4; ++i) {
    r.e[2 * i] = a.e[from + i];
    r.e[2 * i + 1] = b.e[from + i];
  }
  return r;
}
inline I16xPortable interleaveLowLanes(I16xPortable a, I16xPortable b) {
  return interleaveLanes(a, b, 0);
}
inline I16xPortable interleaveHighLanes(I16xPortable a, I16xPortable b) {
  return interleaveLanes(a, b, 4);
}

PXM_LEVEL_END

#endif
