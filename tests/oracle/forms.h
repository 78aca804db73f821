// SPDX-License-Identifier: MIT
//
// The decode forms before saturation, for tests that look at their ranges.

#ifndef TESTS_ORACLE_FORMS_H_
#define TESTS_ORACLE_FORMS_H_

#include <cstdint>

namespace oracle {

// The components of a form before they are held to 0..255.
struct Indices {
  std::int64_t r;
  std::int64_t g;
  std::int64_t b;
};

// What luma 16 comes to in the staged and in the wide form.
inline constexpr std::int64_t kStagedBlack = 19527680;
inline constexpr std::int64_t kWideBlack = 1220544;

// What the rounded YUV form adds to red and blue.
inline constexpr std::int64_t kYuvRounding = 32768;

// What the form of 4:1:1 adds to all three components.
inline constexpr std::int64_t kRounding = 32768;

// The offsets of the folded form, one per component.
inline constexpr std::int64_t kFoldedOffsetR = -14608761;
inline constexpr std::int64_t kFoldedOffsetG = 8887730;
inline constexpr std::int64_t kFoldedOffsetB = -18140365;

// The first sample is luma, the others are Cb, Cr or U, V. Samples as stored are 0 to 255; the
// formulas hold for any sample up to a million, which lets a test read a multiplier out exactly.
Indices stagedIndices(int y, int cb, int cr);
Indices wideIndices(int y, int cb, int cr);
Indices foldedIndices(int y, int cb, int cr);
Indices roundedIndices(int y, int cb, int cr);
Indices yuvPlainIndices(int y, int u, int v);
Indices yuvRoundedIndices(int y, int u, int v);
Indices yuvStagedIndices(int y, int u, int v);

}  // namespace oracle

#endif  // TESTS_ORACLE_FORMS_H_
