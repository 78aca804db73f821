// SPDX-License-Identifier: MIT
// Row offsets that leave 32 bits. With a pitch of 2^30 bytes some offsets wrap as signed 32-bit
// products and some do not; rows stand where each rule puts them, in a large reserved range of
// addresses of which only those pages are mapped.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "include/pxmcc90lgc.h"
#include "tests/support/pages.h"

namespace {

constexpr std::int64_t GiB = std::int64_t{1} << 30;
constexpr int pitch = 1 << 30;

// Addresses from -8 to +8 GiB around `origin`, without memory.
class Range {
 public:
  Range() : all_(static_cast<std::uint8_t*>(reservePages(16 * GiB))) {}
  ~Range() { releasePages(all_, 16 * GiB); }
  Range(const Range&) = delete;
  Range& operator=(const Range&) = delete;

  std::uint8_t* origin() const { return all_ + 8 * GiB; }

  // The page at an offset from the origin, filled with `value` when it is first asked for.
  std::uint8_t* page(std::int64_t offset, std::uint8_t value = 0) {
    if (!pages_[offset]) {
      pages_[offset] = true;
      setAccess(origin() + offset, 4096, Access::ReadWrite);
      std::memset(origin() + offset, value, 4096);
    }
    return origin() + offset;
  }

