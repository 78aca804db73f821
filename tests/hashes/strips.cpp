// SPDX-License-Identifier: MIT
#include "tests/hashes/strips.h"

#include <array>

#include "tests/support/pixel_sums.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t tripleCount = 1u << 24;
constexpr std::uint8_t slackByte = 0x5A, fourthByte = 0xA5;
constexpr int wideWidth = 4096, stripPixels = 65536;

Group groupOf(const LoadedConversion& c) {
  return {c.has("411") ? 4 : c.has("420") || c.has("422") ? 2 : 1, c.has("420") ? 2 : 1};
}

std::string text(Group group) {
  return std::to_string(group.columns) + "x" + std::to_string(group.rows);
}

// Rows that end in every kind of remainder that whole groups leave after blocks of 32, 16 and 8.
int narrowWidth(Group group) {
  return group.columns == 4 ? 44 : group.columns == 2 ? 46 : 47;
}

// The height of a strip: even, so that pairs of rows are whole.
int heightFor(int width) {
  return stripPixels / width / 2 * 2;
}

std::uint32_t groupsIn(pxmSize size, Group group) {
  return static_cast<std::uint32_t>(size.width / group.columns) *
         static_cast<std::uint32_t>(size.height / group.rows);
}

int stripsFor(std::uint32_t count, std::uint32_t inStrip) {
  return static_cast<int>((count + inStrip - 1) / inStrip);
}

Bytes plane(std::uint32_t bytes) {
  return Bytes(bytes + stripSlack, slackByte);
}

// Triples in planes: the first has a sample for each pixel, the others for each group. Groups take
// chroma pairs in a scrambled order, so that neighbours differ in all samples and none keeps step
// with the columns. Over all strips each triple stands once; a shift moves it by that many columns.
std::array<Bytes, 3> triplePlanes(pxmSize size, Group group, std::uint32_t shift, int index) {
  const auto width = static_cast<std::uint32_t>(size.width),
             columns = static_cast<std::uint32_t>(group.columns),
             perGroup = static_cast<std::uint32_t>(group.size()), inRow = width / columns,
             inStrip = groupsIn(size, group), count = tripleCount / perGroup;
  std::array<Bytes, 3> planes = {plane(inStrip * perGroup), plane(inStrip), plane(inStrip)};
  const std::uint32_t first = static_cast<std::uint32_t>(index) * inStrip;
  for (std::uint32_t g = 0; g < inStrip; ++g) {
    const std::uint32_t order = (first + g) * 0x9E3779B1u & (count - 1);
    const std::uint32_t row = g / inRow, column = (g + shift / columns) % inRow;
    planes[1][row * inRow + column] = static_cast<std::uint8_t>(order);
    planes[2][row * inRow + column] = static_cast<std::uint8_t>(order >> 8);
    for (std::uint32_t i = 0; i < perGroup; ++i) {
      const std::uint32_t luma = (order >> 16) * perGroup + (i + shift) % perGroup;
      const std::uint32_t y = row * static_cast<std::uint32_t>(group.rows) + i / columns;
      planes[0][y * width + column * columns + i % columns] = static_cast<std::uint8_t>(luma);
    }
  }
  return planes;
}

// The three planes as one image: three or four bytes a pixel, or Y Cb Y Cr.
Bytes interleaved(const std::array<Bytes, 3>& planes, int pixels, int pixelBytes) {
  Bytes bytes;
  for (std::size_t i = 0; i < static_cast<std::size_t>(pixels); ++i) {
    bytes.push_back(planes[0][i]);
    if (pixelBytes == 2) bytes.push_back(planes[i % 2 ? 2 : 1][i / 2]);
    if (pixelBytes >= 3) bytes.insert(bytes.end(), {planes[1][i], planes[2][i]});
    if (pixelBytes == 4) bytes.push_back(fourthByte);
  }
  bytes.insert(bytes.end(), stripSlack, slackByte);
  return bytes;
}

void putWord(Bytes& bytes, std::size_t pixel, std::uint32_t word) {
  bytes[2 * pixel] = static_cast<std::uint8_t>(word);
  bytes[2 * pixel + 1] = static_cast<std::uint8_t>(word >> 8);
}

Strip emptyWords(pxmSize size) {
  return {size, {plane(2 * static_cast<std::uint32_t>(size.width * size.height))}};
}

