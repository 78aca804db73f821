// SPDX-License-Identifier: MIT
#include "tests/support/calls.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace {

using u8 = unsigned char;
using u16 = unsigned short;
using s8 = signed char;
using Size = pxmSize;
using Twist = const float (*)[4];

// The three planes of an argument list, as an array that a callee may only read.
template <class To, class From>
std::array<To*, 3> planes(From* const (&bytes)[3]) {
  return {reinterpret_cast<To*>(bytes[0]), reinterpret_cast<To*>(bytes[1]),
          reinterpret_cast<To*>(bytes[2])};
}

template <class To, class From>
To* as(From* bytes) {
  return reinterpret_cast<To*>(bytes);
}

// One overload for each of the nine argument lists.
pxmStatus call(pxmStatus (*f)(const u8**, int*, u16*, int, Size), const CallArguments& a) {
  auto src = planes<const u8>(a.src);
  std::array<int, 3> srcStep = {a.srcStep[0], a.srcStep[1], a.srcStep[2]};
  return f(src.data(), srcStep.data(), as<u16>(a.dst[0]), a.dstStep[0], a.size);
}

pxmStatus call(pxmStatus (*f)(const u8**, int, u16*, int, Size), const CallArguments& a) {
  auto src = planes<const u8>(a.src);
  return f(src.data(), a.srcStep[0], as<u16>(a.dst[0]), a.dstStep[0], a.size);
}

template <class Src, class Dst>
pxmStatus call(pxmStatus (*f)(const Src*, int, Dst*, int, Size), const CallArguments& a) {
  return f(as<const Src>(a.src[0]), a.srcStep[0], as<Dst>(a.dst[0]), a.dstStep[0], a.size);
}

pxmStatus call(pxmStatus (*f)(const u16*, int, u8**, int*, Size), const CallArguments& a) {
  auto dst = planes<u8>(a.dst);
  std::array<int, 3> dstStep = {a.dstStep[0], a.dstStep[1], a.dstStep[2]};
  return f(as<const u16>(a.src[0]), a.srcStep[0], dst.data(), dstStep.data(), a.size);
}

pxmStatus call(pxmStatus (*f)(const s8*, int, s8*, int, Size, Twist), const CallArguments& a) {
  return f(as<const s8>(a.src[0]), a.srcStep[0], as<s8>(a.dst[0]), a.dstStep[0], a.size, a.twist);
}

pxmStatus call(pxmStatus (*f)(s8*, int, Size, Twist), const CallArguments& a) {
  return f(as<s8>(a.dst[0]), a.dstStep[0], a.size, a.twist);
}

pxmStatus call(pxmStatus (*f)(const s8**, int, s8**, int, Size, Twist), const CallArguments& a) {
  auto src = planes<const s8>(a.src);
  auto dst = planes<s8>(a.dst);
  return f(src.data(), a.srcStep[0], dst.data(), a.dstStep[0], a.size, a.twist);
}

pxmStatus call(pxmStatus (*f)(s8**, int, Size, Twist), const CallArguments& a) {
  auto dst = planes<s8>(a.dst);
  return f(dst.data(), a.dstStep[0], a.size, a.twist);
}

template <auto exported>
pxmStatus callExport(const CallArguments& a) {
  return call(exported, a);
}

}  // namespace

const std::vector<Conversion>& conversions() {
#define ROW(name, kind) {#name, kind, callExport<&legacy90pxmi##name>},
  static const std::vector<Conversion> all = {
#define DECODE(name, ...) ROW(name, Kind::Decode)
#define ENCODE(name, ...) ROW(name, Kind::Encode)
#define DEPTH(name, ...) ROW(name, Kind::Depth)
#define TWIST(name, ...) ROW(name, Kind::Twist)
#include "frame/conversions.def"
  };
#undef ROW
  return all;
}

std::vector<Conversion> conversionsOf(Kind kind) {
  std::vector<Conversion> some;
  std::ranges::copy_if(conversions(), std::back_inserter(some),
                       [kind](const Conversion& c) { return c.kind == kind; });
  return some;
}

const Conversion& conversionNamed(std::string_view name) {
  const auto found = std::ranges::find(conversions(), name, &Conversion::name);
  if (found == conversions().end()) throw std::invalid_argument(std::string(name));
  return *found;
}
