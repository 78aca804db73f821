// SPDX-License-Identifier: MIT
// Row offsets that leave 32 bits: some wrap as signed 32-bit products and some do not. Rows far
// apart, where each rule puts them, must give what the same rows give close together, in the oracle
// and in the library; of the large range of addresses only the pages of those rows are mapped.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "catalogue/conversions.h"
#include "catalogue/variants.h"
#include "tests/support/by_oracle.h"
#include "tests/support/random.h"
#include "tests/support/sparse_range.h"

namespace {

constexpr int height = 7;
constexpr std::size_t rowBytes = 32;

Offsets quartersOfGiB(Offsets counts) {
  for (std::int64_t& count : counts) count *= GiB / 4;
  return counts;
}

// A pitch of five quarters of a GiB.
constexpr int pitch = 1342177280;
const Offsets full = quartersOfGiB({0, 5, 10, 15, 20, 25, 30});
const Offsets wrapped = quartersOfGiB({0, 5, -6, -1, 4, -7, -2});
// Pairs of rows: the upper at the wrapped product, the lower one full pitch on.
const Offsets wrappedPairs = quartersOfGiB({0, 5, -6, -1, 4, 9, -2});
Offsets halved(Offsets offsets) {
  for (std::int64_t& offset : offsets) offset /= 2;
  return offsets;
}

// This many bytes are 1073741792 pixels, whose products wrap before they are doubled.
constexpr int pixelPitch = 2147483584;
const Offsets wrappedPixelPairs = {0,    2147483584, 4294967168, 6442450752,
                                   -256, 2147483328, 4294966912};

// Where the rows of a conversion's planes lie, for a source pitch and a destination pitch.
struct Rows {
  Offsets src, srcChroma, dst, dstChroma;
};

int planesOf(const Conversion& c, bool source) {
  if (c.kind == Kind::Decode) return source && c.has("P3C3R") ? 3 : 1;
  if (c.kind == Kind::Encode) return !source && c.has("C3P3R") ? 3 : 1;
  return 1;
}

// Planes of a conversion in memory of their own, far apart.
class Far {
 public:
  Far(const Conversion& c, const Rows& rows, int width, int dstPitch) : rows_(rows) {
    arguments_.size = {width, height};
    Random random("wrapping");
    for (int k = 0; k < planesOf(c, true); ++k) {
      std::uint8_t* const first = ranges_[k].origin();
      ranges_[k].open(source(k));
      for (const std::int64_t offset : source(k))
        for (std::size_t i = 0; i < rowBytes; ++i)
          first[offset + static_cast<std::int64_t>(i)] =
              static_cast<std::uint8_t>(random.below(256));
      arguments_.src[k] = first;
      arguments_.srcStep[k] = pitch;
    }
    for (int k = 0; k < planesOf(c, false); ++k) {
      ranges_[3 + k].open(target(k));
      arguments_.dst[k] = ranges_[3 + k].origin();
      arguments_.dstStep[k] = dstPitch;
    }
  }

  const CallArguments& arguments() const { return arguments_; }
  const Offsets& source(int k) const { return k == 0 ? rows_.src : rows_.srcChroma; }
  const Offsets& target(int k) const { return k == 0 ? rows_.dst : rows_.dstChroma; }

