// SPDX-License-Identifier: MIT
// Prints a hash of everything that each conversion writes, in each variant and at many sizes, so
// that two builds of the library can be compared by diff:
//   output_hashes LIBRARY.so [--variants TAG,...] [--sizes full|quick] [--shift BYTES]
// A hash depends on the conversion, the sizes and the bytes that were written, on nothing else:
// variants that write the same have the same hash, and so has any memory that the images stand in.
#include <algorithm>
#include <cinttypes>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "catalogue/loaded_library.h"
#include "catalogue/variants.h"
#include "tests/hashes/images.h"

namespace {

struct Options {
  std::string library;
  std::string variants;  // with a comma after each; empty for all
  bool quick = false;
  std::size_t shift = 0;
};

// A variant that takes part, and the hashes of its outputs in the order of the conversions.
struct Outputs {
  int variant;
  std::string tag;
  std::vector<Hash> hashes;
};

[[noreturn]] void failForUsage() {
  std::fprintf(stderr,
               "usage: output_hashes LIBRARY.so [--variants TAG,...] [--sizes full|quick] "
               "[--shift BYTES]\n");
  std::exit(2);
}

std::size_t parsedShift(const std::string& text) {
  constexpr std::size_t mostDigits = 4;
  if (text.empty() || text.size() > mostDigits ||
      text.find_first_not_of("0123456789") != std::string::npos)
    failForUsage();
  return std::stoul(text);
}

Options parsed(int argc, char** argv) {
  if (argc < 2 || argc % 2 != 0) failForUsage();
  Options options;
  options.library = argv[1];
  for (int i = 2; i < argc; i += 2) {
    const std::string option = argv[i], value = argv[i + 1];
    if (option == "--variants" && !value.empty())
      options.variants = value + ",";
    else if (option == "--sizes" && (value == "full" || value == "quick"))
      options.quick = value == "quick";
    else if (option == "--shift")
      options.shift = parsedShift(value);
    else
      failForUsage();
  }
  return options;
}

std::vector<pxmSize> sizesOf(bool quick) {
  std::vector<pxmSize> sizes;
  for (int width = 1; width <= (quick ? 40 : 100); ++width)
    for (int height = 1; height <= (quick ? 4 : 5); ++height) sizes.push_back({width, height});
  if (quick) return sizes;
  // Many samples for the columns that no block takes.
  for (int width = 1; width <= 35; ++width) sizes.push_back({width, 512});
  const pxmSize large[] = {{640, 16}, {641, 17}, {96, 64},   {95, 63},    {1366, 9},
                           {852, 7},  {1920, 8}, {1023, 33}, {1920, 1080}};
  sizes.insert(sizes.end(), std::begin(large), std::end(large));
  return sizes;
}

std::vector<Pitches> pitchesOf(Kind kind) {
  if (kind == Kind::Twist) return {{0, 0, false}, {13, 21, false}};
  return {{0, 0, false}, {13, 21, false}, {9, 5, true}};
}

struct Matrix {
  float rows[3][4];
};

// The first two are for images of any size. Numbers that are no ordinary ones are slow.
std::vector<Matrix> matricesOf(Kind kind, pxmSize size) {
  constexpr float huge = std::numeric_limits<float>::max(),
                  infinity = std::numeric_limits<float>::infinity(),
                  notANumber = std::numeric_limits<float>::quiet_NaN(),
                  tiny = std::numeric_limits<float>::denorm_min(), nearHalf = 0.50000006f;
  static const std::vector<Matrix> all = {
      {{{0.299f, 0.587f, 0.114f, 0.0f},
        {-0.147f, -0.289f, 0.437f, 12.75f},
        {1.615f, -1.515f, -0.9f, -3.0f}}},
      {{{0.5f, 0.0f, 0.0f, 0.0f}, {0.25f, 0.5f, -0.25f, 0.5f}, {2.0f, -1.5f, 0.5f, 1.5f}}},
      {{{1.0f, 0.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f, 0.0f}, {0.0f, 0.0f, 1.0f, 0.0f}}},
      {{{0.0f, 0.0f, 0.0f, nearHalf}, {0.0f, 0.0f, 0.0f, -nearHalf}, {0.0f, 0.0f, 0.0f, -0.0f}}},
      {{{16777216.0f, 1.0f, -16777216.0f, 1.0f},
        {0.1f, 0.1f, 0.1f, 1e7f},
        {33.3f, -33.3f, 0.03f, 0.007f}}},
      {{{huge, -huge, 1.0f, 0.0f}, {1e30f, 1e30f, -1e30f, huge}, {3e9f, -3e9f, 1.0f, 5e9f}}},
      {{{infinity, 1.0f, 0.0f, 0.0f},
        {0.0f, 1.0f, -infinity, infinity},
        {1.0f, 1.0f, 1.0f, -infinity}}},
      {{{notANumber, 0.0f, 0.0f, 0.0f},
        {0.0f, 1.0f, notANumber, 1.0f},
        {1.0f, 0.0f, 0.0f, notANumber}}},
      {{{tiny, tiny, -tiny, tiny},
        {1e-38f, 1e-39f, 1e-40f, 0.5f},
        {-1e-42f, 1.0f, 1e-45f, -tiny}}}};
  if (kind != Kind::Twist) return {{}};
  const bool isSmall = size.width * size.height <= 1024;
  return {all.begin(), isSmall ? all.end() : all.begin() + 2};
}

// Arguments that a conversion may reject, in place of good ones. A conversion that has no use for
// the argument is called with good ones.
using Fault = void (*)(CallArguments&, Kind);

const Fault faults[] = {
    [](CallArguments& a, Kind) { a.nullSrcPlanes = true; },
    [](CallArguments& a, Kind) { a.nullDstPlanes = true; },
    [](CallArguments& a, Kind) { a.nullTwist = true; },
    [](CallArguments& a, Kind) { a.src[0] = nullptr; },
    [](CallArguments& a, Kind) { a.src[1] = nullptr; },
    [](CallArguments& a, Kind) { a.src[2] = nullptr; },
    [](CallArguments& a, Kind) { a.dst[0] = nullptr; },
    [](CallArguments& a, Kind) { a.dst[1] = nullptr; },
    [](CallArguments& a, Kind) { a.dst[2] = nullptr; },
    [](CallArguments& a, Kind) { a.size.width = 0; },
    [](CallArguments& a, Kind) { a.size.width = -8; },
    [](CallArguments& a, Kind) { a.size.width = INT_MIN; },
    [](CallArguments& a, Kind) { a.size.height = 0; },
    [](CallArguments& a, Kind) { a.size.height = INT_MIN; },
    // Only the twist checks its pitches.
    [](CallArguments& a, Kind kind) {
      if (kind == Kind::Twist) a.srcStep[0] = 0;
    },
    [](CallArguments& a, Kind kind) {
      if (kind == Kind::Twist) a.srcStep[0] = -1;
    },
    [](CallArguments& a, Kind kind) {
      if (kind == Kind::Twist) a.dstStep[0] = 0;
    },
    [](CallArguments& a, Kind kind) {
      if (kind == Kind::Twist) a.dstStep[0] = INT_MIN;
    },
};

// The random numbers of a conversion: the same in every variant.
Numbers numbersFor(const LoadedConversion& conversion, pxmSize size) {
  Hash seed;
  for (const char c : conversion.name) seed.add(static_cast<unsigned char>(c));
  seed.add(static_cast<std::uint64_t>(size.width));
  seed.add(static_cast<std::uint64_t>(size.height));
  return Numbers(seed.value());
}

class Calls {
 public:
  Calls(LoadedLibrary& library, ImageMemory& memory, std::vector<Outputs>& outputs)
      : library_(library), memory_(memory), outputs_(outputs) {}