// Every word, in rows of words that are far apart. A shift moves each of them through its row.
Strip allWords(pxmSize size, int shift) {
  Strip strip = emptyWords(size);
  const auto width = static_cast<std::uint32_t>(size.width);
  const auto pixels = width * static_cast<std::uint32_t>(size.height);
  for (std::uint32_t i = 0; i < pixels; ++i)
    putWord(strip.planes[0], i / width * width + (i + static_cast<std::uint32_t>(shift)) % width,
            i * 40503u);
  return strip;
}

Strip randomWords(pxmSize size, int index) {
  Strip strip = emptyWords(size);
  Numbers numbers(static_cast<std::uint64_t>(index));
  for (std::size_t i = 0; i < strip.planes[0].size() - stripSlack; i += 2)
    putWord(strip.planes[0], i / 2, static_cast<std::uint32_t>(numbers()));
  return strip;
}

Strip allSums(pxmSize size, Group group, const PixelSums& sums, int index) {
  Strip strip = emptyWords(size);
  const auto inRow = static_cast<std::uint32_t>(size.width / group.columns),
             inStrip = groupsIn(size, group);
  for (std::uint32_t g = 0; g < inStrip; ++g) {
    const std::vector<std::uint16_t> pixels =
        sums.pixels(static_cast<std::uint32_t>(index) * inStrip + g);
    for (std::size_t i = 0; i < pixels.size(); ++i) {
      const std::size_t columns = static_cast<std::size_t>(group.columns),
                        row = g / inRow * static_cast<std::size_t>(group.rows) + i / columns,
                        column = g % inRow * columns + i % columns;
      putWord(strip.planes[0], row * static_cast<std::size_t>(size.width) + column, pixels[i]);
    }
  }
  return strip;
}

int pixelBytesOf(const LoadedConversion& c) {
  if (c.has("_C2C3R")) return 2;
  if (c.has("AC4")) return 4;
  return c.has("P3C3R") || c.has("P3R") ? 1 : 3;
}

}  // namespace

Domain::Domain(const LoadedConversion& c) {
  const bool words = c.kind == Kind::Encode || c.has("_16u8u_");
  if (words)
    addWords(c, groupOf(c));
  else
    addTriples(c, groupOf(c));
}

void Domain::addTriples(const LoadedConversion& c, Group group) {
  const int pixelBytes = pixelBytesOf(c);
  constexpr const char* forms[] = {"-planes", "-2-bytes", "-3-bytes", "-4-bytes"};
  name_ = "triples-" + text(group) + forms[pixelBytes - 1];
  const auto add = [&](int width, std::uint32_t shift) {
    const pxmSize size = {width, heightFor(width)};
    const std::uint32_t count = tripleCount / static_cast<std::uint32_t>(group.size());
    parts_.push_back({stripsFor(count, groupsIn(size, group)), [=](int index) -> Strip {
                        auto planes = triplePlanes(size, group, shift, index);
                        if (pixelBytes == 1) return {size, {planes.begin(), planes.end()}};
                        return {size, {interleaved(planes, size.width * size.height, pixelBytes)}};
                      }});
  };
  add(wideWidth, 0);
  add(wideWidth, 1);
  add(narrowWidth(group), 0);
  add(group.columns, 0);  // no block, or, in 4:1:1 and in YUV, the smallest
}

void Domain::addWords(const LoadedConversion& c, Group group) {
  const PixelFormat format = formatOf(c.name);
  name_ = "words-" + text(group) + "-" + nameOf(format);
  const int narrow = narrowWidth(group);
  const pxmSize wide = {wideWidth, heightFor(wideWidth)};
  constexpr int places = 32, randomStrips = 64;
  parts_.push_back({places, [=](int shift) { return allWords(wide, shift); }});
  // A row more or two: the last one starts again.
  parts_.push_back({narrow, [=](int shift) {
                      return allWords({narrow, heightFor(narrow) + 2}, shift);
                    }});
  parts_.push_back({randomStrips, [=](int index) { return randomWords(wide, index); }});
  if (group.size() == 1) return;
  const PixelSums sums(format, static_cast<unsigned>(group.size()));
  parts_.push_back({stripsFor(sums.count(), groupsIn(wide, group)),
                    [=](int index) { return allSums(wide, group, sums, index); }});
}

int Domain::strips() const {
  int all = 0;
  for (const Part& part : parts_) all += part.strips;
  return all;
}

Strip Domain::strip(int index) const {
  const Place place = placeOf(index);
  return parts_[place.part].strip(place.index);
}

bool Domain::isSampled(int index) const {
  return placeOf(index).index == 0;
}

Domain::Place Domain::placeOf(int index) const {
  std::size_t part = 0;
  for (; index >= parts_[part].strips; ++part) index -= parts_[part].strips;
  return {part, index};
}
