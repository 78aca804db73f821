// SPDX-License-Identifier: MIT
#include "tests/support/catalog.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "frame/dispatch.h"

extern "C" {
#define DECODE(name, family, source, depth, order, packing) \
  extern const void* const name##_table[variantCount];
#include "frame/conversions.def"
}

const char* const variantTags[variantCount] = {"mx", "m7", "u8", "n8", "y8", "e9", "l9"};

namespace {

using FromPlanes = pxmStatus (*)(const unsigned char* [3], int[3], unsigned short*, int, pxmSize);
using FromPlanesOnePitch = pxmStatus (*)(const unsigned char* [3], int, unsigned short*, int,
                                         pxmSize);
using FromPacked = pxmStatus (*)(const unsigned char*, int, unsigned short*, int, pxmSize);

[[maybe_unused]] pxmStatus invoke(FromPlanes f, DecodeArguments& a) {
  return f(a.src, a.srcStep, a.dst, a.dstStep, a.size);
}
pxmStatus invoke(FromPlanesOnePitch f, DecodeArguments& a) {
  return f(a.src, a.srcStep[0], a.dst, a.dstStep, a.size);
}
pxmStatus invoke(FromPacked f, DecodeArguments& a) {
  return f(a.src[0], a.srcStep[0], a.dst, a.dstStep, a.size);
}

template <auto exported>
pxmStatus call(DecodeArguments a) {
  return invoke(exported, a);
}

bool machineRuns(int variant) {
  switch (variant) {
    case pxm::variantM7:
      return __builtin_cpu_supports("sse3");
    case pxm::variantU8:
    case pxm::variantN8:
      return __builtin_cpu_supports("ssse3");
    case pxm::variantY8:
      return __builtin_cpu_supports("sse4.1");
    case pxm::variantE9:
      return __builtin_cpu_supports("avx");
    case pxm::variantL9:
      return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi2");
    default:
      return true;
  }
}

void reportSkipped(int variant) {
  static bool reported[variantCount];
  if (!reported[variant])
    std::fprintf(stderr, "skipped: this machine cannot run variant %s\n", variantTags[variant]);
  reported[variant] = true;
}

}  // namespace

const std::vector<Decoder>& decoders() {
  static const std::vector<Decoder> all = {
#define DECODE(name, family, source, depth, order, packing)    \
  {#name, name##_table, call<&legacy90pxmi##name>,             \
   std::string_view(#name).find("P3C3R") != std::string::npos, \
   std::string_view(#name).find("Dither") != std::string::npos},
#include "frame/conversions.def"
  };
  return all;
}

const Decoder& decoderNamed(std::string_view name) {
  const auto found = std::ranges::find(decoders(), name, &Decoder::name);
  if (found == decoders().end()) throw std::invalid_argument(std::string(name));
  return *found;
}

SelectedVariant::SelectedVariant(int variant) : before_(VariantIndex) {
  VariantIndex = variant;
}
SelectedVariant::~SelectedVariant() {
  VariantIndex = before_;
}

std::vector<int> variantsToTest(const Decoder& decoder) {
  std::vector<int> variants;
  for (int v = 0; v < variantCount; ++v) {
    const SlotTable end = decoder.slots + v;
    if (std::find(decoder.slots, end, decoder.slots[v]) != end) continue;
    if (machineRuns(v))
      variants.push_back(v);
    else
      reportSkipped(v);
  }
  return variants;
}
