// SPDX-License-Identifier: MIT
//
// Sources and destinations for the oracle's own tests.

#ifndef TESTS_ORACLE_TEST_IMAGES_H_
#define TESTS_ORACLE_TEST_IMAGES_H_

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/oracle/oracle.h"

namespace oracle {

using Bytes = std::vector<std::uint8_t>;
using Words = std::vector<std::uint16_t>;

// Bytes without a visible pattern.
inline Bytes noise(std::size_t count, std::uint32_t seed) {
  Bytes bytes(count);
  std::uint64_t state = std::uint64_t{seed} * 2654435761 + 1;
  for (std::uint8_t& byte : bytes) {
    state = (state * 1664525 + 1013904223) % 4294967296;
    byte = static_cast<std::uint8_t>(state >> 24);
  }
  return bytes;
}

// The same as signed samples.
using SignedBytes = std::vector<std::int8_t>;
inline SignedBytes signedNoise(std::size_t count, std::uint32_t seed) {
  SignedBytes samples(count);
  const Bytes bytes = noise(count, seed);
  std::transform(bytes.begin(), bytes.end(), samples.begin(),
                 [](std::uint8_t byte) { return static_cast<std::int8_t>(byte); });
  return samples;
}

// Words as they lie in memory.
inline Bytes bytesOf(const Words& words) {
  Bytes bytes;
  for (const std::uint16_t word : words) {
    bytes.push_back(static_cast<std::uint8_t>(word & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(word >> 8));
  }
  return bytes;
}

// The names of the conversions that begin with a word.
inline std::vector<std::string_view> namesFrom(std::string_view word) {
  std::vector<std::string_view> names;
  for (const std::string_view name : conversionNames()) {
    if (name.starts_with(word)) names.push_back(name);
  }
  return names;
}

// A destination whose bytes are untouched at first, with room on both sides of its first row.
class Canvas {
 public:
  static constexpr int kUntouched = 0xA5;

  std::uint8_t* origin() { return &bytes_[index(0)]; }

  int byteAt(int offset) const { return bytes_[index(offset)]; }
  int wordAt(int offset) const { return byteAt(offset) + 256 * byteAt(offset + 1); }

  void putByte(int offset, int value) { bytes_[index(offset)] = static_cast<std::uint8_t>(value); }
  void putWord(int offset, int word) {
    putByte(offset, word & 0xFF);
    putByte(offset + 1, word >> 8);
  }

  friend bool operator==(const Canvas&, const Canvas&) = default;
  friend void PrintTo(const Canvas& canvas, std::ostream* out) {
    for (std::size_t i = 0; i < canvas.bytes_.size(); ++i) {
      const int byte = canvas.bytes_[i];
      if (byte != kUntouched) *out << " [" << static_cast<int>(i) - kMargin << "]=" << byte;
    }
  }

 private:
  static constexpr int kMargin = 512;

  static std::size_t index(int offset) { return static_cast<std::size_t>(kMargin + offset); }

  Bytes bytes_ = Bytes(2 * kMargin, kUntouched);
};

// The canvas on which a function of row and column gives the words of a region.
template <typename Word>
Canvas wordCanvas(int width, int height, int step, Word word) {
  Canvas canvas;
  for (int row = 0; row < height; ++row) {
    for (int column = 0; column < width; ++column) {
      canvas.putWord(row * step + 2 * column, word(row, column));
    }
  }
  return canvas;
}

// Three planes, each of exactly the bytes that a region needs, so that a sanitizer sees every read
// outside of them. The rows are a few bytes apart, and by another pitch in each plane.
struct Planes {
  Bytes plane[3];
  int step[3];

  Planes(int width, int height, int chromaWidth, int chromaHeight) {
    for (int k = 0; k < 3; ++k) {
      const int columns = k == 0 ? width : chromaWidth;
      const int rows = k == 0 ? height : chromaHeight;
      step[k] = columns + 1 + k;
      plane[k] = noise(static_cast<std::size_t>((rows - 1) * step[k] + columns),
                       static_cast<std::uint32_t>(k + 1));
    }
  }

  int at(int k, int row, int column) const {
    return plane[k][static_cast<std::size_t>(row * step[k] + column)];
  }

  DecodeCall call(Canvas& canvas, int dstStep, int width, int height) const {
    return {{plane[0].data(), plane[1].data(), plane[2].data()},
            {step[0], step[1], step[2]},
            canvas.origin(),
            dstStep,
            width,
            height};
  }
};

inline int packedBy(const DecodeName& name, Rgb c, int row, int column) {
  return name.dither ? packDither(c, name.depth, name.bgr, row, column)
                     : packPlain(c, name.depth, name.bgr);
}

}  // namespace oracle

#endif  // TESTS_ORACLE_TEST_IMAGES_H_
