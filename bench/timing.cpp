// SPDX-License-Identifier: MIT
#include "bench/timing.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

namespace {

// What is timed at once takes this long at least.
constexpr double batchNanoseconds = 100e3;

double nanosecondsOf(clockid_t clock) {
  timespec now;
  clock_gettime(clock, &now);
  return 1e9 * static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec);
}

// Nanoseconds of one cycle of this core, now: additions that wait for one another and take a cycle
// each. On a machine whose clock moves, cycles are as good as that clock is steady.
double timeOneCycle(clockid_t clock) {
  constexpr int chain = 100000;
  const double from = nanosecondsOf(clock);
  long sum = 0, step = 1;
  for (int n = 0; n < chain; n += 10)
    asm volatile(
        "addq %1, %0\n\taddq %1, %0\n\taddq %1, %0\n\taddq %1, %0\n\taddq %1, %0\n\t"
        "addq %1, %0\n\taddq %1, %0\n\taddq %1, %0\n\taddq %1, %0\n\taddq %1, %0"
        : "+r"(sum)
        : "r"(step));
  return (nanosecondsOf(clock) - from) / chain;
}

double quantile(const std::vector<double>& sorted, double share) {
  const double place = share * static_cast<double>(sorted.size() - 1);
  const auto below = static_cast<std::size_t>(place);
  const std::size_t above = std::min(below + 1, sorted.size() - 1);
  return sorted[below] + (place - std::floor(place)) * (sorted[above] - sorted[below]);
}

void select(const Candidate& candidate) {
  if (candidate.select) candidate.select();
}

double timeBatch(const Candidate& candidate, int calls, clockid_t clock) {
  const double from = nanosecondsOf(clock);
  for (int i = 0; i < calls; ++i) candidate.run();
  return (nanosecondsOf(clock) - from) / calls;
}

// Calls that fill a batch, judged by the fastest of a few.
int batchOf(const Candidate& candidate, clockid_t clock) {
  select(candidate);
  double best = timeBatch(candidate, 1, clock);
  for (int i = 0; i < 5 && best < batchNanoseconds; ++i)
    best = std::min(best, timeBatch(candidate, 1, clock));
  return std::max(1, static_cast<int>(std::ceil(batchNanoseconds / std::max(best, 1.0))));
}

// One call before them leaves the caches and the memory of the process as this candidate does, not
// as the one before it did.
double timeRound(const Candidate& candidate, int calls, clockid_t clock) {
  select(candidate);
  candidate.run();
  return timeBatch(candidate, calls, clock);
}

}  // namespace

Figure figureOf(std::vector<double> nanoseconds) {
  std::sort(nanoseconds.begin(), nanoseconds.end());
  return {nanoseconds.front(), quantile(nanoseconds, 0.5), quantile(nanoseconds, 0.25),
          quantile(nanoseconds, 0.75)};
}

bool areEqual(const Figure& a, const Figure& b) {
  return std::abs(a.median - b.median) <= a.spread() + b.spread();
}

Timing timeByTurns(const std::vector<Candidate>& candidates, const Effort& effort) {
  std::vector<int> batches;
  for (const Candidate& candidate : candidates) batches.push_back(batchOf(candidate, effort.clock));

  std::vector<std::vector<double>> times(candidates.size());
  std::vector<double> cycles;
  // What a slow candidate leaves behind lasts for milliseconds: no other one always follows it.
  std::vector<std::size_t> order(candidates.size());
  std::iota(order.begin(), order.end(), 0);
  std::mt19937 random(1);
  const double until = nanosecondsOf(CLOCK_MONOTONIC) + effort.seconds * 1e9;
  int rounds = 0;
  for (; rounds < effort.mostRounds; ++rounds) {
    if (rounds >= effort.leastRounds && nanosecondsOf(CLOCK_MONOTONIC) > until) break;
    cycles.push_back(timeOneCycle(effort.clock));
    std::shuffle(order.begin(), order.end(), random);
    for (const std::size_t i : order)
      times[i].push_back(timeRound(candidates[i], batches[i], effort.clock));
  }

  Timing timing = {{}, figureOf(cycles).median, rounds};
  for (const auto& nanoseconds : times) timing.figures.push_back(figureOf(nanoseconds));
  return timing;
}
