// SPDX-License-Identifier: MIT
#include "tests/examples/example.h"

#include <algorithm>

#include "catalogue/conversions.h"
#include "catalogue/variants.h"

namespace examples {

bool isIn(In in, int variant) {
  const std::string_view tag = variantTags[variant];
  switch (in) {
    case In::Every:
      return true;
    case In::Scalar:
      return tag == "mx";
    case In::Simd:
      return tag != "mx";
    case In::L9:
      return tag == "l9";
    case In::SimdButL9:
      return tag != "mx" && tag != "l9";
  }
  return false;
}

Bytes words(const std::vector<int>& values) {
  Bytes bytes;
  for (const int value : values) {
    bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(value >> 8));
  }
  return bytes;
}

Bytes words(int count, int value) {
  return words(std::vector<int>(static_cast<std::size_t>(count), value));
}

Bytes samples(int count, int value) {
  return Bytes(static_cast<std::size_t>(count), static_cast<std::uint8_t>(value));
}

Bytes signedSamples(const std::vector<int>& values) {
  Bytes bytes;
  for (const int value : values) bytes.push_back(static_cast<std::uint8_t>(value));
  return bytes;
}

Source placed(int pitch, const std::vector<Stored>& rows) {
  int lowest = 0, end = 0;
  for (const Stored& row : rows) {
    lowest = std::min(lowest, row.offset);
    end = std::max(end, row.offset + static_cast<int>(row.bytes.size()));
  }
  Source source = {samples(end - lowest, 0x99), pitch, -lowest};
  for (const Stored& row : rows)
    std::copy(row.bytes.begin(), row.bytes.end(), source.bytes.begin() + row.offset - lowest);
  return source;
}

Target rows(int pitch, const std::vector<Bytes>& bytes) {
  Target target{pitch, {}};
  for (int row = 0; const Bytes& each : bytes) target.after.push_back({pitch * row++, each});
  return target;
}

Target pixelRows(int pitch, const std::vector<std::vector<int>>& pixels) {
  std::vector<Bytes> bytes;
  for (const std::vector<int>& row : pixels) bytes.push_back(words(row));
  return rows(pitch, bytes);
}

Target equalPixels(int width, int height, int pitch, int value) {
  return rows(pitch, std::vector<Bytes>(static_cast<std::size_t>(height), words(width, value)));
}

Target repeated(int width, int height, const Pattern& pattern) {
  Pattern pixels;
  for (std::size_t row = 0; row < static_cast<std::size_t>(height); ++row) {
    const std::vector<int>& tile = pattern[row % pattern.size()];
    std::vector<int>& all = pixels.emplace_back();
    for (std::size_t x = 0; x < static_cast<std::size_t>(width); ++x)
      all.push_back(tile[x % tile.size()]);
  }
  return pixelRows(2 * width, pixels);
}

std::vector<int> twoParts(int columns, int value, int width, int other) {
  std::vector<int> row(static_cast<std::size_t>(width), other);
  std::fill_n(row.begin(), columns, value);
  return row;
}

// The thresholds are 289 times 0 8 2 10, 12 4 14 6, 3 11 1 9 and 15 7 13 5, and 2816 is 9.7 times.
const Pattern grey96 = {{0x666, 0x666, 0x666, 0x555},
                        {0x555, 0x666, 0x555, 0x666},
                        {0x666, 0x555, 0x666, 0x666},
                        {0x555, 0x666, 0x555, 0x666}};

std::vector<std::string_view> namesOf(std::string_view front, std::string_view back, Kinds kinds) {
  std::vector<std::string_view> names;
  for (const Conversion& c : conversions()) {
    const bool wanted = kinds == Kinds::Both || c.has("Dither") == (kinds == Kinds::Dither);
    if (wanted && c.name.starts_with(front) && c.name.ends_with(back)) names.push_back(c.name);
  }
  return names;
}

}  // namespace examples
