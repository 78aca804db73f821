// SPDX-License-Identifier: MIT
// One thing to time: a variant of ours, a copy, or a call of another library.
#ifndef BENCH_CANDIDATE_H_
#define BENCH_CANDIDATE_H_

#include <functional>
#include <string>
#include <vector>

#include "bench/images.h"
#include "bench/work.h"
#include "catalogue/loaded_library.h"

// The instructions that another library may use. One that cannot be held to a class is Any and
// stands beside every variant but those of scalar code.
enum class PeerClass { None, Any, Sse4, Avx2 };

struct Candidate {
  std::string maker;  // a variant's tag, the same of another build, "copy", or the other library
  std::string call;
  PeerClass peerClass;
  std::function<void()> select;  // not timed; may be empty
  std::function<void()> run;
};

// What a variant is compared with, by what its row of the table needs: None for scalar code, Avx2
// where it needs AVX, and Sse4 where it needs less.
PeerClass peerClassOf(int variant);
const char* nameOf(PeerClass peerClass);

// Whether a call of class `peer` may stand beside a variant of class `ours`.
inline bool isComparable(PeerClass ours, PeerClass peer) {
  return ours != PeerClass::None && (peer == ours || peer == PeerClass::Any);
}

std::vector<Candidate> ourCandidates(const Conversion& conversion, const Images& images,
                                     const std::vector<int>& variants);

// The same of another build of the library, which stays loaded. Throws std::runtime_error where a
// variant is another one there.
std::vector<Candidate> otherBuildCandidates(LoadedLibrary& other, const Conversion& conversion,
                                            const Images& images, const std::vector<int>& variants);

// Who makes what in another build.
std::string otherBuildMaker(const std::string& tag);

// Two ways to read as many bytes as the sources have and write as many as the destinations have: in
// one piece, and piece by piece. The faster one is the copy.
std::vector<Candidate> copyCandidates(const Images& images);

#endif
