// SPDX-License-Identifier: MIT
// Two blocks of eight columns in one register of sixteen lanes: which samples reach which lanes.
#ifndef PXM_VECTOR_AVX2_DECODE_INL
#define PXM_VECTOR_AVX2_DECODE_INL

#include "decode/sources.inl"
#include "vector/avx2/lanes.inl"
#include "vector/packers.inl"

PXM_TEXT_BEGIN

// For each lane the byte of its half that becomes its high byte; -1 is zero, as the low bytes are.
struct SamplePlaces {
  alignas(32) int8_t bytes[32];
};

template <class PlaceOf>
constexpr SamplePlaces samplePlaces() {
  SamplePlaces p = {};
  for (int lane = 0; lane < 16; ++lane) {
    p.bytes[2 * lane] = -1;
    p.bytes[2 * lane + 1] = static_cast<int8_t>(PlaceOf::lane(lane));
  }
  return p;
}

template <class PlaceOf>
PXM_INLINE I16x16 samplesAt(__m256i bytes) {
  static constexpr SamplePlaces places = samplePlaces<PlaceOf>();
  return {_mm256_shuffle_epi8(bytes,
                              _mm256_load_si256(reinterpret_cast<const __m256i*>(places.bytes)))};
}

// Samples in a row, each for `share` lanes; the bytes stand in both halves.
template <int share>
struct PlanarPlaces {
  static constexpr int lane(int i) { return i / share; }
};
// Y, Cb, Y, Cr: byte 1 or 3 of four, for two lanes.
template <int byte>
struct PackedPlaces422 {
  static constexpr int lane(int i) { return i % 8 / 2 * 4 + byte; }
};
// Byte `channel` of eight pixels of three: those below byte 16, or those from it on in bytes that
// begin at 8.
template <int channel, bool beyond>
struct PackedPlaces444 {
  static constexpr int lane(int i) {
    const int place = 3 * (i % 8) + channel;
    return (place >= 16) != beyond ? -1 : beyond ? place - 8 : place;
  }
};

template <int n>
PXM_INLINE __m256i loadTwice(const uint8_t* p) {
  return _mm256_broadcastsi128_si256(loadBytes<n>(p));
}
struct WideChroma {
  I16x16 cb, cr;
};

template <int rows, int shift>
PXM_INLINE I16x16 wideLumaLanes(const PlanarRows<rows, shift>& source, int row, ptrdiff_t x) {
  return samplesAt<PlanarPlaces<1>>(loadTwice<16>(source.luma[row] + x));
}
template <int rows, int shift>
PXM_INLINE WideChroma wideChromaLanes(const PlanarRows<rows, shift>& source, ptrdiff_t x) {
  using Places = PlanarPlaces<(1 << shift)>;
  return {samplesAt<Places>(loadTwice<(16 >> shift)>(source.cb + (x >> shift))),
          samplesAt<Places>(loadTwice<(16 >> shift)>(source.cr + (x >> shift)))};
}

PXM_INLINE I16x16 wideLumaLanes(const PackedRow422& source, int, ptrdiff_t x) {
  return shiftLeft<8>(load16Lanes(source.samples + 2 * x));
}
PXM_INLINE WideChroma wideChromaLanes(const PackedRow422& source, ptrdiff_t x) {
  const __m256i words = load16Lanes(source.samples + 2 * x).v;
  return {samplesAt<PackedPlaces422<1>>(words), samplesAt<PackedPlaces422<3>>(words)};
}

// Eight pixels in each half.
template <int channel>
PXM_INLINE I16x16 channelOf444(const PackedRow444& source, ptrdiff_t x) {
  const uint8_t* const p = source.samples + 3 * x;
  return samplesAt<PackedPlaces444<channel, false>>(loadHalves(p, p + 24).v) |
         samplesAt<PackedPlaces444<channel, true>>(loadHalves(p + 8, p + 32).v);
}
PXM_INLINE I16x16 wideLumaLanes(const PackedRow444& source, int, ptrdiff_t x) {
  return channelOf444<0>(source, x);
}
PXM_INLINE WideChroma wideChromaLanes(const PackedRow444& source, ptrdiff_t x) {
  return {channelOf444<1>(source, x), channelOf444<2>(source, x)};
}

template <class Row>
PXM_INLINE LaneTerms<I16x16> wideTerms(const Row& row, ptrdiff_t x) {
  const WideChroma c = wideChromaLanes(row.source, x);
  return Row::Chain::chroma(c.cb, c.cr);
}
template <class Row>
PXM_INLINE I16x16 wideLuma(const Row& row, int r, ptrdiff_t x) {
  return Row::Chain::luma(wideLumaLanes(row.source, r, x));
}

// Stores are in the order of blocks of eight, upper row first.
template <class Row>
PXM_INLINE void storeRows(const Row& row, ptrdiff_t x, I16x16 upper, I16x16 lower) {
  uint8_t* const out = row.out[0].pixels + 2 * x;
  uint8_t* const below = row.out[1].pixels + 2 * x;
  storePixels<8>(out, lowHalf(upper));
  storePixels<8>(below, lowHalf(lower));
  storePixels<8>(out + 16, highHalf(upper));
  storePixels<8>(below + 16, highHalf(lower));
}

// Two registers: sixteen columns of two rows, or 32 of one.
template <bool isBgr, class Row>
PXM_INLINE void columnsInOrder(const Row& row, ptrdiff_t x) {
  using LaneRow = LaneRow<typename Row::Packer, I16x16>;
  const LaneTerms<I16x16> a = wideTerms(row, x);
  const LaneRow upper(row.out[0].number);
  if constexpr (Row::rowCount == 2) {
    const LaneRow lower(row.out[1].number);
    const TwoOfPixels<I16x16> rows =
        packTwo<isBgr>(upper, wideLuma(row, 0, x), a, lower, wideLuma(row, 1, x), a);
    storeRows(row, x, rows.first, rows.second);
  } else {
    const TwoOfPixels<I16x16> columns = packTwo<isBgr>(
        upper, wideLuma(row, 0, x), a, upper, wideLuma(row, 0, x + 16), wideTerms(row, x + 16));
    storePixels(row.out[0].pixels + 2 * x, columns.first);
    storePixels(row.out[0].pixels + 2 * x + 32, columns.second);
  }
}

template <class Row>
PXM_INLINE void wideColumns(const Row& row, ptrdiff_t x) {
  if (row.packer.isBgr())
    columnsInOrder<true>(row, x);
  else
    columnsInOrder<false>(row, x);
}

PXM_TEXT_END

#endif
