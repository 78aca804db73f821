// SPDX-License-Identifier: MIT
// What a run has found, and the questions that the reports ask.
#ifndef BENCH_RESULT_H_
#define BENCH_RESULT_H_

#include <string>
#include <vector>

#include "bench/candidate.h"
#include "bench/timing.h"

struct Size {
  int width, height;

  std::string name() const { return std::to_string(width) + "x" + std::to_string(height); }
  double pixels() const { return static_cast<double>(width) * height; }
};

struct Entry {
  std::string maker, call;
  PeerClass peerClass;
  double psnr;  // of other libraries, against our result
  Figure figure;
};

// One conversion at one size.
class Result {
 public:
  const Conversion* conversion;
  Size size;
  double nanosecondsPerCycle;
  int rounds;
  std::vector<Entry> entries;

  double nanosecondsPerPixel(const Entry& entry) const {
    return entry.figure.median / size.pixels();
  }
  double cyclesPerPixel(const Entry& entry) const {
    return nanosecondsPerPixel(entry) / nanosecondsPerCycle;
  }
  const Entry* variant(int variant) const;  // null if it was not timed
  const Entry& copy() const;                // the faster one
  // The fastest call of one library, or of all where `maker` is empty; null if there is none.
  const Entry* peer(PeerClass peerClass, const std::string& maker = "") const;
  // The peer that stands beside a variant.
  const Entry* peerOf(const Entry& entry) const;
  // The other build's entry for a variant of ours.
  const Entry* otherBuildOf(const Entry& entry) const;

 private:
  const Entry* madeBy(const std::string& maker) const;
};

// How many times as fast as the peer, or as the other build.
double ratio(const Entry& ours, const Entry& peer);

// A peer's call that did something else, at one size or several.
struct LeftOut {
  std::string maker, call, conversion, size;
  double psnr, worstColumn, gain;
};

struct Run {
  std::vector<std::string> environment;  // lines
  std::string against;                   // the other build; empty if there is none
  std::vector<int> variants;
  std::vector<Size> sizes;
  std::vector<Result> results;
  std::vector<LeftOut> leftOut;
};

extern const char* const peerNames[4];

#endif
