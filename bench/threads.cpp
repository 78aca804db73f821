// SPDX-License-Identifier: MIT
#include "bench/threads.h"

#include <atomic>
#include <memory>
#include <thread>

#include "bench/report.h"
#include "catalogue/variants.h"

namespace {

// Threads that each do their own part of a job when one starts. They wait in a loop for a while, so
// that jobs in a row start at once, and then sleep.
class Team {
 public:
  Team(int size, std::function<void(int)> part) : part_(std::move(part)), size_(size) {
    for (int i = 1; i < size; ++i) threads_.emplace_back([this, i] { work(i); });
  }

  ~Team() {
    ends_ = true;
    start();
    for (std::thread& thread : threads_) thread.join();
  }

  void run() {
    left_ = size_ - 1;
    start();
    part_(0);
    while (left_ > 0) __builtin_ia32_pause();
  }

 private:
  void start() {
    ++job_;
    job_.notify_all();
  }

  void work(int number) {
    for (unsigned done = 0;;) {
      for (int spins = 0; job_ == done && spins < 20000; ++spins) __builtin_ia32_pause();
      job_.wait(done);
      ++done;
      if (ends_) return;
      part_(number);
      --left_;
    }
  }

  std::function<void(int)> part_;
  int size_;
  std::atomic<unsigned> job_ = 0;
  std::atomic<int> left_ = 0;
  std::atomic<bool> ends_ = false;
  std::vector<std::thread> threads_;
};

// Rows from `from` up to `to` of a call: chroma planes with half the rows start at half the place.
CallArguments bandOf(const Images& images, int from, int to) {
  CallArguments band = images.arguments();
  const auto move = [&](auto& pointer, const Plane& plane) {
    if (pointer)
      pointer += static_cast<std::ptrdiff_t>(from) * plane.rows / images.height() * plane.pitch;
  };
  for (std::size_t i = 0; i < images.src().size(); ++i) move(band.src[i], images.src()[i]);
  for (std::size_t i = 0; i < images.dst().size(); ++i) move(band.dst[i], images.dst()[i]);
  band.size.height = to - from;
  return band;
}

// Multiples of four rows, as dithers want, which suit 4:2:0 as well.
std::vector<CallArguments> bandsOf(const Images& images, int count) {
  std::vector<CallArguments> bands;
  for (int i = 0; i < count; ++i) {
    const auto edge = [&](int n) {
      return n == count ? images.height() : images.height() * n / count / 4 * 4;
    };
    bands.push_back(bandOf(images, edge(i), edge(i + 1)));
  }
  return bands;
}

std::vector<int> threadCounts() {
  const int most = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
  std::vector<int> counts;
  for (int n = 1; n < most; n += n < 8 ? 1 : n / 2) counts.push_back(n);
  counts.push_back(most);
  return counts;
}

}  // namespace

ThreadReport timeThreads(const Options& options) {
  const int variant = options.variants.back();
  const SelectedVariant selected(variant);
  const Effort effort =
      options.quick ? Effort{0.5, 7, 51, CLOCK_MONOTONIC} : Effort{2, 15, 201, CLOCK_MONOTONIC};
  ThreadReport report = {
      text("One frame in bands of rows, variant %s: milliseconds of a frame, how many times as "
           "fast as one\nthread\n",
           variantTags[variant]),
      "conversion,width,height,threads,best_ns,median_ns,lower_quartile_ns,upper_quartile_ns,"
      "speedup\n"};
  for (const Size& size : options.sizes)
    for (const Conversion* conversion : options.conversions) {
      const Images images(*conversion, Picture(size.width, size.height));
      std::vector<Candidate> candidates;
      for (const int count : threadCounts()) {
        if (count > size.height / 4) break;
        const auto team =
            std::make_shared<Team>(count, [conversion, bands = bandsOf(images, count)](int i) {
              conversion->call(bands[static_cast<std::size_t>(i)]);
            });
        candidates.push_back(
            {std::to_string(count), "bands", PeerClass::None, {}, [team] { team->run(); }});
      }
      const Timing timing = timeByTurns(candidates, effort);
      report.table +=
          text("\n%-36s %9s", std::string(conversion->name).c_str(), size.name().c_str());
      for (std::size_t i = 0; i < candidates.size(); ++i) {
        const Figure& f = timing.figures[i];
        const double speedup = timing.figures[0].median / f.median;
        report.table +=
            text("  %s: %.3f x%.2f", candidates[i].maker.c_str(), f.median / 1e6, speedup);
        report.csv +=
            text("%s,%d,%d,%s,%.0f,%.0f,%.0f,%.0f,%.3f\n", std::string(conversion->name).c_str(),
                 size.width, size.height, candidates[i].maker.c_str(), f.best, f.median,
                 f.lowerQuartile, f.upperQuartile, speedup);
      }
    }
  report.table += "\n";
  return report;
}
