// SPDX-License-Identifier: MIT
#include "tests/fuzz/converted.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "tests/fuzz/guard.h"
#include "tests/fuzz/numbers.h"
#include "tests/fuzz/placement.h"
#include "tests/fuzz/run.h"

namespace {

constexpr std::ptrdiff_t memorySize = 1 << 17;
struct Memory {
  alignas(64) std::uint8_t bytes[memorySize];
};
// The bytes before a call, what the oracle leaves in each class, and what the library works on.
Memory before, expected[classCount], worked;

// A pointer into the memory of the library, as the same place in another one.
template <class Byte>
Byte* moved(Byte* bytes, Memory& to) {
  return bytes ? to.bytes + (bytes - worked.bytes) : nullptr;
}

CallArguments movedTo(Memory& to, const CallArguments& a) {
  CallArguments other = a;
  for (int i = 0; i < 3; ++i) {
    other.src[i] = moved(const_cast<std::uint8_t*>(a.src[i]), to);
    other.dst[i] = moved(a.dst[i], to);
  }
  return other;
}

void requireBytes(const Case& c, int variant, const CallArguments& a, const Memory& wanted,
                  std::ptrdiff_t size) {
  if (std::memcmp(worked.bytes, wanted.bytes, static_cast<std::size_t>(size)) == 0) return;
  const auto at = std::mismatch(worked.bytes, worked.bytes + size, wanted.bytes).first;
  char what[96];
  std::snprintf(what, sizeof what, "byte %td of the memory, %p, is %d, want %d", at - worked.bytes,
                static_cast<const void*>(at), *at, wanted.bytes[at - worked.bytes]);
  fail(c, variant, a, what);
}

void fillMemory(const Case& c, std::ptrdiff_t size) {
  constexpr std::uint8_t extremes[16] = {0,   1,   15,  16,  17,  127, 128, 129,
                                         234, 235, 236, 239, 240, 241, 254, 255};
  Numbers numbers(c.seed);
  const auto constant = static_cast<std::uint8_t>(c.seed);
  for (std::ptrdiff_t i = 0; i < size; i += 8) {
    std::uint64_t eight = numbers.next();
    const bool asExtremes = c.fill == Fill::Extremes || (c.fill == Fill::Both && eight >> 63);
    if (asExtremes)
      for (std::ptrdiff_t k = 0; k < 8; ++k, eight >>= 4)
        before.bytes[i + k] = extremes[eight & 15];
    else if (c.fill == Fill::Constant)
      std::memset(before.bytes + i, constant, 8);
    else if (c.fill == Fill::Ramp)
      for (std::ptrdiff_t k = 0; k < 8; ++k)
        before.bytes[i + k] = static_cast<std::uint8_t>(i + k + constant);
    else
      std::memcpy(before.bytes + i, &eight, 8);
  }
}

// The remaining input becomes the first samples, a byte for one plane after another.
void placeSamples(const Case& c, const Placement& p) {
  const bool inPlace = isInPlace(*c.conversion);
  const int planes = hasPlanes(*c.conversion, !inPlace) ? 3 : 1;
  const std::ptrdiff_t* const first = inPlace ? p.dst : p.src;
  Input samples = c.samples;
  for (std::ptrdiff_t i = 0; samples.left() > 0; ++i)
    for (int k = 0; k < planes && samples.left() > 0; ++k)
      if (first[k] + i < p.size) before.bytes[first[k] + i] = samples.byte();
}

CallArguments argumentsOf(const Case& c, const Placement& p) {
  const bool asOne = c.sameImage && c.conversion->kind == Kind::Twist && !isInPlace(*c.conversion);
  CallArguments a = {};
  a.size = c.size;
  std::memcpy(a.twist, c.twist, sizeof a.twist);
  for (int i = 0; i < 3; ++i) {
    a.src[i] = p.src[i] ? worked.bytes + p.src[i] : nullptr;
    a.dst[i] = p.dst[i] ? worked.bytes + p.dst[i] : nullptr;
    a.srcStep[i] = p.srcStep[i];
    a.dstStep[i] = p.dstStep[i];
    if (asOne) {
      a.src[i] = a.dst[i];
      a.srcStep[i] = a.dstStep[i];
    }
  }
  return a;
}

// Every 256th seed, the oracle and the shapes are asked in each variant whether they make no
// difference in a class.
void requireClasses(const Case& c, const CallArguments& a, const Placement& p,
                    const int (&representatives)[classCount], const int (&statuses)[classCount]) {
  static Memory other;
  const auto size = static_cast<std::size_t>(p.size);
  for (const int variant : variants()) {
    const int k = classOf(*c.conversion, variant);
    int others[classCount];
    std::copy(std::begin(representatives), std::end(representatives), others);
    others[k] = variant;
    std::memcpy(other.bytes, before.bytes, size);
    const int status = callOracle(c, variant, movedTo(other, a));
    if (status != statuses[k] || std::memcmp(other.bytes, expected[k].bytes, size) != 0 ||
        place(c, others).touched[k] != p.touched[k])
      fail(c, variant, a, "there are more classes of variants than tests/fuzz/classes.cpp has");
  }
}

void setAccess(const Placement& p, int k) {
  guard::forbid(worked.bytes, static_cast<std::size_t>(p.size));
  for (const Stretch& stretch : p.touched[k])
    guard::allow(worked.bytes + stretch.begin,
                 static_cast<std::size_t>(stretch.end - stretch.begin));
}

void callAndCompare(const Case& c, int variant, const Placement& p, const CallArguments& a,
                    int wanted) {
  const int k = classOf(*c.conversion, variant);
  const auto size = static_cast<std::size_t>(p.size);
  std::memcpy(worked.bytes, before.bytes, size);
  setAccess(p, k);
  const pxmStatus status = callLibrary(c, variant, a);
  for (const Stretch& stretch : p.written[k])
    guard::requireValues(worked.bytes + stretch.begin,
                         static_cast<std::size_t>(stretch.end - stretch.begin));
  guard::allow(worked.bytes, size);
  requireStatus(c, variant, a, status, wanted);
  requireBytes(c, variant, a, expected[k], p.size);
}

// The samples of a placed call, by the oracle in each class, and then by the library in each
// variant.
void expectSamples(const Case& c, const Placement& p, const int (&representatives)[classCount]) {
  const Conversion& conversion = *c.conversion;
  fillMemory(c, p.size);
  placeSamples(c, p);
  const CallArguments a = argumentsOf(c, p);
  int statuses[classCount] = {};
  for (int k = 0; k < classCount; ++k) {
    if (!p.exists[k]) continue;
    std::memcpy(expected[k].bytes, before.bytes, static_cast<std::size_t>(p.size));
    statuses[k] = callOracle(c, representatives[k], movedTo(expected[k], a));
  }
  if (c.seed % 256 == 255) requireClasses(c, a, p, representatives, statuses);
  // Where blocks of two rows share bytes no order of stores is promised.
  const bool scalarAlone =
      conversion.kind == Kind::Encode && conversion.has("420_") && p.destinationOverlaps;
  forEachVariant(c, [&](int variant) {
    if (variant > 0 && scalarAlone) return;
    callAndCompare(c, variant, p, a, statuses[classOf(conversion, variant)]);
  });
}

}  // namespace

void expectConversion(const Case& c, int fillings) {
  int representatives[classCount] = {-1, -1, -1};
  for (const int variant : variants()) representatives[classOf(*c.conversion, variant)] = variant;
  const Placement p = place(c, representatives);
  if (p.size > memorySize - 8) std::abort();  // eight bytes are filled at once
  Case filled = c;
  for (int i = 0; i < fillings; ++i, ++filled.seed) expectSamples(filled, p, representatives);
}