 private:
  std::uint8_t* all_;
  std::map<std::int64_t, bool> pages_;
};

std::uint16_t wordAt(const std::uint8_t* bytes) {
  std::uint16_t word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

using DecodePlanar = pxmStatus(const unsigned char* [3], int[3], unsigned short*, int, pxmSize);

// In 4:2:0 the upper row of pair n stands at the wrapped product 2n * 2^30, the lower row one full
// pitch on: rows 0, 1 at 0, 1 GiB, rows 2, 3 at -2, -1 GiB, row 4 at 0 again.
void expectLumaOf420Wraps(DecodePlanar* convert) {
  Range luma;
  luma.page(0)[0] = 0x20;
  luma.page(1 * GiB)[0] = 0x60;
  luma.page(-2 * GiB)[0] = 0xA0;
  luma.page(-1 * GiB)[0] = 0xE0;
  const std::uint8_t neutral[2] = {128, 128};
  const unsigned char* src[3] = {luma.origin(), neutral, neutral};
  int srcStep[3] = {pitch, 0, 0};
  std::uint16_t pixels[5][2] = {};
  ASSERT_EQ(convert(src, srcStep, pixels[0], 4, {2, 5}), 0);
  std::uint16_t expected[5];
  for (int y = 0; y < 5; ++y) {
    const std::uint8_t rows[5] = {0x20, 0x60, 0xA0, 0xE0, 0x20};
    const std::uint8_t sample[2] = {rows[y], rows[y]};
    const unsigned char* one[3] = {sample, neutral, neutral};
    int steps[3] = {2, 1, 1};
    std::uint16_t alone[2][2] = {};
    const unsigned char pair[4] = {rows[y], rows[y], rows[y], rows[y]};
    one[0] = pair;
    ASSERT_EQ(convert(one, steps, alone[0], 4, {2, 2}), 0);
    expected[y] = alone[0][0];
  }
  for (int y = 0; y < 5; ++y) EXPECT_EQ(pixels[y][0], expected[y]) << "row " << y;
}

TEST(Wrapping, LumaRowsOf420) {
  expectLumaOf420Wraps(legacy90pxmiYCbCr420ToBGR565_8u16u_P3C3R);
  expectLumaOf420Wraps(legacy90pxmiYUV420ToBGR565_8u16u_P3C3R);
}

// Chroma row n at the wrapped product n * 2^30: 0, 1, -2, -1 GiB, then 0 again.
void expectChromaOf420Wraps(DecodePlanar* convert, int plane) {
  Range chroma;
  const std::int64_t offsets[5] = {0, 1 * GiB, -2 * GiB, -1 * GiB, 0};
  const std::uint8_t values[5] = {0x10, 0x50, 0xB0, 0xF0, 0x10};
  for (int n = 0; n < 4; ++n) chroma.page(offsets[n])[0] = values[n];
  const std::uint8_t grey[2] = {0x80, 0x80}, neutral[1] = {128};
  const unsigned char* src[3] = {grey, neutral, neutral};
  int srcStep[3] = {0, 0, 0};
  src[plane] = chroma.origin();
  srcStep[plane] = pitch;
  std::uint16_t pixels[10][2] = {};
  ASSERT_EQ(convert(src, srcStep, pixels[0], 4, {2, 10}), 0);
  for (int n = 0; n < 5; ++n) {
    const unsigned char* one[3] = {grey, neutral, neutral};
    one[plane] = values + n;
    int steps[3] = {0, 0, 0};
    std::uint16_t alone[2][2] = {};
    ASSERT_EQ(convert(one, steps, alone[0], 4, {2, 2}), 0);
    EXPECT_EQ(pixels[2 * n][0], alone[0][0]) << "chroma row " << n;
  }
}

TEST(Wrapping, ChromaRowsOf420) {
  for (const int plane : {1, 2}) {
    expectChromaOf420Wraps(legacy90pxmiYCbCr420ToBGR565_8u16u_P3C3R, plane);
    expectChromaOf420Wraps(legacy90pxmiYUV420ToBGR565_8u16u_P3C3R, plane);
  }
}

// A destination pitch of 2^30 bytes is 2^29 pixels; row 4 is the first product that wraps, to
// -2^31 pixels, which is -4 GiB.
void expectDestinationOf420Wraps(DecodePlanar* convert) {
  Range pixels;
  for (const std::int64_t offset : {0, 1, 2, 3, -4, -3}) pixels.page(offset * GiB, 0x5A);
  const std::uint8_t luma[12] = {16, 16, 50, 50, 90, 90, 130, 130, 170, 170, 210, 210};
  const std::uint8_t neutral[1] = {128};
  const unsigned char* src[3] = {luma, neutral, neutral};
  int srcStep[3] = {2, 0, 0};
  ASSERT_EQ(
      convert(src, srcStep, reinterpret_cast<unsigned short*>(pixels.origin()), pitch, {2, 6}), 0);
  std::uint16_t tight[6][2] = {};
  ASSERT_EQ(convert(src, srcStep, tight[0], 4, {2, 6}), 0);
  const std::int64_t rows[6] = {0, 1, 2, 3, -4, -3};
  for (int y = 0; y < 6; ++y)
    EXPECT_EQ(wordAt(pixels.origin() + rows[y] * GiB), tight[y][0]) << "row " << y;
}

TEST(Wrapping, DestinationRowsOf420) {
  expectDestinationOf420Wraps(legacy90pxmiYCbCr420ToBGR565_8u16u_P3C3R);
  expectDestinationOf420Wraps(legacy90pxmiYUV420ToBGR565_8u16u_P3C3R);
}

// Planar 4:2:2 wraps in its sources: rows at 0, 1, -2, -1, 0 GiB. Its destination does not.
TEST(Wrapping, SourceRowsOfPlanar422AndNotItsDestination) {
  Range luma, pixels;
  const std::int64_t offsets[5] = {0, 1, -2, -1, 0};
  for (int n = 0; n < 4; ++n)
    luma.page(offsets[n] * GiB)[0] = static_cast<std::uint8_t>(40 + 40 * n);
  for (int n = 0; n < 5; ++n) pixels.page(n * GiB, 0x5A);
  luma.page(0)[1] = luma.page(1 * GiB)[1] = luma.page(-2 * GiB)[1] = luma.page(-1 * GiB)[1] = 16;
  const std::uint8_t neutral[1] = {128};
  const unsigned char* src[3] = {luma.origin(), neutral, neutral};
  int srcStep[3] = {pitch, 0, 0};
  auto* dst = reinterpret_cast<unsigned short*>(pixels.origin());
  ASSERT_EQ(legacy90pxmiYCbCr422ToBGR565_8u16u_P3C3R(src, srcStep, dst, pitch, {2, 5}), 0);
  // 1.164 (Y - 16): 27, 74, 121, 167.
  const int greens[5] = {27 >> 2, 74 >> 2, 121 >> 2, 167 >> 2, 27 >> 2};
  for (int y = 0; y < 5; ++y)
    EXPECT_EQ(wordAt(pixels.origin() + y * GiB) >> 5 & 63, greens[y]) << "row " << y;
}

// 4:4:4 and interleaved images step in full width on both sides.
TEST(Wrapping, NoRowsOf444) {
  Range samples, pixels;
  for (int n = 0; n < 5; ++n) {
    const std::uint8_t pixel[3] = {static_cast<std::uint8_t>(40 + 40 * n), 128, 128};
    std::memcpy(samples.page(n * GiB), pixel, 3);
    pixels.page(n * GiB, 0x5A);
  }
  auto* dst = reinterpret_cast<unsigned short*>(pixels.origin());
  ASSERT_EQ(legacy90pxmiYCbCrToBGR565_8u16u_C3R(samples.origin(), pitch, dst, pitch, {1, 5}), 0);
  const int greens[5] = {27 >> 2, 74 >> 2, 121 >> 2, 167 >> 2, 214 >> 2};
  for (int y = 0; y < 5; ++y)
    EXPECT_EQ(wordAt(pixels.origin() + y * GiB) >> 5 & 63, greens[y]) << "row " << y;
}

// Encoding to 4:2:0 wraps in the destination planes; the source steps in full width.
TEST(Wrapping, DestinationPlanesOfEncodersTo420AndNotTheirSource) {
  Range source, luma, cb;
  for (int n = 0; n < 6; ++n) {
    const std::uint16_t words[2] = {static_cast<std::uint16_t>(n), static_cast<std::uint16_t>(n)};
    std::memcpy(source.page(n * GiB), words, 4);
  }
  for (const std::int64_t offset : {0, 1, -2, -1}) luma.page(offset * GiB, 0x5A);
  for (const std::int64_t offset : {0, 1, -2}) cb.page(offset * GiB, 0x5A);
  std::uint8_t cr[3] = {};
  unsigned char* dst[3] = {luma.origin(), cb.origin(), cr};
  int dstStep[3] = {pitch, pitch, 1};
  auto* src = reinterpret_cast<const unsigned short*>(source.origin());
  ASSERT_EQ(legacy90pxmiBGR565ToYCbCr420_16u8u_C3P3R(src, pitch, dst, dstStep, {2, 6}), 0);
  // Rows 4 and 5 stand where rows 0 and 1 stood. Blue n << 3: luma (6423 * 8n + 1081344) >> 16.
  const int blue[6] = {4, 5, 2, 3, 4, 5};
  const std::int64_t rows[6] = {0, 1, -2, -1, 0, 1};
  for (int y = 0; y < 6; ++y)
    EXPECT_EQ(luma.origin()[rows[y] * GiB], (6423 * 8 * blue[y] + 1081344) >> 16) << "row " << y;
  EXPECT_NE(cb.origin()[-2 * GiB], 0x5A);
}

// 4:2:2 and 4:1:1 encoders step in full width.
TEST(Wrapping, NoRowsOfEncodersTo422) {
  Range luma;
  for (int n = 0; n < 5; ++n) luma.page(n * GiB, 0x5A);
  std::uint8_t chroma[2][5] = {};
  unsigned char* dst[3] = {luma.origin(), chroma[0], chroma[1]};
  int dstStep[3] = {pitch, 1, 1};
  const unsigned short black[5][2] = {};
  ASSERT_EQ(legacy90pxmiBGR565ToYCbCr422_16u8u_C3P3R(black[0], 4, dst, dstStep, {2, 5}), 0);
  for (int n = 0; n < 5; ++n) EXPECT_EQ(luma.origin()[n * GiB], 16) << "row " << n;
}

}  // namespace
