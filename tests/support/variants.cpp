// SPDX-License-Identifier: MIT
#include "tests/support/variants.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "frame/dispatch.h"

extern "C" {
#define CONVERSION(name, family) extern const void* const name##_table[variantCount];
#include "frame/conversions.def"
}

const char* const variantTags[variantCount] = {
#define VARIANT(tag) #tag,
#include "frame/variants.def"
};

namespace {

void reportSkipped(int variant) {
  static bool reported[variantCount];
  if (!reported[variant])
    std::fprintf(stderr, "skipped: this machine cannot run variant %s\n", variantTags[variant]);
  reported[variant] = true;
}

// PXM_TEST_VARIANTS names those that are wanted, in any form that has their tags in it.
bool isWanted(int variant) {
  const char* const wanted = std::getenv("PXM_TEST_VARIANTS");
  return wanted == nullptr || std::strstr(wanted, variantTags[variant]) != nullptr;
}

}  // namespace

SlotTable slotsOf(const Conversion& conversion) {
  static const SlotTable tables[] = {
#define CONVERSION(name, family) name##_table,
#include "frame/conversions.def"
  };
  return tables[std::ranges::find(conversions(), conversion.name, &Conversion::name) -
                conversions().begin()];
}

SelectedVariant::SelectedVariant(int variant) : before_(VariantIndex) {
  VariantIndex = variant;
}
SelectedVariant::~SelectedVariant() {
  VariantIndex = before_;
}

std::vector<int> runnableVariants() {
  std::vector<int> variants;
  for (int v = 0; v < variantCount; ++v) {
    if (!isWanted(v)) continue;
    if (machineRuns(v))
      variants.push_back(v);
    else
      reportSkipped(v);
  }
  return variants;
}
