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

// The pixels of a decoding conversion, row after row; `planes` are one interleaved image or three
// planes. Four pixels of room follow, which stay untouched in scalar code. `status` is what the
// call must return.
Words decoded(std::string_view name, std::vector<Bytes> planes, int width, int height,
              int status = 0);

#endif
