// SPDX-License-Identifier: MIT
#include "frame/dispatch.h"

constinit int32_t VariantIndex = -1;

namespace pxm {
namespace {

constexpr int avxLevel = 70;

// The gate of a processor level; it stands in the order of tests and is always open.
int LevelAllowed(int) {
  return 1;
}

// What each variant knows about. A bit that a variant does not know is dropped even where the
// processor has it: AVX without the operating system's support does not show in y8.
constexpr FeatureMask enabledMx = 0x7;
constexpr FeatureMask enabledM7 = 0xF;
constexpr FeatureMask enabledU8 = 0x1F;
constexpr FeatureMask enabledN8 = 0x3F;
constexpr FeatureMask enabledY8 = 0x80CDF;
constexpr FeatureMask enabledE9 = 0x86FDF;
constexpr FeatureMask enabledL9 = 0xFEFFF;

constexpr bool hasAll(FeatureMask mask, FeatureMask bits) {
  return (mask & bits) == bits;
}

constexpr uint32_t fourCharacters(const char* text) {
  uint32_t word = 0;
  for (int i = 3; i >= 0; --i) word = word << 8 | static_cast<uint8_t>(text[i]);
  return word;
}

}  // namespace

Selection selectVariant(pxmStatus detection, FeatureMask m) {
  if (detection != pxmStatusOk) return {variant_mx, enabledMx};
  if (hasAll(m, featureAvx | featureAvxState) && LevelAllowed(avxLevel)) {
    if (hasAll(m, featureAvx2Level)) return {variant_l9, m & enabledL9};
    return {variant_e9, m & enabledE9};
  }
  // SSE4.1 before MOVBE: a processor with both takes y8.
  if (hasAll(m, featureSse41)) return {variant_y8, m & enabledY8};
  if (hasAll(m, featureMovbe | featureSsse3)) return {variant_n8, m & enabledN8};
  if (hasAll(m, featureSsse3)) return {variant_u8, m & enabledU8};
  if (hasAll(m, featureSse3)) return {variant_m7, m & enabledM7};
  return {variant_mx, m & enabledMx};
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

extern "C" [[gnu::visibility("default"), gnu::alias("pxmStartUp")]] pxmStatus legacy90pxmccInit();
