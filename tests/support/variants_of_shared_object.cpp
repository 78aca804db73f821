// SPDX-License-Identifier: MIT
// The variants of a program that is linked to the shared object: the one that the processor gets.
#include <cstring>
#include <stdexcept>

#include "tests/support/variants.h"

const char* const variantTags[variantCount] = {
#define VARIANT(tag) #tag,
#include "frame/variants.def"
};

namespace {

int runningVariant() {
  for (int v = 0; v < variantCount; ++v)
    if (std::strcmp(variantTags[v], legacy90pxmccGetLibVersion()->variantTag) == 0) return v;
  throw std::logic_error("a variant without a name");
}

}  // namespace

SelectedVariant::SelectedVariant(int variant) : before_(variant) {
  if (variant != runningVariant()) throw std::logic_error("the shared object runs another variant");
}

SelectedVariant::~SelectedVariant() = default;

std::vector<int> runnableVariants() {
  return {runningVariant()};
}
