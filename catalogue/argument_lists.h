// SPDX-License-Identifier: MIT
// How CallArguments are passed through a pointer to any conversion.
#ifndef CATALOGUE_ARGUMENT_LISTS_H_
#define CATALOGUE_ARGUMENT_LISTS_H_

#include <array>

#include "catalogue/conversions.h"

namespace argument_lists {

using u8 = unsigned char;
using u16 = unsigned short;
using s8 = signed char;
using Size = pxmSize;
using Twist = const float (*)[4];

template <class To, class From>
To* as(From* bytes) {
  return reinterpret_cast<To*>(bytes);
}

// The three planes of an argument list, as an array that a callee may only read.
template <class T>
class Planes {
 public:
  template <class Byte>
  Planes(Byte* const (&bytes)[3], bool null)
      : planes_{as<T>(bytes[0]), as<T>(bytes[1]), as<T>(bytes[2])}, null_(null) {}
  T** argument() { return null_ ? nullptr : planes_.data(); }

 private:
  std::array<T*, 3> planes_;
  bool null_;
};

template <class T>
Planes<const T> sources(const CallArguments& a) {
  return {a.src, a.nullSrcPlanes};
}

template <class T>
Planes<T> destinations(const CallArguments& a) {
  return {a.dst, a.nullDstPlanes};
}

inline Twist twist(const CallArguments& a) {
  return a.nullTwist ? nullptr : a.twist;
}

// One overload for each of the nine argument lists.
inline pxmStatus call(pxmStatus (*f)(const u8**, int*, u16*, int, Size), const CallArguments& a) {
  auto src = sources<u8>(a);
  std::array<int, 3> srcStep = {a.srcStep[0], a.srcStep[1], a.srcStep[2]};
  return f(src.argument(), srcStep.data(), as<u16>(a.dst[0]), a.dstStep[0], a.size);
}

inline pxmStatus call(pxmStatus (*f)(const u8**, int, u16*, int, Size), const CallArguments& a) {
  auto src = sources<u8>(a);
  return f(src.argument(), a.srcStep[0], as<u16>(a.dst[0]), a.dstStep[0], a.size);
}

template <class Src, class Dst>
pxmStatus call(pxmStatus (*f)(const Src*, int, Dst*, int, Size), const CallArguments& a) {
  return f(as<const Src>(a.src[0]), a.srcStep[0], as<Dst>(a.dst[0]), a.dstStep[0], a.size);
}

inline pxmStatus call(pxmStatus (*f)(const u16*, int, u8**, int*, Size), const CallArguments& a) {
  auto dst = destinations<u8>(a);
  std::array<int, 3> dstStep = {a.dstStep[0], a.dstStep[1], a.dstStep[2]};
  return f(as<const u16>(a.src[0]), a.srcStep[0], dst.argument(), dstStep.data(), a.size);
}

inline pxmStatus call(pxmStatus (*f)(const s8*, int, s8*, int, Size, Twist),
                      const CallArguments& a) {
  return f(as<const s8>(a.src[0]), a.srcStep[0], as<s8>(a.dst[0]), a.dstStep[0], a.size, twist(a));
}

inline pxmStatus call(pxmStatus (*f)(s8*, int, Size, Twist), const CallArguments& a) {
  return f(as<s8>(a.dst[0]), a.dstStep[0], a.size, twist(a));
}

inline pxmStatus call(pxmStatus (*f)(const s8**, int, s8**, int, Size, Twist),
                      const CallArguments& a) {
  auto src = sources<s8>(a);
  auto dst = destinations<s8>(a);
  return f(src.argument(), a.srcStep[0], dst.argument(), a.dstStep[0], a.size, twist(a));
}

inline pxmStatus call(pxmStatus (*f)(s8**, int, Size, Twist), const CallArguments& a) {
  auto dst = destinations<s8>(a);
  return f(dst.argument(), a.dstStep[0], a.size, twist(a));
}

}  // namespace argument_lists

#endif
