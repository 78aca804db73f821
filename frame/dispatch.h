// SPDX-License-Identifier: MIT
// From the feature mask to the variant: what start-up decides and where it stores it.
#ifndef PXM_FRAME_DISPATCH_H
#define PXM_FRAME_DISPATCH_H

#include "frame/features.h"

#pragma GCC visibility push(hidden)

// The slot that every exported name jumps through: -1 until start-up, then 0 to 6. The stubs read
// it, and tools and tests find it by this name in the shared object's symbol table.
extern "C" int32_t VariantIndex;

// The load-time entry: starts the library when `reason` is processAttach and does nothing at any
// other notification. Always 1: the library always loads.
extern "C" int pxmLibraryEntry(void* module, unsigned reason, void* reserved);

// legacy90pxmccInit under a name that no other object can take over.
extern "C" pxmStatus pxmStartUp();

namespace pxm {

constexpr unsigned processAttach = 1;

// variant_mx is 0, and the others follow in slot order.
enum Variant : int {
#define VARIANT(tag, ...) variant_##tag,
#include "frame/variants.def"
};

// A variant, and the features that it knows about.
struct Selection {
  Variant variant;
  FeatureMask enabled;
};

// The best variant for a processor; scalar code where `detection` is not pxmStatusOk.
Selection selectVariant(pxmStatus detection, FeatureMask mask);

// 1 when leaf 0 spells the vendor that the library favours, else 0.
int IsFavouredVendor(const CpuIdRecord& leaf0);

// Status of start-up: that of detection, unless the vendor is another. The warning about the vendor
// takes precedence.
pxmStatus startUpStatus(pxmStatus detection, int hasCpuId, int favouredVendor);

// Detects, selects and stores; start-up with every input named.
pxmStatus startUp(const Processor& processor, FeatureMaskCache& cache);

}  // namespace pxm

#pragma GCC visibility pop

#endif
