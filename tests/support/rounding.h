// SPDX-License-Identifier: MIT
// The processor's rounding modes.
#ifndef TESTS_SUPPORT_ROUNDING_H_
#define TESTS_SUPPORT_ROUNDING_H_

#include <xmmintrin.h>

inline constexpr unsigned roundingModes[] = {_MM_ROUND_NEAREST, _MM_ROUND_DOWN, _MM_ROUND_UP,
                                             _MM_ROUND_TOWARD_ZERO};

// Sets the rounding mode for the life of the object.
class RoundingMode {
 public:
  explicit RoundingMode(unsigned mode) : before_(_mm_getcsr()) {
    _mm_setcsr((before_ & ~0x6000u) | mode);
  }
  ~RoundingMode() { _mm_setcsr(before_); }
  RoundingMode(const RoundingMode&) = delete;
  RoundingMode& operator=(const RoundingMode&) = delete;

 private:
  unsigned before_;
};

#endif
