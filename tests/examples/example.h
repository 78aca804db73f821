// SPDX-License-Identifier: MIT
// Calls with literal arguments and literal results: every number that the tests state about whole
// conversions, stated once. examples_test.cpp holds the oracle and the library to each of them, in
// every variant that it is about.
#ifndef TESTS_EXAMPLES_EXAMPLE_H_
#define TESTS_EXAMPLES_EXAMPLE_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace examples {

using Bytes = std::vector<std::uint8_t>;

// The variants that an example is about.
enum class In { Every, Scalar, Simd, L9, SimdButL9 };
bool isIn(In in, int variant);

// A plane that is read: its bytes, the pitch as it is passed, and where among the bytes the first
// row begins.
struct Source {
  Bytes bytes;
  int pitch = 1;
  int first = 0;
};

// Bytes at a distance from the first row of a plane that is written.
struct Stored {
  int offset;
  Bytes bytes;
};

// A plane that is written: the pitch as it is passed, and what stands there after the call. All
// else, within the rows, between them and on both sides, is as it was.
struct Target {
  int pitch = 1;
  std::vector<Stored> after;
  std::vector<Stored> before = {};  // of note where the call reads it too: in place
  int first = 0;                    // where the first row begins; it does not move the bytes stored
};

struct Example {
  std::string claim;  // a short sentence without the family; no two of a table are the same
  std::vector<std::string_view> names;  // conversions, each of which does this
  int width, height;
  std::vector<Source> src;  // none in place
  std::vector<Target> dst;
  In in = In::Every;
  int status = 0;
  std::vector<float> twist = {};  // the matrix of twelve, row by row
};

// Pixels as they lie in memory.
Bytes words(const std::vector<int>& values);
// `count` pixels, or samples, of one value.
Bytes words(int count, int value);
Bytes samples(int count, int value);

// Samples with a sign, as bytes.
Bytes signedSamples(const std::vector<int>& values);

// Rows to read, at distances from the first one; bytes between them belong to none.
Source placed(int pitch, const std::vector<Stored>& rows);

// Rows that lie exactly a pitch apart.
Target rows(int pitch, const std::vector<Bytes>& bytes);
// The same for pixels.
Target pixelRows(int pitch, const std::vector<std::vector<int>>& pixels);
// `height` rows of `width` equal pixels.
Target equalPixels(int width, int height, int pitch, int value);
// `height` rows of `width` pixels without a gap, which repeat a pattern in both directions.
using Pattern = std::vector<std::vector<int>>;
Target repeated(int width, int height, const Pattern& pattern);
// A row of one value in its first columns and of another in those after them.
std::vector<int> twoParts(int columns, int value, int width, int other);
// Nothing is stored.
inline Target untouched(int pitch) {
  return {pitch, {}};
}

// A grey of 96 dithered to 444: level 5 and a residue of 96 * 256 - 5 * 4352 = 2816, which raises
// it where the threshold is less. No two rows of the pattern are the same, nor are two columns.
extern const Pattern grey96;

// All names of a family: those that begin and end so, with "Dither" in them or without.
enum class Kinds { Plain, Dither, Both };
std::vector<std::string_view> namesOf(std::string_view front, std::string_view back,
                                      Kinds kinds = Kinds::Both);

// The tables, a file each.
std::vector<Example> decode411();
std::vector<Example> decode420();
std::vector<Example> decode422();
std::vector<Example> decode444();
std::vector<Example> decodeYuv420();
std::vector<Example> depth();
std::vector<Example> encode411();
std::vector<Example> encode420();
std::vector<Example> encode422();
std::vector<Example> encodeYuv();
std::vector<Example> twist();

}  // namespace examples

#endif
