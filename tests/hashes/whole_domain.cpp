// SPDX-License-Identifier: MIT
// Prints hashes of what each conversion writes, in each variant, for every triple of samples, or
// every pixel and every sum of a chroma group:
//   whole_domain LIBRARY.so|--oracle [--sample] [--progress]
// A line is `CONVERSION VARIANT WHOLE SAMPLE`: the hash over all strips of the conversion's domain,
// and that over the sampled ones. Lines `inputs DOMAIN WHOLE SAMPLE` have the hashes of what was
// converted. Kernels that variants share convert the whole domain once; every variant converts the
// sample by itself. With --sample nothing else is converted and WHOLE is `-`. Both hashes of a
// variant that this machine cannot run are `not-run`.
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "catalogue/variants.h"
#include "tests/hashes/converters.h"
#include "tests/hashes/strips.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

struct Options {
  std::string library;  // empty for the oracle
  bool sampleOnly = false, progress = false;
};

[[noreturn]] void failForUsage() {
  std::fprintf(stderr, "usage: whole_domain LIBRARY.so|--oracle [--sample] [--progress]\n");
  std::exit(2);
}

Options parsed(int argc, char** argv) {
  if (argc < 2) failForUsage();
  Options options;
  if (std::strcmp(argv[1], "--oracle") != 0) options.library = argv[1];
  for (int i = 2; i < argc; ++i) {
    const std::string option = argv[i];
    if (option == "--sample")
      options.sampleOnly = true;
    else if (option == "--progress")
      options.progress = true;
    else
      failForUsage();
  }
  return options;
}

// The hashes of a line.
struct Hashes {
  Hash whole, sample;
};

// Each arrangement of all triples has a matrix of its own. Among their rows are ordinary ones, sums
// that are multiples of a half, and sums that overflow, vanish and are not numbers.
constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float matrices[][3][4] = {
    {{0.299f, 0.587f, 0.114f, 0.0f},
     {-0.147f, -0.289f, 0.437f, 12.75f},
     {1.615f, -1.515f, -0.9f, -3.0f}},
    {{0.5f, 0.5f, 0.0f, 0.5f},
     {infinity, -infinity, 1.0f, 0.0f},
     {16777216.0f, 1.0f, -16777216.0f, 1.0f}},
    {{1.5f, -1.5f, 0.5f, 63.5f},
     {0x1p-24f, 0x1p-126f, 0x1p-149f, 0.5f},
     {1e30f, 1e30f, -1e30f, 3e38f}},
    {{0.25f, 0.5f, -0.25f, -0.5f}, {0.0f, 1.0f, 0.0f, 0.0f}, {-1.0f, -1.0f, -1.0f, 126.5f}}};

// A call that converts a strip, and the memory that it writes to.
class Call {
 public:
  Call(const LoadedConversion& c, const Strip& strip, const float (&matrix)[3][4]) {
    const PlaneSizes planes = planesOf(c, strip.size);
    arguments_.size = strip.size;
    std::memcpy(arguments_.twist, matrix, sizeof arguments_.twist);
    for (std::size_t i = 0; i < planes.src.size(); ++i) {
      arguments_.src[i] = strip.planes[i].data();
      arguments_.srcStep[i] = planes.src[i].rowBytes;
    }
    for (std::size_t i = 0; i < planes.dst.size(); ++i) {
      const int bytes = planes.dst[i].rowBytes * planes.dst[i].rows;
      const std::size_t words = (static_cast<std::size_t>(bytes) + stripSlack) / 8;
      before_.push_back(planes.src.empty() ? strip.planes[i] : Bytes(8 * words, slackByte));
      before_.back().resize(8 * words);
      after_.emplace_back(8 * words);
      arguments_.dst[i] = after_[i].data();
      arguments_.dstStep[i] = planes.dst[i].rowBytes;
    }
  }

  // Adds the status and all that is written, and what is not, to a hash.
  void convert(Converter& converter, const LoadedConversion& c, int variant, Hash& hash) {
    for (std::size_t i = 0; i < after_.size(); ++i)
      std::memcpy(after_[i].data(), before_[i].data(), after_[i].size());
    hash.add(static_cast<std::uint64_t>(converter.convert(c, variant, arguments_)));
    for (const Bytes& plane : after_) hash.add(plane.data(), plane.size());
  }

 private:
  static constexpr std::uint8_t slackByte = 0xC3;
  CallArguments arguments_ = {};
  std::vector<Bytes> before_, after_;
};

