// SPDX-License-Identifier: MIT
#include "frame/features.h"

namespace pxm {
namespace {

// Every processor that runs this code has CPUID.
int hasCpuId() {
  return 1;
}

void readCpuId(CpuIdRecord* record, uint32_t leaf, uint32_t subleaf) {
  asm volatile("cpuid"
               : "=a"(record->eax), "=b"(record->ebx), "=c"(record->ecx), "=d"(record->edx)
               : "0"(leaf), "1"(0), "2"(subleaf), "3"(0));
}

uint64_t readXcr0() {
  uint32_t low, high;
  asm volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
  return static_cast<uint64_t>(high) << 32 | low;
}

FeatureMask enabledFeatures = featuresOfEveryProcessor;

constexpr uint32_t osxsaveAndAvx = 0x18000000;  // leaf 1 ecx bits 27 and 28
constexpr uint32_t fma = 0x1000;                // leaf 1 ecx bit 12
constexpr uint32_t avx2 = 0x20;                 // leaf 7 ebx bit 5
constexpr uint32_t bmi1AndBmi2 = 0x108;         // leaf 7 ebx bits 3 and 8

constexpr bool hasAll(uint32_t word, uint32_t bits) {
  return (word & bits) == bits;
}

constexpr FeatureMask when(uint32_t word, int bit, FeatureMask feature) {
  return word >> bit & 1 ? feature : 0;
}

FeatureMask fromLeaf1(const CpuIdRecord& leaf1) {
  return when(leaf1.edx, 23, featureMmx) | when(leaf1.edx, 25, featureSse) |
         when(leaf1.edx, 26, featureSse2) | when(leaf1.ecx, 0, featureSse3) |
         when(leaf1.ecx, 9, featureSsse3) | when(leaf1.ecx, 22, featureMovbe) |
         when(leaf1.ecx, 19, featureSse41) | when(leaf1.ecx, 20, featureSse42) |
         when(leaf1.ecx, 28, featureAvx) | when(leaf1.ecx, 25, featureAes) |
         when(leaf1.ecx, 1, featurePclmulqdq) | when(leaf1.ecx, 30, featureRdrand) |
         when(leaf1.ecx, 29, featureF16c);
}

FeatureMask fromLeaf7(const CpuIdRecord& leaf1, const CpuIdRecord& leaf7) {
  const bool avx2Level =
      hasAll(leaf1.ecx, fma) && hasAll(leaf7.ebx, avx2) && hasAll(leaf7.ebx, bmi1AndBmi2);
  return (avx2Level ? featureAvx2Level : 0) | when(leaf7.ebx, 19, featureAdx) |
         when(leaf7.ebx, 18, featureRdseed) | when(leaf7.ebx, 29, featureSha);
}

CpuIdRecord query(const Processor& processor, uint32_t leaf) {
  CpuIdRecord record;
  processor.ReadCpuId(&record, leaf, 0);
  return record;
}

// The whole mask; leaves that the processor does not offer are not queried.
FeatureMask featureMask(const Processor& processor) {
  const uint32_t highestLeaf = query(processor, 0).eax;
  const uint32_t highestExtendedLeaf = query(processor, 0x80000000).eax;
  const CpuIdRecord leaf1 = query(processor, 1);

  FeatureMask mask = fromLeaf1(leaf1);
  if (hasAll(leaf1.ecx, osxsaveAndAvx) && OsSavesAvxState(processor)) mask |= featureAvxState;
  if ((leaf1.eax & 0xF00) == 0xB00)
    mask |= when(query(processor, 0x20000001).edx, 1, featureCoprocessor);
  if (highestLeaf >= 7) mask |= fromLeaf7(leaf1, query(processor, 7));
  if (highestExtendedLeaf >= 0x80000001)
    mask |= when(query(processor, 0x80000001).ecx, 8, featurePrefetchw);
  if ((leaf1.eax & 0xFF0) == 0xB10) mask |= featureFamilyB1;
  return mask;
}

}  // namespace

constinit const Processor thisProcessor = {hasCpuId, readCpuId, readXcr0};
constinit FeatureMaskCache featureMaskCache = {0, 0};

int OsSavesAvxState(const Processor& processor) {
  if (!hasAll(query(processor, 1).ecx, osxsaveAndAvx)) return 0;
  return (processor.ReadXcr0() & 6) == 6;  // XMM and YMM state
}

uint32_t DetectFeatures(const Processor& processor, FeatureMaskCache& cache, FeatureMask* mask) {
  // The mask is stored before the flag that vouches for it: two threads that meet here must take
  // the same variant. On this architecture these are plain loads and stores.
  if (const uint32_t valid = __atomic_load_n(&cache.valid, __ATOMIC_ACQUIRE)) {
    *mask = __atomic_load_n(&cache.mask, __ATOMIC_RELAXED);
    return valid;
  }
  if (!processor.HasCpuId()) return 0;
  const FeatureMask detected = featureMask(processor);
  __atomic_store_n(&cache.mask, detected, __ATOMIC_RELAXED);
  __atomic_store_n(&cache.valid, 1u, __ATOMIC_RELEASE);
  *mask = detected;
  return 1;
}

pxmStatus GetProcessorInfo(const Processor& processor, FeatureMaskCache& cache, uint64_t* word,
                           CpuIdRecord* record) {
  constexpr uint64_t magic = 0x616F666E69746567;  // "getinfoa" in memory order
  FeatureMask mask;
  if (!DetectFeatures(processor, cache, &mask)) return pxmStatusCpuUnsupported;
  if (word == nullptr) return pxmStatusNullPointer;
  const uint64_t request = *word;
  *word = mask;
  if (record == nullptr) return pxmStatusOk;
  if (request == magic)
    processor.ReadCpuId(record, record->eax, record->ecx);
  else
    processor.ReadCpuId(record, 1, 0);
  return pxmStatusOk;
}

pxmStatus SetEnabledFeatures(FeatureMask mask) {
  // Release: whoever sees this mask sees the variant index that was stored before it.
  __atomic_store_n(&enabledFeatures, mask, __ATOMIC_RELEASE);
  return pxmStatusOk;
}

int TestEnabledFeatures(FeatureMask bits) {
  return (__atomic_load_n(&enabledFeatures, __ATOMIC_RELAXED) & bits) == bits;
}

}  // namespace pxm