 private:
  const Rows& rows_;
  SparseRange ranges_[6];
  CallArguments arguments_ = {};
};

std::vector<std::uint8_t> gathered(const std::uint8_t* first, const Offsets& offsets) {
  std::vector<std::uint8_t> bytes;
  for (const std::int64_t offset : offsets)
    bytes.insert(bytes.end(), first + offset, first + offset + rowBytes);
  return bytes;
}

// One call far apart and one close together.
template <typename Convert>
void expectSame(const Conversion& c, const Rows& rows, int width, int dstPitch, Convert convert) {
  const Far far(c, rows, width, dstPitch);
  const CallArguments& a = far.arguments();
  CallArguments close = a;
  std::vector<std::uint8_t> planes[6];
  for (int k = 0; k < planesOf(c, true); ++k) {
    planes[k] = gathered(a.src[k], far.source(k));
    planes[k].resize(planes[k].size() + 64);  // some variants read on at odd sizes
    close.src[k] = planes[k].data();
    close.srcStep[k] = rowBytes;
  }
  for (int k = 0; k < planesOf(c, false); ++k) {
    planes[3 + k].resize(rowBytes * far.target(k).size() + 64);
    close.dst[k] = planes[3 + k].data();
    // Three bytes a pixel stand half a pitch apart.
    close.dstStep[k] = width == 1 ? 2 * int{rowBytes} : int{rowBytes};
  }
  EXPECT_EQ(convert(a), convert(close));
  for (int k = 0; k < planesOf(c, false); ++k) {
    planes[3 + k].resize(rowBytes * far.target(k).size());
    EXPECT_EQ(gathered(a.dst[k], far.target(k)), planes[3 + k]) << c.name << ", plane " << k;
  }
}

void expectRows(const std::vector<std::string_view>& names, const Rows& rows, int width = 5,
                int dstPitch = pitch) {
  for (const std::string_view name : names) {
    const Conversion& c = conversionNamed(name);
    for (int variant = 0; variant < variantCount; ++variant)
      expectSame(c, rows, width, dstPitch,
                 [&](const CallArguments& a) { return convertByOracle(c, variant, a); });
    for (const int variant : runnableVariants()) {
      const SelectedVariant selected(variant);
      expectSame(c, rows, width, dstPitch, [&](const CallArguments& a) { return int{c.call(a)}; });
    }
  }
}

TEST(Wrapping, Decoders420WrapEverywhere) {
  const Offsets chroma(wrapped.begin(), wrapped.begin() + 4);
  expectRows({"YCbCr420ToBGR565_8u16u_P3C3R", "YCbCr420ToRGB444Dither_8u16u_P3C3R",
              "YUV420ToBGR565_8u16u_P3C3R", "YUV420ToRGB555Dither_8u16u_P3C3R"},
             {wrappedPairs, chroma, wrappedPixelPairs, {}}, 4, pixelPitch);
}

TEST(Wrapping, PlanarDecoders422WrapTheirSources) {
  expectRows({"YCbCr422ToBGR565_8u16u_P3C3R", "YCbCr422ToRGB444Dither_8u16u_P3C3R"},
             {wrapped, wrapped, full, {}});
}

TEST(Wrapping, OtherDecodersDoNot) {
  expectRows(
      {"YCbCr422ToBGR565_8u16u_C2C3R", "YCbCr422ToBGR444Dither_8u16u_C2C3R",
       "YCbCrToBGR565_8u16u_C3R", "YCbCrToRGB555_8u16u_P3C3R", "YCbCr411ToBGR555_8u16u_P3C3R"},
      {full, full, full, {}});
  expectRows({"YCbCr422ToBGR444_8u16u_C2C3R"}, {full, {}, halved(full), {}}, 1);
}

TEST(Wrapping, Encoders420WrapTheirDestinations) {
  const Offsets chroma(wrapped.begin(), wrapped.begin() + 3);
  expectRows(
      {"BGR555ToYCbCr420_16u8u_C3P3R", "BGR565ToYCrCb420_16u8u_C3P3R", "BGR555ToYUV420_16u8u_C3P3R",
       "BGR565ToYUV420_16u8u_C3P3R", "RGB565ToYUV420_16u8u_C3P3R"},
      {full, {}, wrappedPairs, chroma});
}

TEST(Wrapping, EncoderToYuv422WrapsItsDestinations) {
  expectRows({"RGB565ToYUV422_16u8u_C3P3R"}, {full, {}, wrapped, wrapped});
}

TEST(Wrapping, OtherEncodersDoNot) {
  expectRows({"BGR555ToYCbCr422_16u8u_C3P3R", "BGR565ToYCbCr422_16u8u_C3C2R",
              "BGR565ToYCbCr411_16u8u_C3P3R"},
             {full, {}, full, full});
}

TEST(Wrapping, DepthConversionsAndTheTwistDoNot) {
  expectRows({"BGR565ToBGR_16u8u_C3R", "RGBToRGB565_8u16u_C3R", "ColorTwist32f_8s_C3R",
              "ColorTwist32f_8s_AC4R"},
             {full, {}, full, {}});
}

}  // namespace
