// SPDX-License-Identifier: MIT
// Rows of the colour twist in blocks of eight pixels. All samples of a block are read before any
// result of it is written, and nothing is read that has been written, so the two images may be one.
#ifndef PXM_VECTOR_TWIST_ROW_INL
#define PXM_VECTOR_TWIST_ROW_INL

#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>

#include "frame/signatures.h"
#include "vector/sse/float_lanes.inl"
#include "vector/twist/arithmetic.inl"

PXM_LEVEL_BEGIN

// A place in the source and in the destination. Samples of a channel are one byte apart in planes,
// and three or four in pixels.
template <int bytes>
struct PixelPlace {
  static constexpr int pixelBytes = bytes;
  Signed source;
  int8_t* out;
  PXM_INLINE Signed sourceOf(int channel) const { return source + channel; }
  PXM_INLINE int8_t* outOf(int channel) const { return out + channel; }
  PXM_INLINE void advance() {
    source += 8 * pixelBytes;
    out += 8 * pixelBytes;
  }
};
struct PlanarPlace {
  static constexpr int pixelBytes = 1;
  Signed source[3];
  int8_t* out[3];
  ptrdiff_t from, to;
  PXM_INLINE Signed sourceOf(int channel) const { return source[channel] + from; }
  PXM_INLINE int8_t* outOf(int channel) const { return out[channel] + to; }
  PXM_INLINE void advance() {
    from += 8;
    to += 8;
  }
};

template <class Lanes, class Place>
struct TwistBlocks {
  PXM_INLINE static void row(Place place, int width, const TwistColumns<Lanes>& columns) {
    if constexpr (pixelBytes == 1 || (pixelBytes == 3 && Lanes::storesThreeBytePixels))
      convertAndStore(place, width, columns);
    else
      convertAndStoreLater(place, width, columns);
  }

 private:
  static constexpr int pixelBytes = Place::pixelBytes;
  using Samples = typename Lanes::Samples;
  using Results = typename Lanes::Results;

  // One loop for blocks and the remainder keeps a kernel small.
  PXM_INLINE static void convertAndStore(Place place, int width,
                                         const TwistColumns<Lanes>& columns) {
    for (int left = width; left > 0; left -= 8, place.advance()) {
      const Results results = twistedPixels(load(place, left, left == width), columns);
      if (left < 8) [[unlikely]]
        storeRemainder(place, left, results);
      else if constexpr (pixelBytes == 1)
        Lanes::channelBytes(results).storePlanes(place.outOf(0), place.outOf(1), place.outOf(2));
      else
        Lanes::storeThreeBytePixels(place.out, results);
    }
  }

  // A pixel takes two stores, and processors have room for few stores that wait for their data. So
  // a block is stored when four more have been computed.
  PXM_INLINE static void convertAndStoreLater(Place place, int width,
                                              const TwistColumns<Lanes>& columns) {
    constexpr ptrdiff_t delay = 4 * 8;
    PixelPieces blocks[8];
    for (ptrdiff_t x = 0; x < width + delay; x += 8) {
      if (x < width) {
        const Samples samples = load(place, static_cast<int>(width - x), x == 0);
        Lanes::store(blocks[x / 8 % 8], twistedPixels(samples, columns));
        place.source += 8 * pixelBytes;
      }
      if (x >= delay) {
        const ptrdiff_t stored = x - delay;
        storePieces(place.out, static_cast<int>(width - stored), blocks[stored / 8 % 8]);
        place.out += 8 * pixelBytes;
      }
    }
  }

  PXM_INLINE static Samples load(const Place& place, int left, bool firstOfRow) {
    if (left < 8) [[unlikely]]
      return loadRemainder(place, left);
    if constexpr (pixelBytes == 1)
      return Lanes::fromPlanes(eightBytes(place.sourceOf(0)), eightBytes(place.sourceOf(1)),
                               eightBytes(place.sourceOf(2)));
    else
      return Lanes::template fromPixels<pixelBytes>(place.source, firstOfRow);
  }

  // Spare lanes repeat the last pixel, so that they raise no flag that it does not.
  PXM_INLINE static Samples loadRemainder(const Place& place, int count) {
    constexpr uint64_t everywhere = 0x0101010101010101;
    int i = count - 1;
    uint64_t first = sample(place, 0, i) * everywhere;
    uint64_t second = sample(place, 1, i) * everywhere;
    uint64_t third = sample(place, 2, i) * everywhere;
    while (i > 0) {
      --i;
      first = first << 8 | sample(place, 0, i);
      second = second << 8 | sample(place, 1, i);
      third = third << 8 | sample(place, 2, i);
    }
    return Lanes::fromPlanes(lowBytes(first), lowBytes(second), lowBytes(third));
  }
  PXM_INLINE static uint64_t sample(const Place& place, int channel, int i) {
    return static_cast<uint8_t>(place.sourceOf(channel)[i * pixelBytes]);
  }
  PXM_INLINE static __m128i lowBytes(uint64_t bytes) {
    return _mm_cvtsi64_si128(static_cast<int64_t>(bytes));
  }

  PXM_INLINE static void storeRemainder(const Place& place, int count, const Results& results) {
    ChannelWords words = Lanes::channelBytes(results).words();
    for (int i = 0; i < count; ++i) {
      place.outOf(0)[i * pixelBytes] = static_cast<int8_t>(words.first);
      place.outOf(1)[i * pixelBytes] = static_cast<int8_t>(words.second);
      place.outOf(2)[i * pixelBytes] = static_cast<int8_t>(words.third);
      words = {words.first >> 8, words.second >> 8, words.third >> 8};
    }
  }

  PXM_INLINE static void storePieces(int8_t* out, int left, const PixelPieces& pieces) {
    if (left >= 8) [[likely]]
      pieces.storeEight<pixelBytes>(out);
    else
      for (int i = 0; i < left; ++i) pieces.storeOne(out + i * pixelBytes, i);
  }
};

PXM_LEVEL_END

#endif
