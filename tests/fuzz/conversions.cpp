// SPDX-License-Identifier: MIT
// Every input is one call of a conversion, or several that are much alike, made in every variant
// that runs here and held to the oracle: the status, MXCSR, and every byte of the memory that all
// planes stand in.
#include <algorithm>

#include "tests/fuzz/case.h"
#include "tests/fuzz/converted.h"
#include "tests/fuzz/rejected.h"

namespace {

// Of sizes that are extreme and yet no reason to reject, what can be converted.
pxmSize withinMost(const Case& c) {
  if (c.style != Style::ExtremeSize) return c.size;
  return {std::min(c.size.width, mostOrdinary.width), std::min(c.size.height, mostOrdinary.height)};
}

// The same case with other samples, more columns and other addresses in each round.
Case varied(const Case& c, int round) {
  Case other = c;
  other.size = withinMost(c);
  other.size.width += round;
  other.seed += static_cast<std::uint64_t>(round) << 32;
  for (int i = 0; i < 3; ++i) {
    other.src[i].offset = (c.src[i].offset + 7 * round) & 63;
    other.dst[i].offset = (c.dst[i].offset + 13 * round) & 63;
  }
  return other;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const Case c = decodeCase(bytes, size);
  const int rejection = rejectionOf(c);
  if (rejection != pxmStatusOk) {
    expectRejection(c, rejection);
  } else if (c.style == Style::Far) {
    expectFarRows(c);
  } else {
    // A fuzzer takes longer to think of an input, and we to place it, than a call takes.
    for (int round = 0; round < 8; ++round) expectConversion(varied(c, round), 4);
  }
  return 0;
}
