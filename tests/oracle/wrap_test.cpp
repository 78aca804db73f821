// SPDX-License-Identifier: MIT
// Holds rows far apart to where the conversions look for them: the distances that wrap in 32 bits
// and those that do not.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_images.h"
#include "tests/support/pages.h"

namespace oracle {
namespace {

using Offsets = std::vector<std::int64_t>;

constexpr std::int64_t kGiB = std::int64_t{1} << 30;
constexpr int kRows = 7;

// A wide room of addresses, of which the touched pages alone take memory.
class Room {
 public:
  Room() : start_(static_cast<std::uint8_t*>(reservePages(kSize))) {
    if (start_ == nullptr || setAccess(start_, kSize, Access::ReadWrite)) return;
    releasePages(start_, kSize);
    start_ = nullptr;
  }
  ~Room() {
    if (start_ != nullptr) releasePages(start_, kSize);
  }
  Room(const Room&) = delete;
  Room& operator=(const Room&) = delete;

  bool exists() const { return start_ != nullptr; }
  std::uint8_t* origin() const { return start_ + 6 * kGiB; }

 private:
  static constexpr std::size_t kSize = std::size_t{16} << 30;
  std::uint8_t* start_;
};

// Whole rows, in quarters of a GiB.
Offsets quarters(const Offsets& counts) {
  Offsets offsets;
  for (std::int64_t count : counts) offsets.push_back(count * (kGiB / 4));
  return offsets;
}

// A pitch of five quarters of a GiB, and where its rows lie.
constexpr int kPitch = 1342177280;
const Offsets kFull = quarters({0, 5, 10, 15, 20, 25, 30});
const Offsets kWrapped = quarters({0, 5, -6, -1, 4, -7, -2});
const Offsets kWrappedPairs = quarters({0, 5, -6, -1, 4, 9, -2});  // the lower row a pitch on
const Offsets kWrappedHalf = quarters({0, 5, -6, -1});

// A pitch of 2147483584 bytes is 1073741792 pixels, whose products wrap before they are doubled.
constexpr int kPixelPitch = 2147483584;
const Offsets kWrappedPixelPairs = {0,    2147483584, 4294967168, 6442450752,
                                    -256, 2147483328, 4294966912};

constexpr std::size_t kRowBytes = 32;
constexpr int kPlaneGap = 64;

// Copies the rows out of a room, one after the other.
Bytes gathered(const std::uint8_t* first, const Offsets& offsets) {
  Bytes rows;
  for (std::int64_t offset : offsets) {
    rows.insert(rows.end(), first + offset, first + offset + kRowBytes);
  }
  return rows;
}

// Puts noise into the rows of a room.
void scatter(std::uint8_t* first, const Offsets& offsets, std::uint32_t seed) {
  for (std::int64_t offset : offsets) {
    const Bytes row = noise(kRowBytes, seed++);
    std::copy(row.begin(), row.end(), first + offset);
  }
}

struct DecodeLayoutCase {
  std::string_view name;
  Offsets luma, chroma, target;
  int dstStep;
  int width = 5;
};

void expectDecode(const DecodeLayoutCase& c) {
  const Room source, target;
  if (!source.exists() || !target.exists()) GTEST_SKIP() << "no room of addresses";
  DecodeCall call{{}, {kPitch, kPitch, kPitch}, target.origin(), c.dstStep, c.width, kRows};
  DecodeCall close = call;
  Bytes rows[3];
  for (int k = 0; k < 3; ++k) {
    const Offsets& offsets = k == 0 ? c.luma : c.chroma;
    std::uint8_t* first = source.origin() + k * kPlaneGap;
    scatter(first, offsets, static_cast<std::uint32_t>(100 * k + 1));
    rows[k] = gathered(first, offsets);
    call.src[k] = first;
    close.src[k] = rows[k].data();
    close.srcStep[k] = kRowBytes;
  }
  decode(c.name, Variant::mx, call);
  Bytes wanted(kRowBytes * c.target.size());
  close.dst = wanted.data();
  close.dstStep =
      c.width == 1 && c.name.find("C2C3R") != c.name.npos ? 2 * int{kRowBytes} : int{kRowBytes};
  decode(c.name, Variant::mx, close);
  EXPECT_EQ(gathered(target.origin(), c.target), wanted) << c.name;
}

TEST(OracleWrap, Decoding420WrapsEverywhere) {
  for (const char* name : {"YCbCr420ToBGR565_8u16u_P3C3R", "YCbCr420ToRGB444Dither_8u16u_P3C3R",
                           "YUV420ToBGR565_8u16u_P3C3R", "YUV420ToRGB555Dither_8u16u_P3C3R"}) {
    expectDecode({name, kWrappedPairs, kWrappedHalf, kWrappedPixelPairs, kPixelPitch});
  }
}

TEST(OracleWrap, Decoding422PlanarWrapsItsSources) {
  for (const char* name : {"YCbCr422ToBGR565_8u16u_P3C3R", "YCbCr422ToRGB444Dither_8u16u_P3C3R"}) {
    expectDecode({name, kWrapped, kWrapped, kFull, kPitch});
  }
}

TEST(OracleWrap, OtherDecodingDoesNotWrap) {
  for (const char* name :
       {"YCbCr422ToBGR565_8u16u_C2C3R", "YCbCr422ToBGR444Dither_8u16u_C2C3R",
        "YCbCrToBGR565_8u16u_C3R", "YCbCrToRGB555_8u16u_P3C3R", "YCbCr411ToBGR555_8u16u_P3C3R"}) {
    expectDecode({name, kFull, kFull, kFull, kPitch});
  }
  const Offsets halves = {0, 671088640, 1342177280, 2013265920, 2684354560, 3355443200, 4026531840};
  expectDecode({"YCbCr422ToBGR565_8u16u_C2C3R", kFull, kFull, halves, kPitch, 1});
}

struct EncodeLayoutCase {
  std::string_view name;
  Offsets luma, chroma;
};

void expectEncode(const EncodeLayoutCase& c) {
  const Room source, target;
  if (!source.exists() || !target.exists()) GTEST_SKIP() << "no room of addresses";
  scatter(source.origin(), kFull, 1);
  const Bytes rows = gathered(source.origin(), kFull);
  EncodeCall call{source.origin(), kPitch, {}, {kPitch, kPitch, kPitch}, 5, kRows};
  Bytes wanted[3];
  EncodeCall close{rows.data(), kRowBytes, {}, {kRowBytes, kRowBytes, kRowBytes}, 5, kRows};
  for (int k = 0; k < 3; ++k) {
    call.dst[k] = target.origin() + k * kPlaneGap;
    wanted[k].resize(kRowBytes * (k == 0 ? c.luma : c.chroma).size());
    close.dst[k] = wanted[k].data();
  }
  encode(c.name, Variant::mx, call);
  encode(c.name, Variant::mx, close);
  for (int k = 0; k < 3; ++k) {
    EXPECT_EQ(gathered(call.dst[k], k == 0 ? c.luma : c.chroma), wanted[k]) << c.name << k;
  }
}

TEST(OracleWrap, Encoding420WrapsItsDestinations) {
  for (const char* name :
       {"BGR555ToYCbCr420_16u8u_C3P3R", "BGR565ToYCrCb420_16u8u_C3P3R",
        "BGR555ToYUV420_16u8u_C3P3R", "BGR565ToYUV420_16u8u_C3P3R", "RGB565ToYUV420_16u8u_C3P3R"}) {
    expectEncode({name, kWrappedPairs, kWrappedHalf});
  }
}

TEST(OracleWrap, EncodingYuv422WrapsItsDestinations) {
  expectEncode({"RGB565ToYUV422_16u8u_C3P3R", kWrapped, kWrapped});
}

TEST(OracleWrap, OtherEncodingDoesNotWrap) {
  for (const char* name : {"BGR555ToYCbCr422_16u8u_C3P3R", "BGR565ToYCbCr422_16u8u_C3C2R",
                           "BGR565ToYCbCr411_16u8u_C3P3R"}) {
    expectEncode({name, kFull, kFull});
  }
}

TEST(OracleWrap, DepthConversionDoesNotWrap) {
  const Room source, target;
  if (!source.exists() || !target.exists()) GTEST_SKIP() << "no room of addresses";
  scatter(source.origin(), kFull, 1);
  const Bytes rows = gathered(source.origin(), kFull);
  for (const char* name : {"BGR565ToBGR_16u8u_C3R", "RGBToRGB565_8u16u_C3R"}) {
    Bytes wanted = gathered(target.origin(), kFull);
    convertDepth(name, Variant::mx, {source.origin(), kPitch, target.origin(), kPitch, 5, kRows});
    convertDepth(name, Variant::mx, {rows.data(), kRowBytes, wanted.data(), kRowBytes, 5, kRows});
    EXPECT_EQ(gathered(target.origin(), kFull), wanted) << name;
  }
}

TEST(OracleWrap, TwistDoesNotWrap) {
  const Room source;
  if (!source.exists()) GTEST_SKIP() << "no room of addresses";
  scatter(source.origin(), kFull, 1);
  Bytes rows = gathered(source.origin(), kFull);
  const auto run = [](std::uint8_t* image, int step) {
    auto* samples = reinterpret_cast<std::int8_t*>(image);
    twist("ColorTwist32f_8s_C3IR", Variant::mx,
          {{samples}, step, {samples}, step, 5, kRows, {{0, 1}, {0, 0, 1}, {1, 0, 0, 9}}});
  };
  run(source.origin(), kPitch);
  run(rows.data(), kRowBytes);
  EXPECT_EQ(gathered(source.origin(), kFull), rows);
}

}  // namespace
}  // namespace oracle