  void convert(std::size_t conversion, pxmSize size) {
    const LoadedConversion& c = library_.conversions()[conversion];
    Numbers numbers = numbersFor(c, size);
    for (const Pitches pitches : pitchesOf(c.kind)) {
      CallArguments a = memory_.layOut(planesOf(c, size), size, pitches, numbers);
      for (const Matrix& matrix : matricesOf(c.kind, size)) {
        std::memcpy(a.twist, matrix.rows, sizeof a.twist);
        callInEveryVariant(conversion, a);
      }
    }
  }

  // One fault and every pair of them.
  void convertWithFaults(std::size_t conversion) {
    constexpr pxmSize size = {8, 8};
    const LoadedConversion& c = library_.conversions()[conversion];
    Numbers numbers = numbersFor(c, size);
    const CallArguments good = memory_.layOut(planesOf(c, size), size, {0, 0, false}, numbers);
    for (const Fault& first : faults)
      for (const Fault* second = &first; second != std::end(faults); ++second) {
        CallArguments a = good;
        first(a, c.kind);
        (*second)(a, c.kind);
        callInEveryVariant(conversion, a);
      }
  }

  long count() const { return count_; }

 private:
  void callInEveryVariant(std::size_t conversion, const CallArguments& a) {
    for (Outputs& outputs : outputs_) {
      Hash& hash = outputs.hashes[conversion];
      memory_.resetDestinations();
      library_.select(outputs.variant);
      hash.add(static_cast<std::uint64_t>(library_.conversions()[conversion].call(a)));
      memory_.addDestinations(hash);
      ++count_;
    }
  }

