// SPDX-License-Identifier: MIT
// Conversions of images that a test spells out, with tight rows.
#ifndef TESTS_SUPPORT_SMALL_IMAGES_H_
#define TESTS_SUPPORT_SMALL_IMAGES_H_

#include <cstdint>
#include <string_view>
#include <vector>

using Bytes = std::vector<std::uint8_t>;
using Words = std::vector<unsigned>;

inline constexpr unsigned untouchedWord = 0x5A5A;
inline constexpr std::uint8_t untouchedByte = 0x5A;

// The pixels of a decoding conversion, row after row; `planes` are one interleaved image or three
// planes. Four pixels of room follow, which stay untouched in scalar code. `status` is what the
// call must return.
Words decoded(std::string_view name, std::vector<Bytes> planes, int width, int height,
              int status = 0);

// The planes, or the one interleaved image, of an encoding conversion. A plane has room for every
// pixel, in rows of `width` bytes (chroma: width / 2, or width / 4 in 4:1:1, at least 1;
// interleaved: 2 x width); what is not written is untouchedByte.
std::vector<Bytes> encoded(std::string_view name, const Words& pixels, int width, int height,
                           int status = 0);

#endif
