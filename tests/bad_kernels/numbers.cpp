// SPDX-License-Identifier: MIT
// Entries that convert nearly everything well.
#include "tests/bad_kernels/faults.h"

namespace {

constexpr int block = 32;  // columns of an iteration in AVX2

// Decodes, then spoils the pixels for which wrong(column, samples of the pixel) holds.
template <class Wrong>
pxmStatus decodeBut(const std::uint8_t* src, int srcStep, std::uint16_t* dst, int dstStep,
                    pxmSize size, Wrong wrong) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, size);
  if (status != pxmStatusOk) return status;
  for (int y = 0; y < size.height; ++y) {
    const std::uint8_t* const row = rowOf(src, y, srcStep);
    for (int x = 0; x < size.width; ++x)
      if (wrong(x, row + 3 * x)) flip(rowOf(dst, y, dstStep) + x);
  }
  return status;
}

bool isTheTriple(const std::uint8_t* samples) {
  return samples[0] == 77 && samples[1] == 201 && samples[2] == 14;
}

}  // namespace

BAD(OneWrongTriple, DecodeInterleaved) {
  return decodeBut(src, srcStep, dst, dstStep, roiSize,
                   [](int, const std::uint8_t* samples) { return isTheTriple(samples); });
}

BAD(OneWrongTripleInTheTail, DecodeInterleaved) {
  return decodeBut(src, srcStep, dst, dstStep, roiSize, [&](int x, const std::uint8_t* samples) {
    return x >= roiSize.width / 8 * 8 && isTheTriple(samples);
  });
}

BAD(OneWrongTripleAtOneColumn, DecodeInterleaved) {
  return decodeBut(src, srcStep, dst, dstStep, roiSize, [](int x, const std::uint8_t* samples) {
    return x % block == 24 && isTheTriple(samples);
  });
}

BAD(WrongAtOneColumn, DecodeInterleaved) {
  return decodeBut(src, srcStep, dst, dstStep, roiSize, [&](int x, const std::uint8_t*) {
    return x < roiSize.width / block * block && x % block == 29;
  });
}

BAD(WrongInTheTail, DecodeInterleaved) {
  return decodeBut(src, srcStep, dst, dstStep, roiSize, [&](int x, const std::uint8_t*) {
    return x >= roiSize.width / block * block && roiSize.width >= block;
  });
}

BAD(OneWrongTripleOfADepthConversion, Depth888To565) {
  return decodeBut(src, srcStep, dst, dstStep, roiSize,
                   [](int, const std::uint8_t* samples) { return isTheTriple(samples); });
}

BAD(OneWrongTripleOfTheTwist, TwistInterleaved) {
  const pxmStatus status = good(src, srcStep, dst, dstStep, roiSize, twist);
  for (int y = 0; y < roiSize.height; ++y)
    for (int x = 0; x < roiSize.width; ++x) {
      const int8_t* const samples = src + std::ptrdiff_t{y} * srcStep + 3 * x;
      if (samples[0] == 77 && samples[1] == -55 && samples[2] == 14)
        flip(dst + std::ptrdiff_t{y} * dstStep + 3 * x);
    }
  return status;
}

BAD(OneWrongPixelOfAnEncoder, Encode422Planar) {
  const pxmStatus status =
      good(src, srcStep, static_cast<std::uint8_t**>(dst), static_cast<int*>(dstStep), roiSize);
  for (int y = 0; y < roiSize.height; ++y) {
    const auto* const row = reinterpret_cast<const std::uint16_t*>(
        rowOf(reinterpret_cast<const std::uint8_t*>(src), y, srcStep));
    for (int x = 0; x < roiSize.width; ++x)
      if (row[x] == 0x9A3C) flip(rowOf(dst[0], y, dstStep[0]) + x);
  }
  return status;
}

BAD(OneWrongSumOfAnEncoder, Encode422Planar) {
  const pxmStatus status =
      good(src, srcStep, static_cast<std::uint8_t**>(dst), static_cast<int*>(dstStep), roiSize);
  for (int y = 0; y < roiSize.height; ++y) {
    const auto* const row = reinterpret_cast<const std::uint16_t*>(
        rowOf(reinterpret_cast<const std::uint8_t*>(src), y, srcStep));
    for (int x = 0; x + 1 < roiSize.width; x += 2) {
      const int red = (row[x] >> 11) + (row[x + 1] >> 11);
      const int green = (row[x] >> 5 & 63) + (row[x + 1] >> 5 & 63);
      const int blue = (row[x] & 31) + (row[x + 1] & 31);
      if (red == 17 && green == 101 && blue == 44) flip(rowOf(dst[1], y, dstStep[1]) + x / 2);
    }
  }
  return status;
}
