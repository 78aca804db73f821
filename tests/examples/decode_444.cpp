// SPDX-License-Identifier: MIT
// 4:4:4 to 16-bit pixels. Nominal black, nominal white and saturated red are (0, 0, 0), (254, 254,
// 254) and (254, 0, 0) in every form; samples that tell the forms apart are named.
#include "tests/examples/example.h"

namespace examples {
namespace {

struct Colour {
  int y, cb, cr;
};
constexpr Colour black = {16, 128, 128}, white = {235, 128, 128}, fullWhite = {255, 128, 128};
constexpr Colour red = {81, 90, 240};

// An image of these pixels, row after row, in either layout.
std::vector<Source> interleaved(int pitch, const std::vector<Colour>& pixels, int first = 0) {
  Bytes bytes;
  for (const Colour& c : pixels)
    for (const int sample : {c.y, c.cb, c.cr}) bytes.push_back(static_cast<std::uint8_t>(sample));
  return {{bytes, 3 * pitch, 3 * first}};
}
std::vector<Source> planar(int pitch, const std::vector<Colour>& pixels, int first = 0) {
  std::vector<Source> planes(3);
  for (const Colour& c : pixels) {
    planes[0].bytes.push_back(static_cast<std::uint8_t>(c.y));
    planes[1].bytes.push_back(static_cast<std::uint8_t>(c.cb));
    planes[2].bytes.push_back(static_cast<std::uint8_t>(c.cr));
  }
  for (Source& plane : planes) plane.first = first;
  planes[0].pitch = pitch;  // that of all three
  return planes;
}

std::vector<Colour> all(int width, int height, Colour colour) {
  return std::vector<Colour>(static_cast<std::size_t>(width * height), colour);
}

// What holds in both layouts, of names that begin so. The source pitch is in pixels.
struct InBoth {
  std::string claim, front;
  Kinds kinds;
  int width, height, pitch;
  std::vector<Colour> pixels;
  Target target;
  int first = 0;  // the pixel with which the first row begins
};

std::vector<InBoth> inBothLayouts() {
  std::vector<InBoth> rows = {
      {"black is zero", "YCbCrTo", Kinds::Both, 4, 4, 4, all(4, 4, black), equalPixels(4, 4, 8, 0)},

      // The colour that a name has first is in the low bits.
      {"red is high in BGR444",
       "YCbCrToBGR444",
       Kinds::Plain,
       1,
       1,
       1,
       {red},
       pixelRows(2, {{0x0F00}})},
      {"red is low in RGB444",
       "YCbCrToRGB444",
       Kinds::Plain,
       1,
       1,
       1,
       {red},
       pixelRows(2, {{0x000F}})},
      {"red is high in BGR555",
       "YCbCrToBGR555",
       Kinds::Plain,
       1,
       1,
       1,
       {red},
       pixelRows(2, {{0x7C00}})},
      {"red is low in RGB555",
       "YCbCrToRGB555",
       Kinds::Plain,
       1,
       1,
       1,
       {red},
       pixelRows(2, {{0x001F}})},
      {"red is high in BGR565",
       "YCbCrToBGR565",
       Kinds::Plain,
       1,
       1,
       1,
       {red},
       pixelRows(2, {{0xF800}})},
      {"red is low in RGB565",
       "YCbCrToRGB565",
       Kinds::Plain,
       1,
       1,
       1,
       {red},
       pixelRows(2, {{0x001F}})},

      // 79, 112, 98 has a staged green of 104 and a wide one of 103: 25 and a residue of 724, or of
      // 468. The halved threshold of columns 1 and 3 is 559 and 699.
      {"dither is staged in every column", "YCbCrToBGR565", Kinds::Dither, 17, 1, 17,
       all(17, 1, {79, 112, 98}), repeated(17, 1, {{0x2345, 0x1B45, 0x1B45, 0x1B45}})},
      // Y = 99 is grey 96.
      {"dither has its pattern from the first pixel on", "YCbCrToBGR444", Kinds::Dither, 19, 7, 19,
       all(19, 7, {99, 128, 128}), repeated(19, 7, grey96)},

      {"width 1 is as any other",
       "YCbCrToBGR565",
       Kinds::Plain,
       1,
       3,
       2,
       {black, black, red, red, white, white},
       pixelRows(6, {{0}, {0xF800}, {0xFFFF}})},
      {"height 1 is as any other",
       "YCbCrToBGR565",
       Kinds::Plain,
       3,
       1,
       3,
       {black, red, white},
       pixelRows(6, {{0, 0xF800, 0xFFFF}})},

      {"odd pitches lose their low bit",
       "YCbCrTo",
       Kinds::Both,
       2,
       3,
       2,
       all(2, 3, black),
       {21, {{0, words(2, 0)}, {20, words(2, 0)}, {40, words(2, 0)}}}},
      {"-641 acts as -642",
       "YCbCrTo",
       Kinds::Both,
       1,
       2,
       1,
       all(1, 2, black),
       {-641, {{0, words(1, 0)}, {-642, words(1, 0)}}}},
      {"negative pitches go upwards, and odd ones grow",
       "YCbCrTo",
       Kinds::Both,
       2,
       3,
       2,
       all(2, 3, black),
       {-21, {{0, words(2, 0)}, {-22, words(2, 0)}, {-44, words(2, 0)}}}},
      {"rows keep their order upwards",
       "YCbCrToBGR565",
       Kinds::Plain,
       1,
       3,
       1,
       {black, red, white},
       {-30, {{0, words(1, 0)}, {-30, words(1, 0xF800)}, {-60, words(1, 0xFFFF)}}}},
      {"pitch 641 is 640",
       "YCbCrToBGR565",
       Kinds::Both,
       1,
       2,
       1,
       {fullWhite, fullWhite},
       {641, {{0, words(1, 0xFFFF)}, {640, words(1, 0xFFFF)}}}},
      {"pitch zero stores every row over the first",
       "YCbCrToBGR444",
       Kinds::Plain,
       1,
       2,
       1,
       {black, white},
       {0, {{0, words(1, 0x0FFF)}}}},
      {"pitch 1 is zero",
       "YCbCrToBGR444",
       Kinds::Plain,
       1,
       3,
       1,
       {white, white, black},
       {1, {{0, words(1, 0)}}}},
      {"source pitch zero reads the first row again",
       "YCbCrToBGR444",
       Kinds::Plain,
       1,
       2,
       0,
       {white, black},
       pixelRows(2, {{0x0FFF}, {0x0FFF}})},
      {"negative source pitch reads upwards",
       "YCbCrToBGR565",
       Kinds::Plain,
       2,
       3,
       -2,
       {black, red, red, white, white, white},
       pixelRows(4, {{0xFFFF, 0xFFFF}, {0xF800, 0xFFFF}, {0, 0xF800}}),
       4},
      {"pixels may stand at an odd address",
       "YCbCrTo",
       Kinds::Both,
       9,
       1,
       9,
       all(9, 1, black),
       {20, {{1, words(9, 0)}}, {}, 1}},
  };

  for (const std::string order : {"YCbCrToBGR", "YCbCrToRGB"}) {
    for (const auto& [format, word] :
         {std::pair{"444", 0x0FFF}, std::pair{"555", 0x7FFF}, std::pair{"565", 0xFFFF}})
      rows.push_back({"white fills plain fields: " + order + format, order + format, Kinds::Plain,
                      1, 1, 1, all(1, 1, white), pixelRows(2, {{word}})});

    // 254 is level 14 of 444 and a residue of 4096: below the threshold 4335 of row 3, column 0.
    rows.push_back({"dithered white of 444 dips at one place: " + order, order + "444",
                    Kinds::Dither, 4, 4, 4, all(4, 4, white),
                    repeated(4, 4,
                             {{0x0FFF, 0x0FFF, 0x0FFF, 0x0FFF},
                              {0x0FFF, 0x0FFF, 0x0FFF, 0x0FFF},
                              {0x0FFF, 0x0FFF, 0x0FFF, 0x0FFF},
                              {0x0EEE, 0x0FFF, 0x0FFF, 0x0FFF}})});
    // It is level 30 of five bits and 1874: below 1957 of row 1, column 2, and 2097 of row 3,
    // column 0.
    rows.push_back({"dithered white of 555 dips at two places: " + order, order + "555",
                    Kinds::Dither, 4, 4, 4, all(4, 4, white),
                    repeated(4, 4,
                             {{0x7FFF, 0x7FFF, 0x7FFF, 0x7FFF},
                              {0x7FFF, 0x7FFF, 0x7BDE, 0x7FFF},
                              {0x7FFF, 0x7FFF, 0x7FFF, 0x7FFF},
                              {0x7BDE, 0x7FFF, 0x7FFF, 0x7FFF}})});
    // It is level 62 of six bits and 792: below half of 1678, 1957, 2097 and 1817.
    rows.push_back({"green of dithered white dips at four places: " + order, order + "565",
                    Kinds::Dither, 4, 4, 4, all(4, 4, white),
                    repeated(4, 4,
                             {{0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF},
                              {0xFFDF, 0xFFFF, 0xF7DE, 0xFFFF},
                              {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF},
                              {0xF7DE, 0xFFFF, 0xFFDF, 0xFFFF}})});
    // 255 is level 62 and 1048, which is half of 2097 and does not exceed it.
    rows.push_back({"green of dithered full white dips at one place: " + order, order + "565",
                    Kinds::Dither, 8, 8, 8, all(8, 8, fullWhite),
                    repeated(8, 8,
                             {{0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF},
                              {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF},
                              {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF},
                              {0xFFDF, 0xFFFF, 0xFFFF, 0xFFFF}})});
    // Y = 17 is (1, 1, 1), and every residue exceeds the threshold 0.
    for (const auto& [format, word] :
         {std::pair{"444", 0x0111}, std::pair{"555", 0x0421}, std::pair{"565", 0x0821}})
      rows.push_back({"any residue raises the first pixel: " + order + format, order + format,
                      Kinds::Dither, 1, 1, 1, all(1, 1, {17, 128, 128}), pixelRows(2, {{word}})});
  }
  return rows;
}

// Y = 79, Cb = 112, Cr = 98 is (25, 104, 41) by the chain and by the staged form, and (25, 103, 41)
// by the wide form.
struct Telling {
  std::string_view format;
  const char *interleaved, *planar;
  int staged, wide;
};
constexpr Telling telling[] = {
    {"RGB555", "YCbCrToRGB555_8u16u_C3R", "YCbCrToRGB555_8u16u_P3C3R", 0x15A3, 0x1583},
    {"BGR565", "YCbCrToBGR565_8u16u_C3R", "YCbCrToBGR565_8u16u_P3C3R", 0x1B45, 0x1B25}};

}  // namespace

std::vector<Example> decode444() {
  std::vector<Example> examples = {
      // (255, 124, 255) by the staged form and (255, 123, 255) by the wide one.
      {"planar RGB565 is staged",
       {"YCbCrToRGB565_8u16u_P3C3R"},
       1,
       1,
       planar(1, {{240, 255, 235}}),
       {pixelRows(2, {{0xFBFF}})}},
      {"interleaved RGB565 is wide",
       {"YCbCrToRGB565_8u16u_C3R"},
       1,
       1,
       interleaved(1, {{240, 255, 235}}),
       {pixelRows(2, {{0xFBDF}})}},
      // (58, 144, 12) by the wide form and (58, 143, 12) by the folded one.
      {"interleaved BGR565 is not folded",
       {"YCbCrToBGR565_8u16u_C3R"},
       1,
       1,
       interleaved(1, {{105, 83, 100}}),
       {pixelRows(2, {{0x3C81}})}},
  };

  for (const InBoth& r : inBothLayouts()) {
    examples.push_back({r.claim + ", interleaved",
                        namesOf(r.front, "_8u16u_C3R", r.kinds),
                        r.width,
                        r.height,
                        interleaved(r.pitch, r.pixels, r.first),
                        {r.target}});
    examples.push_back({r.claim + ", planar",
                        namesOf(r.front, "_8u16u_P3C3R", r.kinds),
                        r.width,
                        r.height,
                        planar(r.pitch, r.pixels, r.first),
                        {r.target}});
  }

  for (const Telling& t : telling) {
    for (const int width : {1, 7, 8, 9, 15, 16, 17, 24, 31, 32, 33, 80}) {
      const std::string of = ": " + std::string(t.format) + ", width " + std::to_string(width);
      const std::vector<Colour> pixels = all(width, 2, {79, 112, 98});
      const std::vector<int> blocks = twoParts(width / 8 * 8, t.staged, width, t.wide);
      examples.push_back({"planar is staged" + of,
                          {t.planar},
                          width,
                          2,
                          planar(width, pixels),
                          {equalPixels(width, 2, 2 * width, t.staged)}});
      examples.push_back({"interleaved is wide" + of,
                          {t.interleaved},
                          width,
                          2,
                          interleaved(width, pixels),
                          {equalPixels(width, 2, 2 * width, t.wide)},
                          In::Scalar});
      examples.push_back({"interleaved is the chain in blocks of eight and wide after" + of,
                          {t.interleaved},
                          width,
                          2,
                          interleaved(width, pixels),
                          {pixelRows(2 * width, {blocks, blocks})},
                          In::Simd});
    }
  }
  return examples;
}

}  // namespace examples
