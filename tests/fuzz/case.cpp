// SPDX-License-Identifier: MIT
#include "tests/fuzz/case.h"

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>

#include "tests/fuzz/numbers.h"

namespace {

constexpr int extremeSizes[] = {INT_MIN, INT_MIN + 1, -65536,      -2,     -1, 0,
                                1,       2,           3,           4,      5,  1 << 20,
                                17,      1073741824,  INT_MAX - 1, INT_MAX};
constexpr int extremePitches[] = {
    INT_MIN, INT_MIN + 1, INT_MIN + 2, -1073741825, -1073741824, -65537,      -1,          0,
    1,       65537,       1073741823,  1073741824,  1073741825,  INT_MAX - 2, INT_MAX - 1, INT_MAX};

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float specialFactors[] = {
    0.0F,     -0.0F,     1.0F,       -1.0F,       0.5F,        -0.5F,        0.25F,       1.5F,
    infinity, -infinity, notANumber, -notANumber, FLT_MAX,     -FLT_MAX,     FLT_MIN,     -FLT_MIN,
    1e-45F,   -1e-45F,   1e-39F,     127.0F,      -128.0F,     127.5F,       126.5F,      -128.5F,
    0x1p31F,  -0x1p31F,  0x1p24F,    16777215.0F, 0.50000006F, -0.50000006F, 0.49999997F, 0x1p-24F};

// One of a table's numbers.
template <class T, std::size_t count>
T chosen(const T (&table)[count], int index) {
  return table[static_cast<std::size_t>(index) % count];
}

Style styleOf(int bits) {
  constexpr Style styles[16] = {
      Style::Ordinary, Style::Ordinary, Style::Ordinary,    Style::Ordinary,
      Style::Ordinary, Style::Ordinary, Style::Ordinary,    Style::Ordinary,
      Style::Ordinary, Style::Tall,     Style::Wide,        Style::Wide,
      Style::Faulty,   Style::Faulty,   Style::ExtremeSize, Style::Far};
  return chosen(styles, bits);
}

// A size below what a conversion takes is rejected.
pxmSize sizeOf(Style style, int width, int height) {
  switch (style) {
    case Style::ExtremeSize:
      return {chosen(extremeSizes, width), chosen(extremeSizes, height)};
    case Style::Tall:
      return {1 + width % mostTall.width, 1 + height % mostTall.height};
    case Style::Wide:
      return {1 + 4 * width, 1 + height % mostWide.height};
    case Style::Far:
      return {1 + width % mostFar.width, 1 + height % mostFar.height};
    default:
      return {1 + width % mostOrdinary.width, 1 + height % mostOrdinary.height};
  }
}

PlaneWish planeFrom(Input& input) {
  PlaneWish wish;
  wish.pitch.style = input.below(16);
  wish.pitch.value = input.byte();
  wish.offset = input.below(64);
  return wish;
}

// Factors between -2 and 2 in steps of a 40th, special ones, and any at all.
float factorFrom(int byte, Numbers& numbers) {
  if (byte < 160) return static_cast<float>(byte - 80) / 40.0F;
  if (byte < 224) return chosen(specialFactors, byte);
  const auto bits = static_cast<std::uint32_t>(numbers.next());
  float any;
  std::memcpy(&any, &bits, sizeof any);
  return any;
}

Fill fillFrom(int byte) {
  constexpr Fill fills[] = {Fill::Random,   Fill::Extremes, Fill::Both,     Fill::Random,
                            Fill::Extremes, Fill::Extremes, Fill::Constant, Fill::Ramp};
  return chosen(fills, byte);
}

}  // namespace

Case decodeCase(const std::uint8_t* bytes, std::size_t size) {
  Input input(bytes, size);
  Case c = {};
  c.conversion = &conversions()[static_cast<std::size_t>(input.byte()) % conversions().size()];
  c.firstVariant = input.byte();
  const int styleBits = input.byte();
  Style style = styleOf(styleBits & 15);
  // Mapping far rows takes as long as many calls.
  if (style == Style::Far && styleBits >> 6 != 0) style = Style::Ordinary;
  c.style = style;
  c.sameImage = styleBits & 16;
  const int width = input.byte(), height = input.byte();
  c.size = sizeOf(style, width, height);
  for (PlaneWish& wish : c.src) wish = planeFrom(input);
  for (PlaneWish& wish : c.dst) wish = planeFrom(input);
  c.badPitches = style == Style::Faulty || style == Style::ExtremeSize;
  const int first = input.below(16), second = input.below(16);
  if (c.badPitches) c.nulls = (1u << first | 1u << second) & 0x1FF;
  const unsigned control = input.byte();
  c.mxcsr = (control & 3) << 13 | (control & 4 ? 0x8000u : 0) | (control & 8 ? 0x40u : 0);
  c.fill = fillFrom(input.byte());
  c.seed = input.word();
  c.seed |= static_cast<std::uint64_t>(input.word()) << 16;
  Numbers numbers(~c.seed);
  for (auto& row : c.twist)
    for (float& factor : row) factor = factorFrom(input.byte(), numbers);
  c.samples = input;
  return c;
}

int pitchFor(const PitchWish& wish, int rowBytes, bool singleRow) {
  switch (wish.style) {
    case 0:
    case 1:
    case 2:
      return rowBytes;
    case 3:
    case 4:
    case 5:
      return rowBytes + wish.value % 64;
    case 6:
      return rowBytes + wish.value;
    case 7:
      return -rowBytes;
    case 8:
    case 9:
      return -rowBytes - wish.value % 64;
    case 10:
      return 0;
    case 11:
      return static_cast<std::int8_t>(wish.value);
    case 12:
      return rowBytes - wish.value % rowBytes;
    case 13:
      return wish.value % rowBytes - rowBytes;
    default:
      return singleRow
                 ? extremePitches[static_cast<std::size_t>(wish.value) % std::size(extremePitches)]
                 : rowBytes + 1;
  }
}
