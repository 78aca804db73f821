// SPDX-License-Identifier: MIT
// The variants of a program that is linked to the shared object: the one that the processor gets.
#include <stdexcept>

#include "catalogue/variants.h"

namespace {

int runningVariant() {
  return variantNamed(legacy90pxmccGetLibVersion()->variantTag);
}

}  // namespace

SelectedVariant::SelectedVariant(int variant) : before_(variant) {
  if (variant != runningVariant()) throw std::logic_error("the shared object runs another variant");
}

SelectedVariant::~SelectedVariant() = default;

std::vector<int> runnableVariants() {
  return {runningVariant()};
}
