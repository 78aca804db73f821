// SPDX-License-Identifier: MIT
// The variants behind the exported names: which there are, which run, and how to take one. A
// variant is a number, its row in frame/variants.def.
#ifndef CATALOGUE_VARIANTS_H_
#define CATALOGUE_VARIANTS_H_

#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/conversions.h"

inline constexpr const char* variantTags[] = {
#define VARIANT(tag, ...) #tag,
#include "frame/variants.def"
};
inline constexpr int variantCount = static_cast<int>(std::size(variantTags));

// The variant with a tag; throws where the table has none.
inline int variantNamed(std::string_view tag) {
  for (int v = 0; v < variantCount; ++v)
    if (tag == variantTags[v]) return v;
  throw std::invalid_argument("frame/variants.def has no variant '" + std::string(tag) + "'");
}

// The level whose kernels convert for a variant.
inline std::string_view kernelLevel(int variant, Kind kind) {
  static constexpr struct {
    std::string_view kernels, depthKernels;
  } levels[] = {
#define VARIANT(tag, kernels, depth_kernels, ...) {#kernels, #depth_kernels},
#include "frame/variants.def"
  };
  return kind == Kind::Depth ? levels[variant].depthKernels : levels[variant].kernels;
}

// Whether this machine can run a variant.
bool machineRuns(int variant);

// The variants that this machine can run, in slot order; the others are reported once, on standard
// error. PXM_TEST_VARIANTS in the environment, such as "l9" or "mx m7", leaves the others out.
std::vector<int> runnableVariants();

// Of these the first of each level: variants of one level share their kernels, and a kernel needs
// no second proof.
std::vector<int> runnableLevels(Kind kind);

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
