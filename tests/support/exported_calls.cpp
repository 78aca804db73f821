// SPDX-License-Identifier: MIT
#include "tests/support/exported_calls.h"

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace {

using u8 = unsigned char;
using u16 = unsigned short;
using s8 = signed char;

std::uint64_t wordOf(const void* pointer) {
  return reinterpret_cast<std::uintptr_t>(pointer);
}

// What a pitch leaves in the upper half of a register is nobody's business. No address and no
// height has this upper half.
constexpr std::uint64_t poison = 0xDEADBEEF00000000;
constexpr std::uint64_t lowerHalf = 0xFFFFFFFF;

std::uint64_t wordOf(int number) {
  return poison | static_cast<std::uint32_t>(number);
}

// Width in the lower half, height in the upper.
std::uint64_t wordOf(pxmSize size) {
  return static_cast<std::uint64_t>(static_cast<std::uint32_t>(size.height)) << 32 |
         static_cast<std::uint32_t>(size.width);
}

// One overload for each of the nine argument lists.
Words wordsFor(pxmStatus (*)(const u8**, int*, u16*, int, pxmSize), const CallArguments& a) {
  return {wordOf(a.src), wordOf(a.srcStep), wordOf(a.dst[0]), wordOf(a.dstStep[0]), wordOf(a.size)};
}
Words wordsFor(pxmStatus (*)(const u8**, int, u16*, int, pxmSize), const CallArguments& a) {
  return {wordOf(a.src), wordOf(a.srcStep[0]), wordOf(a.dst[0]), wordOf(a.dstStep[0]),
          wordOf(a.size)};
}
template <class Src, class Dst>
Words wordsFor(pxmStatus (*)(const Src*, int, Dst*, int, pxmSize), const CallArguments& a) {
  return {wordOf(a.src[0]), wordOf(a.srcStep[0]), wordOf(a.dst[0]), wordOf(a.dstStep[0]),
          wordOf(a.size)};
}
Words wordsFor(pxmStatus (*)(const u16*, int, u8**, int*, pxmSize), const CallArguments& a) {
  return {wordOf(a.src[0]), wordOf(a.srcStep[0]), wordOf(a.dst), wordOf(a.dstStep), wordOf(a.size)};
}
using Twist = const float (*)[4];
Words wordsFor(pxmStatus (*)(const s8*, int, s8*, int, pxmSize, Twist), const CallArguments& a) {
  return {wordOf(a.src[0]),     wordOf(a.srcStep[0]), wordOf(a.dst[0]),
          wordOf(a.dstStep[0]), wordOf(a.size),       wordOf(a.twist)};
}
Words wordsFor(pxmStatus (*)(s8*, int, pxmSize, Twist), const CallArguments& a) {
  return {wordOf(a.dst[0]), wordOf(a.dstStep[0]), wordOf(a.size), wordOf(a.twist)};
}
Words wordsFor(pxmStatus (*)(const s8**, int, s8**, int, pxmSize, Twist), const CallArguments& a) {
  return {wordOf(a.src),        wordOf(a.srcStep[0]), wordOf(a.dst),
          wordOf(a.dstStep[0]), wordOf(a.size),       wordOf(a.twist)};
}
Words wordsFor(pxmStatus (*)(s8**, int, pxmSize, Twist), const CallArguments& a) {
  return {wordOf(a.dst), wordOf(a.dstStep[0]), wordOf(a.size), wordOf(a.twist)};
}

}  // namespace

const std::vector<Export>& allExports() {
#define CONVERSION(name, family)                                              \
  {conversionNamed(#name), reinterpret_cast<const void*>(legacy90pxmi##name), \
   [](const CallArguments& a) { return wordsFor(legacy90pxmi##name, a); }},
  static const std::vector<Export> all = {
#include "frame/conversions.def"
  };
  return all;
}

const Export& exportNamed(std::string_view name) {
  for (const Export& e : allExports())
    if (e.conversion.name == name) return e;
  throw std::invalid_argument("no export is named " + std::string(name));
}

Words withUpperHalves(Words words, std::uint32_t upperHalf) {
  for (std::uint64_t& word : words)
    if ((word & ~lowerHalf) == poison) word = std::uint64_t{upperHalf} << 32 | (word & lowerHalf);
  return words;
}

std::vector<ServiceCall> serviceCalls(int* threads) {
  return {
      {"GetLibVersion", reinterpret_cast<const void*>(legacy90pxmccGetLibVersion), {}, false},
      {"GetNumThreads",
       reinterpret_cast<const void*>(legacy90pxmccGetNumThreads),
       {wordOf(threads)},
       true},
      {"Init", reinterpret_cast<const void*>(legacy90pxmccInit), {}, true},
      {"SetNumThreads",
       reinterpret_cast<const void*>(legacy90pxmccSetNumThreads),
       {wordOf(3)},
       true},
  };
}
