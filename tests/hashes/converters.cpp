// SPDX-License-Identifier: MIT
#include "tests/hashes/converters.h"

#include "catalogue/variants.h"
#include "tests/support/by_oracle.h"

namespace {

class OfLibrary : public Converter {
 public:
  explicit OfLibrary(const std::string& path) : library_(path) {
    for (int v = 0; v < variantCount; ++v) runs_[v] = machineRuns(v);
  }

  const std::vector<LoadedConversion>& conversions() const override {
    return library_.conversions();
  }

  bool runs(int variant) const override { return runs_[variant]; }

  // Variants of one level have its kernels.
  int sameCodeAs(int variant, Kind kind) const override {
    int first = 0;
    while (kernelLevel(first, kind) != kernelLevel(variant, kind)) ++first;
    return first;
  }

  int convert(const LoadedConversion& c, int variant, const CallArguments& a) override {
    library_.select(variant);
    return c.call(a);
  }

 private:
  LoadedLibrary library_;
  bool runs_[variantCount];
};

class OfOracle : public Converter {
 public:
  const std::vector<LoadedConversion>& conversions() const override { return conversions_; }

  bool runs(int) const override { return true; }

  // The oracle tells the scalar variant and that of AVX2 from the others, and no two of those.
  int sameCodeAs(int variant, Kind) const override {
    const oracle::Variant v = oracleVariant(variant);
    if (v == oracle::Variant::mx || v == oracle::Variant::l9) return variant;
    return variantNamed("m7");
  }

  int convert(const LoadedConversion& c, int variant, const CallArguments& a) override {
    return convertByOracle({c.name, c.kind, nullptr}, variant, a);
  }

 private:
  const std::vector<LoadedConversion> conversions_ = {
#define ROW(name, kind) {#name, kind, nullptr, nullptr},
#define DECODE(name, ...) ROW(name, Kind::Decode)
#define ENCODE(name, ...) ROW(name, Kind::Encode)
#define DEPTH(name, ...) ROW(name, Kind::Depth)
#define TWIST(name, ...) ROW(name, Kind::Twist)
#include "frame/conversions.def"
#undef ROW
  };
};

}  // namespace

std::unique_ptr<Converter> converterOfLibrary(const std::string& path) {
  return std::make_unique<OfLibrary>(path);
}

std::unique_ptr<Converter> converterOfOracle() {
  return std::make_unique<OfOracle>();
}
