// SPDX-License-Identifier: MIT
//
// Encoding calls with three canvases, for the oracle's own tests.

#ifndef TESTS_ORACLE_TEST_ENCODE_H_
#define TESTS_ORACLE_TEST_ENCODE_H_

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_images.h"

namespace oracle {

// A source of exactly the bytes that a conversion may read, and the three planes that it writes.
struct EncodeScene {
  Bytes source;
  Canvas plane[3];
  int step[3] = {24, 13, 11};

  explicit EncodeScene(Bytes bytes) : source(std::move(bytes)) {}
  explicit EncodeScene(const Words& words) : source(bytesOf(words)) {}

  int run(std::string_view name, int srcStep, int width, int height,
          Variant variant = Variant::mx) {
    return encode(name, variant,
                  {first(),
                   srcStep,
                   {plane[0].origin(), plane[1].origin(), plane[2].origin()},
                   {step[0], step[1], step[2]},
                   width,
                   height});
  }

  // An empty source still has an address, at which no byte may be read.
  const std::uint8_t* first() const {
    static const std::uint8_t last[1] = {};
    return source.empty() ? last + 1 : source.data();
  }

  std::uint16_t word(int offset) const {
    const auto at = static_cast<std::size_t>(offset);
    return static_cast<std::uint16_t>(source[at] | source[at + 1] << 8);
  }
};

// The canvas on which rows of bytes lie a pitch apart.
inline Canvas byteRows(const std::vector<std::vector<int>>& rows, int step) {
  Canvas canvas;
  for (int row = 0; const std::vector<int>& bytes : rows) {
    for (int column = 0; const int byte : bytes) canvas.putByte(row * step + column++, byte);
    ++row;
  }
  return canvas;
}

inline Rgb unpackFor(std::string_view name, std::uint16_t word) {
  if (name.starts_with("BGR555")) return unpackBgr555(word);
  return name.starts_with("BGR565") ? unpackBgr565(word) : unpackRgb565(word);
}

// The components of a group of pixels, added.
struct GroupSums {
  int r = 0, g = 0, b = 0;
  std::int64_t weight = 0;
  void add(Rgb c) {
    r += c.r;
    g += c.g;
    b += c.b;
    weight += encodeYuvWeight(c);
  }
};

}  // namespace oracle

#endif  // TESTS_ORACLE_TEST_ENCODE_H_