// The conversions that have a domain in common.
struct DomainUse {
  Domain domain;
  std::vector<std::size_t> conversions;
  Hashes inputs;
};

std::vector<DomainUse> domainsOf(const std::vector<LoadedConversion>& conversions) {
  std::vector<DomainUse> uses;
  for (std::size_t i = 0; i < conversions.size(); ++i) {
    Domain domain(conversions[i]);
    auto use = uses.begin();
    while (use != uses.end() && use->domain.name() != domain.name()) ++use;
    if (use == uses.end()) use = uses.insert(use, {std::move(domain), {}, {}});
    use->conversions.push_back(i);
  }
  return uses;
}

class Run {
 public:
  Run(Converter& converter, const Options& options)
      : converter_(converter), options_(options), hashes_(converter.conversions().size()) {}

  void convert(DomainUse& use) {
    for (int i = 0; i < use.domain.strips(); ++i) {
      const bool sampled = use.domain.isSampled(i);
      if (options_.sampleOnly && !sampled) continue;
      const Strip strip = use.domain.strip(i);
      for (const Bytes& plane : strip.planes) {
        const std::size_t words = plane.size() / sizeof(std::uint64_t);
        use.inputs.whole.add(plane.data(), words * sizeof(std::uint64_t));
        if (sampled) use.inputs.sample.add(plane.data(), words * sizeof(std::uint64_t));
      }
      const auto& matrix = matrices[use.domain.arrangementOf(i)];
      for (const std::size_t c : use.conversions) convert(c, strip, matrix, sampled);
    }
  }

  void print(const DomainUse& use) const {
    std::printf("inputs %s %s %s\n", use.domain.name().c_str(), whole(use.inputs).c_str(),
                text(use.inputs.sample).c_str());
  }

  // The lines of a conversion; how many have hashes.
  int print(std::size_t conversion) const {
    const LoadedConversion& c = converter_.conversions()[conversion];
    int count = 0;
    for (int v = 0; v < variantCount; ++v) {
      const bool runs = converter_.runs(v);
      const int first = converter_.sameCodeAs(v, c.kind);
      std::printf("%s %s %s %s\n", c.name.data(), variantTags[v],
                  runs ? whole(hashes_[conversion][first]).c_str() : notRun,
                  runs ? text(hashes_[conversion][v].sample).c_str() : notRun);
      count += runs;
    }
    return count;
  }

 private:
  static constexpr const char* notRun = "not-run";

  static std::string text(Hash hash) {
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016" PRIx64, hash.value());
    return digits;
  }

  std::string whole(const Hashes& hashes) const {
    return options_.sampleOnly ? "-" : text(hashes.whole);
  }

  void convert(std::size_t conversion, const Strip& strip, const float (&matrix)[3][4],
               bool sampled) {
    const LoadedConversion& c = converter_.conversions()[conversion];
    Call call(c, strip, matrix);
    for (int v = 0; v < variantCount; ++v) {
      if (!converter_.runs(v)) continue;
      Hashes& hashes = hashes_[conversion][v];
      if (!options_.sampleOnly && converter_.sameCodeAs(v, c.kind) == v)
        call.convert(converter_, c, v, hashes.whole);
      if (sampled) call.convert(converter_, c, v, hashes.sample);
    }
  }

  struct HashesOfVariants {
    Hashes of[variantCount];
    Hashes& operator[](int variant) { return of[variant]; }
    const Hashes& operator[](int variant) const { return of[variant]; }
  };

  Converter& converter_;
  const Options& options_;
  std::vector<HashesOfVariants> hashes_;
};

void run(const Options& options) {
  const std::unique_ptr<Converter> converter =
      options.library.empty() ? converterOfOracle() : converterOfLibrary(options.library);
  Run run(*converter, options);
  std::vector<DomainUse> uses = domainsOf(converter->conversions());
  for (std::size_t i = 0; i < uses.size(); ++i) {
    run.convert(uses[i]);
    if (options.progress) std::fprintf(stderr, "%zu of %zu domains\n", i + 1, uses.size());
  }
  for (const DomainUse& use : uses) run.print(use);
  int count = 0;
  for (std::size_t i = 0; i < converter->conversions().size(); ++i) count += run.print(i);
  std::printf("cases: %d outputs\n", count);
}

}  // namespace

int main(int argc, char** argv) {
  const Options options = parsed(argc, argv);
  try {
    run(options);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "whole_domain: %s\n", error.what());
    return 1;
  }
}
