// SPDX-License-Identifier: MIT
#include <cpuid.h>

#include <stdexcept>
#include <string>

#include "catalogue/variants.h"
#include "frame/features.h"

namespace pxm {
namespace {

constexpr FeatureMask variantNeeds[] = {
#define VARIANT(tag, kernels, depth_kernels, needs, ...) needs,
#include "frame/variants.def"
};

bool machineHasMovbe() {
  unsigned eax, ebx, ecx, edx;
  return __get_cpuid(1, &eax, &ebx, &ecx, &edx) && ecx & bit_MOVBE;
}

// Asked without the library, whose own detection is what tests test.
bool machineHas(FeatureMask feature) {
  switch (feature) {
    case featureSse3:
      return __builtin_cpu_supports("sse3");
    case featureSsse3:
      return __builtin_cpu_supports("ssse3");
    case featureMovbe:
      return machineHasMovbe();
    case featureSse41:
      return __builtin_cpu_supports("sse4.1");
    case featureAvx:
    case featureAvxState:
      return __builtin_cpu_supports("avx");  // of the operating system too
    case featureAvx2Level:
      return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma") &&
             __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2");
  }
  throw std::logic_error("catalogue/variants.cpp does not know how to ask for feature bit " +
                         std::to_string(__builtin_ctzll(feature)));
}

bool machineHasAll(FeatureMask needs) {
  for (FeatureMask left = needs; left != 0; left &= left - 1)
    if (!machineHas(left & -left)) return false;
  return true;
}

}  // namespace
}  // namespace pxm

bool machineRuns(int variant) {
  return pxm::machineHasAll(pxm::variantNeeds[variant]);
}
