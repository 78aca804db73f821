// SPDX-License-Identifier: MIT
//
// What all the parts of the oracle speak of.

#ifndef TESTS_ORACLE_BASICS_H_
#define TESTS_ORACLE_BASICS_H_

#include "variants.h"

namespace oracle {

// The three components of a pixel, each 0 to 255.
struct Rgb {
  int r;
  int g;
  int b;
  friend bool operator==(const Rgb&, const Rgb&) = default;
};

}  // namespace oracle

#endif  // TESTS_ORACLE_BASICS_H_
