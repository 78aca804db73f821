// SPDX-License-Identifier: MIT
#ifndef TESTS_ORACLE_SAMPLES_H_
#define TESTS_ORACLE_SAMPLES_H_

namespace oracle {

// Calls visit(y, first chroma, second chroma) for all 2^24 inputs of a form.
template <typename Visit>
void forAllSamples(Visit visit) {
  for (int y = 0; y < 256; ++y) {
    for (int u = 0; u < 256; ++u) {
      for (int v = 0; v < 256; ++v) visit(y, u, v);
    }
  }
}

}  // namespace oracle

#endif  // TESTS_ORACLE_SAMPLES_H_
