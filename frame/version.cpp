// SPDX-License-Identifier: MIT
// The version records, and one entry of legacy90pxmccGetLibVersion for each variant.
#include "frame/features.h"

namespace {

constexpr pxmVersionRecord record(const char* tag, const char* label) {
  return {9, 0, 0, -1, {tag[0], tag[1]}, label, "9.0 Legacy (r48491) (-)", "Oct 14 2015"};
}

// A variant has one record, or a second one for processors with SSE4.2.
#define VARIANT(tag, kernels, depth_kernels, needs, knows, label, plus)   \
  constexpr pxmVersionRecord record_##tag = record(#tag, label);          \
  constexpr pxmVersionRecord recordPlus_##tag = record(#tag, label plus); \
  constexpr bool isTwofold_##tag = sizeof plus > 1;
#include "frame/variants.def"

}  // namespace

#pragma GCC visibility push(hidden)
extern "C" {

#define VARIANT(tag, ...)                                                                         \
  const pxmVersionRecord* GetLibVersion_##tag() {                                                 \
    if (isTwofold_##tag && pxm::TestEnabledFeatures(pxm::featureSse42)) return &recordPlus_##tag; \
    return &record_##tag;                                                                         \
  }
#include "frame/variants.def"
}
#pragma GCC visibility pop
