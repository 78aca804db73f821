// SPDX-License-Identifier: MIT
// Speed of every conversion in every variant that the machine runs, beside a copy of the same
// bytes.
//
// Method. Each figure is the median of several repetitions, which Google Benchmark interleaves at
// random, so that a change of the machine's load or clock hits all candidates alike. A call goes
// through the exported name, stub included. `640x16` stays in the first caches; the last size does
// not. Cycles are those of the core's clock in this run, measured by a chain of dependent additions
// that take one cycle each; on a machine whose clock moves they are as good as that clock is
// steady.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "tests/support/calls.h"
#include "tests/support/shapes.h"
#include "tests/support/variants.h"

namespace {

struct ImageSize {
  const char* name;
  int width, height;
};
constexpr ImageSize sizes[] = {{"640x16", 640, 16}, {"1920x1080", 1920, 1080}};

// A call and the memory that it works on, rows tight, with room for what a kernel may touch beyond.
class Workload {
 public:
  Workload(const Conversion& conversion, const ImageSize& size) : call_(conversion.call) {
    const Shape shape = shapeOf(conversion, 0, size.width, size.height);
    arguments_.size = {size.width, size.height};
    const float twist[3][4] = {{1, 0.5f, 0, 1}, {0, 1, 0.25f, 2}, {0.125f, 0, 1, 3}};
    std::memcpy(arguments_.twist, twist, sizeof twist);
    for (std::size_t i = 0; i < shape.src.size(); ++i) {
      arguments_.src[i] = allocate(shape.src[i], src_[i]);
      arguments_.srcStep[i] = shape.src[i].rowBytes;
    }
    for (std::size_t i = 0; i < shape.dst.size(); ++i) {
      arguments_.dst[i] = allocate(shape.dst[i], dst_[i]);
      arguments_.dstStep[i] = shape.dst[i].rowBytes;
    }
  }

  void run() const { benchmark::DoNotOptimize(call_(arguments_)); }

  // The same bytes: the sources' are read and the destinations' written.
  void copy() {
    std::size_t read = 0, written = 0;
    for (const auto& plane : src_) read += plane.size();
    for (const auto& plane : dst_) written += plane.size();
    all_.resize(read + written);
    copied_.resize(read + written);
    std::memcpy(copied_.data(), all_.data(), (read + written) / 2);
    benchmark::ClobberMemory();
  }

 private:
  using Bytes = std::vector<std::uint8_t>;

  static std::uint8_t* allocate(const PlaneShape& plane, Bytes& bytes) {
    const auto size =
        static_cast<std::size_t>(plane.rowBytes) * static_cast<std::size_t>(plane.rows);
    bytes.resize(size + 64);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 % 251);
    return bytes.data();
  }

  pxmStatus (*call_)(const CallArguments&);
  CallArguments arguments_ = {};
  Bytes src_[3], dst_[3], all_, copied_;
};

// Nanoseconds of one cycle: additions that wait for one another.
double nanosecondsPerCycle() {
  constexpr int rounds = 20, chain = 100000;
  double best = 1e9;
  for (int i = 0; i < rounds; ++i) {
    timespec from, to;
    clock_gettime(CLOCK_MONOTONIC, &from);
    long sum = 0, step = 1;
    for (int n = 0; n < chain; n += 10)
      asm volatile(
          "addq %1, %0\n\taddq %1, %0\n\taddq %1, %0\n\taddq %1, %0\n\taddq %1, %0\n\t"
          "addq %1, %0\n\taddq %1, %0\n\taddq %1, %0\n\taddq %1, %0\n\taddq %1, %0"
          : "+r"(sum)
          : "r"(step));
    clock_gettime(CLOCK_MONOTONIC, &to);
    const double ns = 1e9 * static_cast<double>(to.tv_sec - from.tv_sec) +
                      static_cast<double>(to.tv_nsec - from.tv_nsec);
    best = std::min(best, ns / chain);
  }
  return best;
}

void measure(benchmark::State& state, const Conversion& conversion, int variant,
             const ImageSize& size) {
  const SelectedVariant selected(variant < 0 ? 0 : variant);
  Workload workload(conversion, size);
  if (variant < 0) workload.copy();
  for (auto _ : state)
    if (variant < 0)
      workload.copy();
    else
      workload.run();
  const double pixels = static_cast<double>(size.width) * size.height;
  state.counters["px"] = benchmark::Counter(pixels, benchmark::Counter::kIsIterationInvariantRate);
}

// Variant -1 is the copy.
std::string nameOf(const Conversion& conversion, int variant, const ImageSize& size) {
  return std::string(size.name) + "/" + std::string(conversion.name) + "/" +
         (variant < 0 ? "copy" : variantTags[variant]);
}

// Collects the medians and prints a table a size: nanoseconds and cycles per pixel.
class Table : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median") {
        const std::string& name = run.run_name.function_name;
        nanoseconds_[name] = 1e9 / run.counters.at("px").value;
      }
      std::fprintf(stderr, "\r%zu figures", nanoseconds_.size());
    }
  }

  void Finalize() override {
    const double cycle = nanosecondsPerCycle();
    std::fprintf(stderr, "\n");
    std::printf("clock %.2f GHz; ns and, in brackets, cycles per pixel\n", 1 / cycle);
    for (const ImageSize& size : sizes) printSize(size, cycle);
  }

 private:
  void printSize(const ImageSize& size, double cycle) const {
    std::printf("\n%-44s", size.name);
    for (int v = -1; v < variantCount; ++v) std::printf(" %13s", v < 0 ? "copy" : variantTags[v]);
    std::printf("\n");
    for (const Conversion& conversion : conversions()) {
      std::string line;
      bool any = false;
      for (int v = -1; v < variantCount; ++v) {
        const auto figure = nanoseconds_.find(nameOf(conversion, v, size));
        char cell[32] = "             -";
        if (figure != nanoseconds_.end()) {
          std::snprintf(cell, sizeof cell, " %6.3f (%4.2f)", figure->second,
                        figure->second / cycle);
          any = true;
        }
        line += cell;
      }
      if (any) std::printf("%-44s%s\n", std::string(conversion.name).c_str(), line.c_str());
    }
  }

  std::map<std::string, double> nanoseconds_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  for (const Conversion& conversion : conversions())
    for (const ImageSize& size : sizes) {
      std::vector<int> variants = runnableVariants();
      variants.push_back(-1);
      for (const int variant : variants)
        benchmark::RegisterBenchmark(nameOf(conversion, variant, size).c_str(),
                                     [&conversion, variant, &size](benchmark::State& state) {
                                       measure(state, conversion, variant, size);
                                     });
    }
  Table table;
  benchmark::RunSpecifiedBenchmarks(&table);
  return 0;
}