  LoadedLibrary& library_;
  ImageMemory& memory_;
  std::vector<Outputs>& outputs_;
  long count_ = 0;
};

// The variants that are wanted and that the machine can run. Takes their tags out of `wanted`.
std::vector<Outputs> outputsOf(LoadedLibrary& library, std::string wanted) {
  const bool all = wanted.empty();
  std::vector<Outputs> outputs;
  for (int variant = 0; variant < variantCount; ++variant) {
    library.select(variant);
    const std::string tag = library.tag();
    const std::size_t at = ("," + wanted).find("," + tag + ",");
    if (!all && at == std::string::npos) continue;
    if (!all) wanted.erase(at, tag.size() + 1);
    if (machineRuns(variant))
      outputs.push_back({variant, tag, std::vector<Hash>(library.conversions().size())});
    else
      std::fprintf(stderr, "skipped: this machine cannot run variant %s\n", tag.c_str());
  }
  if (!wanted.empty())
    throw std::runtime_error("there is no variant " + wanted.substr(0, wanted.size() - 1));
  return outputs;
}

void run(const Options& options) {
  LoadedLibrary library(options.library);
  std::vector<Outputs> outputs = outputsOf(library, options.variants);
  const std::vector<pxmSize> sizes = sizesOf(options.quick);
  pxmSize largest = {0, 0};
  for (const pxmSize size : sizes)
    largest = {std::max(largest.width, size.width), std::max(largest.height, size.height)};
  ImageMemory memory(largest, options.shift);
  Calls calls(library, memory, outputs);
  for (std::size_t conversion = 0; conversion < library.conversions().size(); ++conversion) {
    calls.convertWithFaults(conversion);
    for (const pxmSize size : sizes) calls.convert(conversion, size);
  }

  std::size_t count = 0;
  for (const Outputs& of : outputs)
    for (std::size_t i = 0; i < of.hashes.size(); ++i, ++count)
      std::printf("%s %s %016" PRIx64 "\n", of.tag.c_str(), library.conversions()[i].name.data(),
                  of.hashes[i].value());
  std::printf("%zu outputs, %ld calls\n", count, calls.count());
}

}  // namespace

int main(int argc, char** argv) {
  const Options options = parsed(argc, argv);
  try {
    run(options);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "output_hashes: %s\n", error.what());
    return 1;
  }
}
