// SPDX-License-Identifier: MIT
// Detection, selection and start-up that are wrong. What they do well is that of
// frame/features.cpp, compiled once more, and of the program.
#include <sched.h>

#include "frame/dispatch.h"
#include "tests/bad_kernels/faults.h"

#define FUNCTION_NAMED(name) __asm__("bad_" #name)

namespace pxm {
namespace {

constexpr FeatureMask needs[] = {
#define VARIANT(tag, kernels, depth_kernels, needs, ...) needs,
#include "frame/variants.def"
};

}  // namespace

uint32_t generousDetection(const Processor& processor, FeatureMaskCache& cache, FeatureMask* mask)
    FUNCTION_NAMED(DoesNotAskTheSystemForAvx);
uint32_t generousDetection(const Processor& processor, FeatureMaskCache& cache, FeatureMask* mask) {
  Processor generous = processor;
  generous.ReadXcr0 = [] { return ~uint64_t{0}; };
  return DetectFeatures(generous, cache, mask);
}

Selection movbeFirst(pxmStatus, FeatureMask mask) FUNCTION_NAMED(TakesMovbeFirst);
Selection movbeFirst(pxmStatus, FeatureMask mask) {
  constexpr Variant order[] = {variant_l9, variant_e9, variant_n8, variant_y8,
                               variant_u8, variant_m7, variant_mx};
  for (const Variant v : order)
    if ((mask & needs[v]) == needs[v]) return {v, mask};
  return {variant_mx, mask};
}

}  // namespace pxm

extern "C" {

[[gnu::visibility("hidden")]] pxmStatus startUpOfTheProgram() {
  using StartUp = pxmStatus(const pxm::Processor&, pxm::FeatureMaskCache&);
  return reinterpret_cast<StartUp*>(goodStartUp)(pxm::thisProcessor, pxm::featureMaskCache);
}

[[gnu::visibility("hidden")]] pxmStatus bad_StartUpStoresAGuess() {
  __atomic_store_n(goodVariantIndex, 0, __ATOMIC_RELAXED);
  sched_yield();
  return startUpOfTheProgram();
}
}
