// SPDX-License-Identifier: MIT
// What the processor can do, as one 64-bit mask: made of the answers of CPUID and XGETBV, once.
#ifndef PXM_FRAME_FEATURES_H
#define PXM_FRAME_FEATURES_H

#include <stdint.h>

#include "include/pxmcc90lgc.h"

#pragma GCC visibility push(hidden)

namespace pxm {

// One bit a feature. Those from AES on, AVX2 apart, are carried and steer nothing.
using FeatureMask = uint64_t;

constexpr FeatureMask featureNone = 0;
constexpr FeatureMask featureMmx = 0x1;
constexpr FeatureMask featureSse = 0x2;
constexpr FeatureMask featureSse2 = 0x4;
constexpr FeatureMask featureSse3 = 0x8;
constexpr FeatureMask featureSsse3 = 0x10;
constexpr FeatureMask featureMovbe = 0x20;
constexpr FeatureMask featureSse41 = 0x40;
constexpr FeatureMask featureSse42 = 0x80;
constexpr FeatureMask featureAvx = 0x100;
constexpr FeatureMask featureAvxState = 0x200;  // the operating system saves the AVX registers
constexpr FeatureMask featureAes = 0x400;
constexpr FeatureMask featurePclmulqdq = 0x800;
constexpr FeatureMask featureCoprocessor = 0x1000;  // of the family 0xB co-processors
constexpr FeatureMask featureRdrand = 0x2000;
constexpr FeatureMask featureF16c = 0x4000;
constexpr FeatureMask featureAvx2Level = 0x8000;  // AVX2, FMA, BMI1 and BMI2 together
constexpr FeatureMask featureAdx = 0x10000;
constexpr FeatureMask featureRdseed = 0x20000;
constexpr FeatureMask featurePrefetchw = 0x40000;
constexpr FeatureMask featureSha = 0x80000;
constexpr FeatureMask featureFamilyB1 = 0x80000000;  // family 0xB, model nibble 1

// What is enabled until a variant is chosen, and what scalar code knows about.
constexpr FeatureMask featuresOfEveryProcessor = featureMmx | featureSse | featureSse2;

// The answer to one CPUID query.
struct CpuIdRecord {
  uint32_t eax, ebx, ecx, edx;
};

// Where the answers come from: the machine, or a test that makes them up.
struct Processor {
  int (*HasCpuId)();
  void (*ReadCpuId)(CpuIdRecord* record, uint32_t leaf, uint32_t subleaf);
  uint64_t (*ReadXcr0)();  // asked only where CPUID says that XGETBV exists
};

// The processor that runs this code.
extern const Processor thisProcessor;

// The mask of this process. It goes from invalid to valid once and stays.
struct FeatureMaskCache {
  FeatureMask mask;
  uint32_t valid;
};
extern FeatureMaskCache featureMaskCache;

// 1 when the operating system saves XMM and YMM registers, else 0; queries leaf 1 anew.
int OsSavesAvxState(const Processor& processor);

// Writes the mask, queried at the first call and taken from the cache ever after.
// Returns 1, or 0 with nothing written where the processor has no CPUID.
uint32_t DetectFeatures(const Processor& processor, FeatureMaskCache& cache, FeatureMask* mask);

// Replaces *word by the mask and fills record with CPUID leaf 1, or, where *word held the magic
// "getinfoa", with the leaf and sub-leaf that record->eax and record->ecx ask for.
// Returns pxmStatusCpuUnsupported if detection fails, then pxmStatusNullPointer if word is null,
// with nothing written; otherwise pxmStatusOk. A null record is left out.
pxmStatus GetProcessorInfo(const Processor& processor, FeatureMaskCache& cache, uint64_t* word,
                           CpuIdRecord* record);

// The features that the chosen variant knows about; featuresOfEveryProcessor until one is chosen.
pxmStatus SetEnabledFeatures(FeatureMask mask);  // always pxmStatusOk
int TestEnabledFeatures(FeatureMask bits);       // 1 when every bit is enabled, else 0

}  // namespace pxm

#pragma GCC visibility pop

#endif
