// SPDX-License-Identifier: MIT
//
// Decoding calls in the SIMD variants, for the oracle's own tests.

#ifndef TESTS_ORACLE_TEST_VECTOR_H_
#define TESTS_ORACLE_TEST_VECTOR_H_

#include <cstdint>
#include <string_view>
#include <vector>

#include "tests/oracle/oracle.h"
#include "tests/oracle/test_images.h"

namespace oracle {

// The names of the decoding conversions.
inline std::vector<std::string_view> decodeNames() {
  std::vector<std::string_view> names;
  for (const std::string_view name : conversionNames()) {
    if (parseDecodeName(name)) names.push_back(name);
  }
  return names;
}

// The two conversions that l9 decodes as no other variant does.
inline bool isOwnWayOfL9(std::string_view name) {
  return name == "YCbCr422ToBGR555_8u16u_C2C3R" || name == "YCbCr422ToBGR565_8u16u_C2C3R";
}

inline bool isPlainYuvName(std::string_view name) {
  return name.starts_with("YUV420To") && name.find("Dither") == std::string_view::npos;
}

// Three planes of 16 rows of 64 samples, one after the other, with room around them.
class Source {
 public:
  static constexpr int kRow = 64;

  explicit Source(const Bytes& bytes) : bytes_(bytes) {}
  static Source noisy(std::uint32_t seed = 5) { return Source(noise(kSize, seed)); }

  // Planes of one sample each.
  static Source uniform(int y, int first, int second) {
    Bytes bytes(kSize, static_cast<std::uint8_t>(y));
    for (std::size_t i = kMargin + kPlane; i < kSize; ++i) {
      bytes[i] = static_cast<std::uint8_t>(i < kMargin + 2 * kPlane ? first : second);
    }
    return Source(bytes);
  }

  int at(int plane, int row, int column) const { return bytes_[index(plane, row, column)]; }

  DecodeCall call(Canvas& canvas, int dstStep, int width, int height) const {
    return {{&bytes_[index(0, 0, 0)], &bytes_[index(1, 0, 0)], &bytes_[index(2, 0, 0)]},
            {kRow, kRow, kRow},
            canvas.origin(),
            dstStep,
            width,
            height};
  }

 private:
  static constexpr std::size_t kMargin = 64;
  static constexpr std::size_t kPlane = 16 * kRow;
  static constexpr std::size_t kSize = 3 * kPlane + 2 * kMargin;

  static std::size_t index(int plane, int row, int column) {
    return kMargin + static_cast<std::size_t>(plane) * kPlane +
           static_cast<std::size_t>(row * kRow + column);
  }

  Bytes bytes_;
};

// What a call leaves of an untouched destination. The status is not looked at.
inline Canvas decodedFrom(const Source& source, std::string_view name, Variant variant, int dstStep,
                          int width, int height) {
  Canvas canvas;
  decode(name, variant, source.call(canvas, dstStep, width, height));
  return canvas;
}

}  // namespace oracle

#endif  // TESTS_ORACLE_TEST_VECTOR_H_
