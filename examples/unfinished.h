// SPDX-License-Identifier: MIT
// A file that must not outlive the program if a signal ends it.
#ifndef PXM_EXAMPLES_UNFINISHED_H
#define PXM_EXAMPLES_UNFINISHED_H

#include <string>

namespace examples {

/// Notes the one file that is being written: the signals by which people and systems end programs
/// delete it first. The empty name forgets it.
void noteUnfinished(const std::string& path);

/// Holds these signals back for the life of the object, so that a file and its note change as one.
class HeldSignals {
 public:
  HeldSignals();
  ~HeldSignals();
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;
};

}  // namespace examples

#endif
