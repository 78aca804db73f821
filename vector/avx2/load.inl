// SPDX-License-Identifier: MIT
// Samples of 32 columns to lanes, and their pixels to memory: sixteen columns in each half of a
// register.
#ifndef PXM_VECTOR_AVX2_LOAD_INL
#define PXM_VECTOR_AVX2_LOAD_INL

#include "vector/avx2/lanes.inl"
#include "vector/sse/load.inl"

PXM_LEVEL_BEGIN

// For each byte the one of its half that comes there, or none: -1 gives zero.
struct BytePlaces {
  alignas(32) int8_t bytes[32];
};

template <class PlaceOf>
constexpr BytePlaces bytePlaces() {
  BytePlaces p = {};
  for (int i = 0; i < 32; ++i) p.bytes[i] = static_cast<int8_t>(PlaceOf::byte(i));
  return p;
}

template <class PlaceOf>
PXM_INLINE I16x16 bytesAt(I16x16 a) {
  static constexpr BytePlaces places = bytePlaces<PlaceOf>();
  return {
      _mm256_shuffle_epi8(a.v, _mm256_load_si256(reinterpret_cast<const __m256i*>(places.bytes)))};
}

// Samples in a row, each for `share` lanes, in their high bytes; all stand in both halves.
template <int share>
struct SpreadPlaces {
  static constexpr int byte(int i) { return i % 2 == 0 ? -1 : i / 2 / share; }
};

// Byte `channel` of sixteen pixels of three, even columns before odd ones, from the third of
// their 48 bytes that begins at `from`.
template <int channel, int from>
struct PlanePlaces {
  static constexpr int byte(int i) {
    const int column = i % 8 * 2 + i % 16 / 8;
    const int place = 3 * column + channel - from;
    return place >= 0 && place < 16 ? place : -1;
  }
};

template <>
struct Loads<I16x16> {
  PXM_INLINE static PairedBytes<I16x16> columns(const uint8_t* p) { return {load16Lanes(p)}; }

  template <int shift>
  PXM_INLINE static I16x16 chroma(const uint8_t* p) {
    return bytesAt<SpreadPlaces<1 << (shift - 1)>>(
        {_mm256_broadcastsi128_si256(loadBytes<(32 >> shift)>(p))});
  }

  PXM_INLINE static InterleavedSamples<I16x16> interleaved(const uint8_t* p) {
    const I16x16 a = loadHalves(p, p + 32), b = loadHalves(p + 16, p + 48);
    const I16x16 low = broadcast<I16x16>(0xFF);
    return {{packUnsigned(a & low, b & low)},
            {packUnsigned(shiftRightLogical<8>(a), shiftRightLogical<8>(b))}};
  }

  PXM_INLINE static SplitPlanes<I16x16> planes(const uint8_t* p) {
    const I16x16 a = loadHalves(p, p + 48), b = loadHalves(p + 16, p + 64);
    const I16x16 c = loadHalves(p + 32, p + 80);
    return {plane<0>(a, b, c), plane<1>(a, b, c), plane<2>(a, b, c)};
  }

 private:
  template <int channel>
  PXM_INLINE static SplitBytes<I16x16> plane(I16x16 a, I16x16 b, I16x16 c) {
    return {bytesAt<PlanePlaces<channel, 0>>(a) | bytesAt<PlanePlaces<channel, 16>>(b) |
            bytesAt<PlanePlaces<channel, 32>>(c)};
  }
};

// The sixteen columns of the low halves, or of the high ones.
template <int half>
PXM_INLINE I16x16 columnsOfHalf(const PackedColumns<I16x16>& pixels) {
  return {_mm256_permute2x128_si256(pixels.first.v, pixels.second.v, half == 0 ? 0x20 : 0x31)};
}

PXM_INLINE PackedColumns<I16x8> lowHalves(const PackedColumns<I16x16>& pixels) {
  return {lowHalf(pixels.first), lowHalf(pixels.second)};
}
PXM_INLINE PackedColumns<I16x8> highHalves(const PackedColumns<I16x16>& pixels) {
  return {highHalf(pixels.first), highHalf(pixels.second)};
}

PXM_INLINE void storeRow(uint8_t* out, const PackedColumns<I16x16>& pixels) {
  storePixels(out, columnsOfHalf<0>(pixels));
  storePixels(out + 32, columnsOfHalf<1>(pixels));
}

template <int inBlocksOf>
PXM_INLINE void storeRows(uint8_t* upper, const PackedColumns<I16x16>& upperPixels, uint8_t* lower,
                          const PackedColumns<I16x16>& lowerPixels) {
  if constexpr (inBlocksOf == 16) {
    storePixels(upper, columnsOfHalf<0>(upperPixels));
    storePixels(lower, columnsOfHalf<0>(lowerPixels));
    storePixels(upper + 32, columnsOfHalf<1>(upperPixels));
    storePixels(lower + 32, columnsOfHalf<1>(lowerPixels));
  } else {
    storeRows<8>(upper, lowHalves(upperPixels), lower, lowHalves(lowerPixels));
    storeRows<8>(upper + 32, highHalves(upperPixels), lower + 32, highHalves(lowerPixels));
  }
}

PXM_LEVEL_END

#endif
