// SPDX-License-Identifier: MIT
// 4:2:0 to 16-bit pixels. The chain is the staged form, so that blocks show where rows overlap, and
// nowhere else.
#include "tests/examples/row_pairs.h"

namespace examples {
namespace {

constexpr const char* bgr565 = "YCbCr420ToBGR565_8u16u_P3C3R";

// Three chroma pairs that luma 128 makes into (130, 133, 114), (168, 101, 178) and (104, 121, 243).
constexpr int cbs[] = {0x78, 0x98, 0xB8}, crs[] = {0x80, 0x98, 0x70};
constexpr int dark = 0x842E, middle = 0xAB36, bright = 0x6BDE;

Bytes chromaOf(const int (&samples)[3], const std::vector<std::size_t>& which) {
  Bytes plane;
  for (const std::size_t i : which) plane.push_back(static_cast<std::uint8_t>(samples[i]));
  return plane;
}

// Luma 128 and these chroma pairs.
std::vector<Source> chroma(int width, int height, const std::vector<std::size_t>& which) {
  const int pitch = (width + 1) / 2;
  return {{samples(width * height, 128), width},
          {chromaOf(cbs, which), pitch},
          {chromaOf(crs, which), pitch}};
}

}  // namespace

std::vector<Example> decode420() {
  std::vector<Example> all = {
      {"width 1, height 1 is the first sample of each plane: green of 444",
       {"YCbCr420ToBGR444_8u16u_P3C3R", "YCbCr420ToRGB444_8u16u_P3C3R"},
       1,
       1,
       {{{145}}, {{54}}, {{34}}},
       {pixelRows(2, {{0x00F0}})}},
      {"width 1, height 1 is the first sample of each plane: green of 555",
       {"YCbCr420ToBGR555_8u16u_P3C3R", "YCbCr420ToRGB555_8u16u_P3C3R"},
       1,
       1,
       {{{145}}, {{54}}, {{34}}},
       {pixelRows(2, {{0x03E0}})}},
      {"width 1, height 1 is the first sample of each plane: green of 565",
       {"YCbCr420ToBGR565_8u16u_P3C3R", "YCbCr420ToRGB565_8u16u_P3C3R"},
       1,
       1,
       {{{145}}, {{54}}, {{34}}},
       {pixelRows(2, {{0x07E0}})}},
      {"red is high in BGR", {bgr565}, 1, 1, {{{81}}, {{90}}, {{240}}}, {pixelRows(2, {{0xF800}})}},
      {"red is low in RGB",
       {"YCbCr420ToRGB565_8u16u_P3C3R"},
       1,
       1,
       {{{81}}, {{90}}, {{240}}},
       {pixelRows(2, {{0x001F}})}},
      {"width 5 takes chroma columns 0, 0, 1, 1 and 2",
       {bgr565},
       5,
       1,
       chroma(5, 1, {0, 1, 2}),
       {pixelRows(10, {{dark, dark, middle, middle, bright}})}},
      {"width 1, height 5 takes chroma rows 0, 0, 1, 1 and 2",
       {bgr565},
       1,
       5,
       chroma(1, 5, {0, 1, 2}),
       {pixelRows(2, {{dark}, {dark}, {middle}, {middle}, {bright}})}},
      {"width 5, height 5 takes the chroma of two columns and two rows",
       {bgr565},
       5,
       5,
       chroma(5, 5, {0, 1, 2, 1, 2, 0, 2, 0, 1}),
       {pixelRows(10, {{dark, dark, middle, middle, bright},
                       {dark, dark, middle, middle, bright},
                       {middle, middle, bright, bright, dark},
                       {middle, middle, bright, bright, dark},
                       {bright, bright, dark, dark, middle}})}},
      {"an odd corner takes the last sample of the last chroma row",
       {bgr565},
       3,
       3,
       chroma(3, 3, {0, 0, 0, 2}),
       {pixelRows(6, {{dark, dark, dark}, {dark, dark, dark}, {dark, dark, bright}})}},
      {"blocks take the chroma of two columns",
       {bgr565},
       18,
       2,
       chroma(18, 2, {0, 1, 2, 0, 1, 2, 0, 1, 2}),
       {repeated(18, 2, {{dark, dark, middle, middle, bright, bright}})}},
      {"each plane has a pitch of its own",
       {bgr565},
       1,
       3,
       {{{16, 0x55, 0x55, 16, 0x55, 0x55, 81}, 3}, {{128, 0x55, 90}, 2}, {{128, 240}, 1}},
       {pixelRows(2, {{0}, {0}, {0xF800}})}},
      {"negative source pitches read upwards",
       {bgr565},
       1,
       3,
       {{{16, 0x55, 81, 0x55, 81}, -2, 4}, {{128, 90}, -1, 1}, {{128, 240}, -1, 1}},
       {pixelRows(2, {{0xF800}, {0xF800}, {0}})}},
      {"an odd last column comes before the next pair",
       {"YCbCr420ToBGR444_8u16u_P3C3R"},
       3,
       4,
       // 16 + 14 n is grey n in four bits. In rows two pixels apart a row's third pixel lies over
       // the first of the next row: 3 is stored over 4, 7 over 6, and 9 over 10.
       greys(3, {30, 44, 58, 72, 86, 100, 114, 128, 142, 156, 170, 184}),
       {{4, {{0, words({0x111, 0x222, 0x333, 0x555, 0x777, 0x888, 0x999, 0xBBB, 0xCCC})}}}}},
      // Y = 99 is grey 96.
      {"dither goes on in every block and into an odd last row",
       {"YCbCr420ToBGR444Dither_8u16u_P3C3R", "YCbCr420ToRGB444Dither_8u16u_P3C3R"},
       20,
       7,
       greys(20, samples(140, 99)),
       {repeated(20, 7, grey96)}},
      {"an odd corner has the phases of its place",
       {"YCbCr420ToBGR444Dither_8u16u_P3C3R", "YCbCr420ToRGB444Dither_8u16u_P3C3R"},
       5,
       7,
       greys(5, samples(35, 99)),
       {repeated(5, 7, grey96)},
       In::Scalar},
      // The last row is one of phase 2, and columns 1 and 2 of it follow.
      {"an odd corner and two pixels after it have the phases of their places",
       {"YCbCr420ToBGR444Dither_8u16u_P3C3R"},
       5,
       3,
       greys(5, samples(17, 99)),
       {{20,
         {{0, words({0x666, 0x666, 0x666, 0x555, 0x666})},
          {20, words({0x555, 0x666, 0x555, 0x666, 0x555})},
          {40, words({0x666, 0x555, 0x666, 0x666, 0x666, 0x555, 0x666})}}}},
       In::Simd},
      // The second of the two takes the chroma that follows in memory.
      {"dithered width 1, height 1 stores three pixels in SIMD",
       {"YCbCr420ToBGR565Dither_8u16u_P3C3R"},
       1,
       1,
       {{{16, 235, 81}}, {{128, 90}}, {{128, 240}}},
       {pixelRows(6, {{0, 0xFFFF, 0xF800}})},
       In::Simd},
  };
  for (const Example& e : inRowPairs("YCbCr420")) all.push_back(e);

  for (const Format& f : formats) {
    const std::string format = f.name, bgr = "YCbCr420ToBGR" + format,
                      rgb = "YCbCr420ToRGB" + format;
    const std::vector<std::string_view> plainBgr = namesOf(bgr, "", Kinds::Plain);
    const std::vector<std::string_view> ditheredBgr = namesOf(bgr, "", Kinds::Dither);
    for (const Blocks& b : blocks()) {
      for (const std::vector<std::string_view>& names : {namesOf(bgr, ""), namesOf(rgb, "")})
        all.push_back(
            blocksBegin("scalar code takes two columns at a time: " + std::string(names.front()),
                        names, In::Scalar, b.width, b.width, b.ofTwo, f.white));
      all.push_back(blocksBegin("SIMD has blocks of eight and four: RGB" + format, namesOf(rgb, ""),
                                In::Simd, b.width, b.width, b.ofEight, f.white));
      all.push_back(blocksBegin("SIMD has blocks of eight and four: dithered BGR" + format,
                                ditheredBgr, In::Simd, b.width, b.width, b.ofEight, f.white));
      all.push_back(blocksBegin("SIMD but l9 has blocks of eight and four: BGR" + format, plainBgr,
                                In::SimdButL9, b.width, b.width, b.ofEight, f.white));
      all.push_back(blocksBegin("l9 has blocks of sixteen and eight: BGR" + format, plainBgr,
                                In::L9, b.width, b.width, b.ofSixteen, f.white));
    }
  }
  return all;
}

}  // namespace examples
