// SPDX-License-Identifier: MIT
#include "catalogue/variants.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "frame/dispatch.h"

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

std::vector<int> runnableLevels(Kind kind) {
  std::vector<int> variants;
  for (const int v : runnableVariants())
    if (std::ranges::none_of(variants, [&](int earlier) {
          return kernelLevel(earlier, kind) == kernelLevel(v, kind);
        }))
      variants.push_back(v);
  return variants;
}
