// SPDX-License-Identifier: MIT
#include "tests/support/argument_faults.h"

#include <cstdint>
#include <cstring>

#include "frame/signatures.h"
#include "tests/support/pages.h"

namespace {

// What calls point into. Rows of 64 bytes are enough for 8 pixels of any format.
struct Memory {
  std::uint8_t src[3][8 * 64];
  std::uint8_t dst[3][8 * 64];
  float twist[3][4];
  int srcSteps[3];
  int dstSteps[3];
};

void* unreadable() {
  static_assert(sizeof(Memory) <= 4096);  // the least page
  static void* const page = reservePages(pageSize());
  return page;
}

// Pointers to the three planes, one of them null where asked for.
template <class T>
struct Planes {
  T* at[3];
  Planes(std::uint8_t (*memory)[8 * 64], int nullPlane)
      : at{reinterpret_cast<T*>(memory[0]), reinterpret_cast<T*>(memory[1]),
           reinterpret_cast<T*>(memory[2])} {
    if (nullPlane >= 0) at[nullPlane] = nullptr;
  }
  T** argument(bool null, const FaultyCall& c) {
    return null ? nullptr : c.unreadablePlanes ? static_cast<T**>(unreadable()) : at;
  }
};

int* pitches(int (&steps)[3], const FaultyCall& c) {
  return c.unreadablePitches ? static_cast<int*>(unreadable()) : steps;
}

template <class T>
T* orNull(void* memory, bool null) {
  return null ? nullptr : static_cast<T*>(memory);
}

using Size = pxmSize;
using u8 = std::uint8_t;
using u16 = std::uint16_t;
using s8 = std::int8_t;
using Matrix = const float (*)[4];

Matrix matrix(Memory& m, const FaultyCall& c) {
  return c.nullTwist ? nullptr : m.twist;
}

// One overload for each of the nine argument lists.
pxmStatus call(pxmStatus (*f)(const u8**, int*, u16*, int, Size), Memory& m, const FaultyCall& c) {
  Planes<const u8> src(m.src, c.nullSrcPlane);
  return f(src.argument(c.nullSrc, c), pitches(m.srcSteps, c), orNull<u16>(m.dst, c.nullDst),
           c.dstStep, {c.width, c.height});
}

pxmStatus call(pxmStatus (*f)(const u8**, int, u16*, int, Size), Memory& m, const FaultyCall& c) {
  Planes<const u8> src(m.src, c.nullSrcPlane);
  return f(src.argument(c.nullSrc, c), c.srcStep, orNull<u16>(m.dst, c.nullDst), c.dstStep,
           {c.width, c.height});
}

template <class Src, class Dst>
pxmStatus call(pxmStatus (*f)(const Src*, int, Dst*, int, Size), Memory& m, const FaultyCall& c) {
  return f(orNull<Src>(m.src, c.nullSrc), c.srcStep, orNull<Dst>(m.dst, c.nullDst), c.dstStep,
           {c.width, c.height});
}

pxmStatus call(pxmStatus (*f)(const u16*, int, u8**, int*, Size), Memory& m, const FaultyCall& c) {
  Planes<u8> dst(m.dst, c.nullDstPlane);
  return f(orNull<u16>(m.src, c.nullSrc), c.srcStep, dst.argument(c.nullDst, c),
           pitches(m.dstSteps, c), {c.width, c.height});
}

pxmStatus call(pxmStatus (*f)(const s8*, int, s8*, int, Size, Matrix), Memory& m,
               const FaultyCall& c) {
  return f(orNull<s8>(m.src, c.nullSrc), c.srcStep, orNull<s8>(m.dst, c.nullDst), c.dstStep,
           {c.width, c.height}, matrix(m, c));
}

pxmStatus call(pxmStatus (*f)(s8*, int, Size, Matrix), Memory& m, const FaultyCall& c) {
  return f(orNull<s8>(m.dst, c.nullSrcDst), c.srcDstStep, {c.width, c.height}, matrix(m, c));
}

pxmStatus call(pxmStatus (*f)(const s8**, int, s8**, int, Size, Matrix), Memory& m,
               const FaultyCall& c) {
  Planes<const s8> src(m.src, c.nullSrcPlane);
  Planes<s8> dst(m.dst, c.nullDstPlane);
  return f(src.argument(c.nullSrc, c), c.srcStep, dst.argument(c.nullDst, c), c.dstStep,
           {c.width, c.height}, matrix(m, c));
}

pxmStatus call(pxmStatus (*f)(s8**, int, Size, Matrix), Memory& m, const FaultyCall& c) {
  Planes<s8> srcDst(m.dst, c.nullSrcDstPlane);
  return f(srcDst.argument(c.nullSrcDst, c), c.srcDstStep, {c.width, c.height}, matrix(m, c));
}

template <auto function>
pxmStatus callOnMemory(const FaultyCall& c, bool* untouched) {
  Memory memory;
  std::memset(&memory, 0x5A, sizeof memory);
  for (int i = 0; i < 3; ++i) memory.srcSteps[i] = memory.dstSteps[i] = 64;
  const Memory before = memory;
  Memory& images = c.unreadableImages ? *static_cast<Memory*>(unreadable()) : memory;
  const pxmStatus status = call(function, images, c);
  *untouched = std::memcmp(&memory, &before, sizeof memory) == 0;
  return status;
}

}  // namespace

extern "C" {
#define CONVERSION(name, family) pxmStatus name##_checked PARAMETERS(family);
#include "frame/conversions.def"
}

const std::vector<CheckedCall>& exportedConversions() {
  static const std::vector<CheckedCall> all = {
#define CONVERSION(name, family) {#name, callOnMemory<&legacy90pxmi##name>},
#include "frame/conversions.def"
  };
  return all;
}

const std::vector<CheckedCall>& checkedConversions() {
  static const std::vector<CheckedCall> all = {
#define CONVERSION(name, family) {#name, callOnMemory<&name##_checked>},
#include "frame/conversions.def"
  };
  return all;
}
