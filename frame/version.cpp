// SPDX-License-Identifier: MIT
// The version records, and one entry of legacy90pxmccGetLibVersion for each variant.
#include "frame/features.h"

namespace {

constexpr pxmVersionRecord record(char first, char second, const char* label) {
  return {9, 0, 0, -1, {first, second}, label, "9.0 Legacy (r48491) (-)", "Oct 14 2015"};
}

constexpr pxmVersionRecord recordMx = record('m', 'x', "pxmCC PX (mx)");
constexpr pxmVersionRecord recordM7 = record('m', '7', "pxmCC SSE3 (m7)");
constexpr pxmVersionRecord recordU8 = record('u', '8', "pxmCC SSSE3 (u8)");
constexpr pxmVersionRecord recordN8 = record('n', '8', "pxmCC Mote (n8)");
constexpr pxmVersionRecord recordY8 = record('y', '8', "pxmCC SSE4.1/4.2 (y8)");
constexpr pxmVersionRecord recordY8WithSse42 = record('y', '8', "pxmCC SSE4.1/4.2 (y8)+");
constexpr pxmVersionRecord recordE9 = record('e', '9', "pxmCC AVX (e9)");
constexpr pxmVersionRecord recordL9 = record('l', '9', "pxmCC AVX2 (l9)");

}  // namespace

#pragma GCC visibility push(hidden)
extern "C" {

const pxmVersionRecord* GetLibVersion_mx() {
  return &recordMx;
}
const pxmVersionRecord* GetLibVersion_m7() {
  return &recordM7;
}
const pxmVersionRecord* GetLibVersion_u8() {
  return &recordU8;
}
const pxmVersionRecord* GetLibVersion_n8() {
  return &recordN8;
}
const pxmVersionRecord* GetLibVersion_y8() {
  return pxm::TestEnabledFeatures(pxm::featureSse42) ? &recordY8WithSse42 : &recordY8;
}
const pxmVersionRecord* GetLibVersion_e9() {
  return &recordE9;
}
const pxmVersionRecord* GetLibVersion_l9() {
  return &recordL9;
}
}
#pragma GCC visibility pop
