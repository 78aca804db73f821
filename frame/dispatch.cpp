// SPDX-License-Identifier: MIT
#include "frame/dispatch.h"

#include "frame/export.h"

constinit int32_t VariantIndex = -1;

namespace pxm {
namespace {

constexpr int avxLevel = 70;

// The gate of a processor level; it stands in the order of tests and is always open.
int LevelAllowed(int) {
  return 1;
}

constexpr bool hasAll(FeatureMask mask, FeatureMask bits) {
  return (mask & bits) == bits;
}

// What a variant needs and what it knows about.
struct Requirements {
  FeatureMask needs, knows;
};

constexpr Requirements requirements[] = {
#define VARIANT(tag, kernels, depth_kernels, needs, knows, label, plus) {needs, knows},
#include "frame/variants.def"
};
constexpr int variantCount = sizeof requirements / sizeof requirements[0];

// The masks of the table are numbers: what a variant needs must be among what it knows about.
#define VARIANT(tag, kernels, depth_kernels, needs, knows, label, plus) \
  static_assert(hasAll(knows, needs));
#include "frame/variants.def"
static_assert(requirements[variant_mx].knows == featuresOfEveryProcessor);

constexpr uint32_t fourCharacters(const char* text) {
  uint32_t word = 0;
  for (int i = 3; i >= 0; --i) word = word << 8 | static_cast<uint8_t>(text[i]);
  return word;
}

}  // namespace

Selection selectVariant(pxmStatus detection, FeatureMask m) {
  if (detection != pxmStatusOk) return {variant_mx, requirements[variant_mx].knows};
  // From the last row up: SSE4.1 comes before MOVBE, so that a processor with both takes y8.
  for (int v = variantCount - 1; v > variant_mx; --v) {
    const auto [needs, knows] = requirements[v];
    if (!hasAll(m, needs)) continue;
    if (hasAll(needs, featureAvx) && !LevelAllowed(avxLevel)) continue;
    return {Variant{v}, m & knows};
  }
  return {variant_mx, m & requirements[variant_mx].knows};
}

int IsFavouredVendor(const CpuIdRecord& leaf0) {
  constexpr const char* vendor = "GenuineOrdin";  // ebx, edx, ecx, four characters in each
  return leaf0.ecx == fourCharacters(vendor + 8) && leaf0.edx == fourCharacters(vendor + 4) &&
         leaf0.ebx == fourCharacters(vendor);
}

pxmStatus startUpStatus(pxmStatus detection, int hasCpuId, int favouredVendor) {
  return hasCpuId && favouredVendor ? detection : pxmStatusForeignCpu;
}

pxmStatus startUp(const Processor& processor, FeatureMaskCache& cache) {
  uint64_t mask = 0;  // zero, so that no magic word asks for a query of its own
  CpuIdRecord record = {};
  const pxmStatus detection = GetProcessorInfo(processor, cache, &mask, &record);
  const Selection selection = selectVariant(detection, mask);
  __atomic_store_n(&VariantIndex, int32_t{selection.variant}, __ATOMIC_RELAXED);
  (void)SetEnabledFeatures(selection.enabled);  // a release store: the index is stored first

  const int hasCpuId = processor.HasCpuId();
  if (hasCpuId) processor.ReadCpuId(&record, 0, 0);
  return startUpStatus(detection, hasCpuId, IsFavouredVendor(record));
}

}  // namespace pxm

pxmStatus pxmStartUp() {
  return pxm::startUp(pxm::thisProcessor, pxm::featureMaskCache);
}

extern "C" PXM_EXPORT [[gnu::alias("pxmStartUp")]] pxmStatus legacy90pxmccInit();
