// SPDX-License-Identifier: MIT
#include "tests/support/placed_arrays.h"

#include <algorithm>

#include "tests/support/hand_written_call.h"

std::vector<TakenArray> takenArrays(const Export& e, const CallArguments& a) {
  const struct {
    const void* bytes;
    std::size_t size;
    bool isMatrix;
  } arrays[] = {{a.src, sizeof a.src, false},
                {a.srcStep, sizeof a.srcStep, false},
                {a.dst, sizeof a.dst, false},
                {a.dstStep, sizeof a.dstStep, false},
                {a.twist, sizeof a.twist, true}};
  const Words words = e.words(a);
  std::vector<TakenArray> taken;
  for (std::size_t i = 0; i < words.size(); ++i)
    for (const auto& [bytes, size, isMatrix] : arrays)
      if (words[i] == reinterpret_cast<std::uintptr_t>(bytes))
        taken.push_back({i, bytes, size, isMatrix});
  return taken;
}

pxmStatus callWithWords(const Export& e, const Words& words) {
  std::uint64_t six[6];
  std::copy(words.begin(), words.end(), six);
  const KeptRegisters before = {};
  KeptRegisters after;
  return static_cast<pxmStatus>(handWrittenCall(e.function, six, before, after));
}
