// SPDX-License-Identifier: MIT
// Times candidates by turns, round after round and each round in another order, so that whatever
// else the machine does hits all of them alike.
#ifndef BENCH_TIMING_H_
#define BENCH_TIMING_H_

#include <time.h>

#include <vector>

#include "bench/candidate.h"

// Nanoseconds of one call over the rounds.
struct Figure {
  double best = 0, median = 0, lowerQuartile = 0, upperQuartile = 0;

  // Half the distance of the quartiles.
  double spread() const { return (upperQuartile - lowerQuartile) / 2; }
};

Figure figureOf(std::vector<double> nanoseconds);

// Medians no further apart than their two spreads together.
bool areEqual(const Figure& a, const Figure& b);

struct Effort {
  double seconds;  // for all candidates of one conversion and size
  int leastRounds, mostRounds;
  // The time of the calling thread does not count what other processes take from it.
  clockid_t clock = CLOCK_THREAD_CPUTIME_ID;
};

struct Timing {
  std::vector<Figure> figures;  // of the candidates, in their order
  double nanosecondsPerCycle;
  int rounds;
};

Timing timeByTurns(const std::vector<Candidate>& candidates, const Effort& effort);

#endif
