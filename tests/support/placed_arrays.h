// SPDX-License-Identifier: MIT
// Calls whose arrays of planes and pitches and whose matrix stand where a test puts them.
#ifndef TESTS_SUPPORT_PLACED_ARRAYS_H_
#define TESTS_SUPPORT_PLACED_ARRAYS_H_

#include <cstddef>
#include <vector>

#include "tests/support/exported_calls.h"

// One of the arrays that a call takes: the word that points to it, where it stands in the
// arguments, and its bytes.
struct TakenArray {
  std::size_t word;
  const void* bytes;
  std::size_t size;
  bool isMatrix;
};

// Those of an export, in the order of its arguments. They point into `a`.
std::vector<TakenArray> takenArrays(const Export& e, const CallArguments& a);

// Makes the call with the given words.
pxmStatus callWithWords(const Export& e, const Words& words);

#endif
