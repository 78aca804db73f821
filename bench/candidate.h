// SPDX-License-Identifier: MIT
// One thing to time: a variant of ours, a copy, or a call of another library.
#ifndef BENCH_CANDIDATE_H_
#define BENCH_CANDIDATE_H_

#include <functional>
#include <string>
#include <vector>

#include "bench/images.h"
#include "bench/work.h"

// The instructions that another library may use. A library that cannot be held to a level is Any
// and stands beside every variant but mx.
enum class Level { None, Any, Sse4, Avx2 };

struct Candidate {
  std::string maker;  // a variant's tag, "copy", or the other library
  std::string call;
  Level level;
  std::function<void()> select;  // not timed; may be empty
  std::function<void()> run;
};

// The level that a variant is compared at: None for mx, Sse4 for m7 to y8, Avx2 for e9 and l9.
Level levelOf(int variant);
const char* nameOf(Level level);

// Whether a call at `peer` may stand beside a variant of `level`.
inline bool isComparable(Level level, Level peer) {
  return level != Level::None && (peer == level || peer == Level::Any);
}

std::vector<Candidate> ourCandidates(const Conversion& conversion, const Images& images,
                                     const std::vector<int>& variants);

// Two ways to read as many bytes as the sources have and write as many as the destinations have: in
// one piece, and piece by piece. The faster one is the copy.
std::vector<Candidate> copyCandidates(const Images& images);

#endif
