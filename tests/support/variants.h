// SPDX-License-Identifier: MIT
// The variants behind the exported names: which there are, which run, and how to take one.
#ifndef TESTS_SUPPORT_VARIANTS_H_
#define TESTS_SUPPORT_VARIANTS_H_

#include <vector>

#include "tests/support/calls.h"

inline constexpr int variantCount = 7;
extern const char* const variantTags[variantCount];

// The slot table of a conversion as it stands in the library: entries 0 to 6, and the trampoline at
// -1.
using SlotTable = const void* const*;
SlotTable slotsOf(const Conversion& conversion);

// Whether this machine can run a variant.
bool machineRuns(int variant);

// The variants that this machine can run, in slot order; the others are reported once, on standard
// error. PXM_TEST_VARIANTS in the environment, such as "l9" or "mx m7", leaves the others out.
std::vector<int> runnableVariants();

// Stores VariantIndex for the life of the object: every exported name jumps to that variant.
class SelectedVariant {
 public:
  explicit SelectedVariant(int variant);
  ~SelectedVariant();
  SelectedVariant(const SelectedVariant&) = delete;
  SelectedVariant& operator=(const SelectedVariant&) = delete;

 private:
  [[maybe_unused]] int before_;
};

#endif
