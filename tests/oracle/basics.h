// SPDX-License-Identifier: MIT
//
// What all the parts of the oracle speak of.

#ifndef TESTS_ORACLE_BASICS_H_
#define TESTS_ORACLE_BASICS_H_

namespace oracle {

// The processor variants, in slot order: mx is 0, l9 is 6. All but mx are vector variants. Depth
// conversion alone is the same in all seven for every input.
enum class Variant { mx, m7, u8, n8, y8, e9, l9 };

// The three components of a pixel, each 0 to 255.
struct Rgb {
  int r;
  int g;
  int b;
  friend bool operator==(const Rgb&, const Rgb&) = default;
};

}  // namespace oracle

#endif  // TESTS_ORACLE_BASICS_H_
