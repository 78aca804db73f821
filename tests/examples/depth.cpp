// SPDX-License-Identifier: MIT
// 16-bit pixels to 24-bit pixels and back. Names do not exchange bytes: the low field goes with
// byte 0.
#include <string>

#include "tests/examples/example.h"

namespace examples {
namespace {

using Names = std::vector<std::string_view>;

const Names expand = {"BGR565ToBGR_16u8u_C3R", "RGB565ToRGB_16u8u_C3R"};
const Names pack = {"BGRToBGR565_8u16u_C3R", "RGBToRGB565_8u16u_C3R"};

// Pixels that lose nothing.
const struct {
  int word;
  Bytes bytes;
} pixels[] = {
    {0xFFFF, {248, 252, 248}}, {0x0821, {8, 4, 8}},       {0x0000, {0, 0, 0}},
    {0x001F, {248, 0, 0}},     {0x07E0, {0, 252, 0}},     {0xF800, {0, 0, 248}},
    {0x8410, {128, 128, 128}}, {0x7BEF, {120, 124, 120}},
};

// A row of them, over and over.
struct Row {
  std::vector<int> words;
  Bytes bytes;

  explicit Row(int width) {
    for (int x = 0; x < width; ++x) {
      const auto& pixel = pixels[x % 8];
      words.push_back(pixel.word);
      bytes.insert(bytes.end(), pixel.bytes.begin(), pixel.bytes.end());
    }
  }
};

}  // namespace

std::vector<Example> depth() {
  std::vector<Example> all = {
      {"low bits are dropped",
       pack,
       6,
       1,
       {{{255, 255, 255, 7, 3, 7, 255, 0, 0, 0, 255, 0, 0, 0, 255, 15, 7, 15}, 18}},
       {pixelRows(12, {{0xFFFF, 0x0000, 0x001F, 0x07E0, 0xF800, 0x0821}})}},

      // Pixels of 0x0821 are 8, 4, 8; of 0x001F 248, 0, 0.
      {"an odd pitch of 16-bit pixels that are read loses its low bit",
       expand,
       5,
       3,
       {placed(21, {{0, words(5, 0x0821)}, {20, words(5, 0)}, {40, words(5, 0xFFFF)}})},
       {rows(17, {{8, 4, 8, 8, 4, 8, 8, 4, 8, 8, 4, 8, 8, 4, 8},
                  samples(15, 0),
                  {248, 252, 248, 248, 252, 248, 248, 252, 248, 248, 252, 248, 248, 252, 248}})}},
      {"a negative odd pitch of 16-bit pixels that are read grows",
       expand,
       1,
       3,
       {placed(-21, {{0, words({0})}, {-22, words({0x0821})}, {-44, words({0x001F})}})},
       {rows(3, {{0, 0, 0}, {8, 4, 8}, {248, 0, 0}})}},
      {"an odd pitch of 16-bit pixels that are stored loses its low bit",
       pack,
       2,
       3,
       {placed(7, {{0, {8, 4, 8, 8, 4, 8}}, {7, samples(6, 0)}, {14, samples(6, 255)}})},
       {{21, {{0, words(2, 0x0821)}, {20, words(2, 0)}, {40, words(2, 0xFFFF)}}}}},
      {"a negative odd pitch of 16-bit pixels that are stored grows",
       pack,
       2,
       3,
       {placed(7, {{0, {8, 4, 8, 8, 4, 8}}, {7, samples(6, 0)}, {14, samples(6, 255)}})},
       {{-21, {{0, words(2, 0x0821)}, {-22, words(2, 0)}, {-44, words(2, 0xFFFF)}}}}},
      {"pitch one of 16-bit pixels that are stored is zero, which keeps the last row",
       pack,
       2,
       2,
       {placed(7, {{0, {8, 4, 8, 8, 4, 8}}, {7, samples(6, 255)}})},
       {{1, {{0, words(2, 0xFFFF)}}}}},
      {"an odd pitch of bytes that are stored stays odd",
       expand,
       2,
       3,
       {placed(4, {{0, words(2, 0x0821)}, {4, words(2, 0)}, {8, words(2, 0xFFFF)}})},
       {rows(-17, {{8, 4, 8, 8, 4, 8}, samples(6, 0), {248, 252, 248, 248, 252, 248}})}},
      {"pitch one of bytes keeps the later of two rows",
       expand,
       2,
       3,
       {placed(4, {{0, words(2, 0x0821)}, {4, words(2, 0)}, {8, words(2, 0xFFFF)}})},
       {rows(1, {{8}, {0}, {248, 252, 248, 248, 252, 248}})}},
      {"a negative odd pitch of bytes that are read goes upwards",
       pack,
       1,
       3,
       {placed(-13, {{0, {255, 255, 255}}, {-13, {8, 4, 8}}, {-26, {0, 255, 0}}})},
       {pixelRows(2, {{0xFFFF}, {0x0821}, {0x07E0}})}},
  };

  // In blocks and after them, there and back.
  for (const int width : {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 31, 32, 33}) {
    const std::string at = ", width " + std::to_string(width);
    const Row row(width);
    all.push_back({"low bits become zero" + at,
                   expand,
                   width,
                   1,
                   {{words(row.words), 2 * width}},
                   {rows(3 * width, {row.bytes})}});
    all.push_back({"expanded pixels come back" + at,
                   pack,
                   width,
                   1,
                   {{row.bytes, 3 * width}},
                   {pixelRows(2 * width, {row.words})}});
  }
  return all;
}

}  // namespace examples
