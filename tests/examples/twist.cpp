// SPDX-License-Identifier: MIT
// Whole calls of the colour twist: layouts, pitches, what is left alone. The arithmetic has a table
// of its own.
#include "tests/examples/example.h"

namespace examples {
namespace {

const std::vector<float> identity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0};
const std::vector<float> rotation = {0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0};
const std::vector<float> firstIs(float constant) {
  return {0, 0, 0, constant, 0, 1, 0, 0, 0, 0, 1, 0};
}

}  // namespace

std::vector<Example> twist() {
  const Bytes nineSamples = signedSamples({10, 20, 30, -1, -2, -3, 127, 0, -128});
  const Bytes rotated = signedSamples({20, 30, 10, -2, -3, -1, 0, -128, 127});
  std::vector<Example> all = {
      {"channels are rotated",
       {"ColorTwist32f_8s_C3R"},
       3,
       1,
       {{nineSamples, 9}},
       {rows(9, {rotated})},
       In::Every,
       0,
       rotation},
      {"in place uses the samples that were there",
       {"ColorTwist32f_8s_C3IR"},
       3,
       1,
       {},
       {{9, {{0, rotated}}, {{0, nineSamples}}}},
       In::Every,
       0,
       rotation},
      {"planes are rotated",
       {"ColorTwist32f_8s_P3R"},
       2,
       1,
       {{{10, 11}, 2}, {{20, 21}, 2}, {{30, 31}, 2}},
       {rows(2, {{20, 21}}), rows(2, {{30, 31}}), rows(2, {{10, 11}})},
       In::Every,
       0,
       rotation},
      {"planes in place use the samples that were there",
       {"ColorTwist32f_8s_IP3R"},
       2,
       1,
       {},
       {{2, {{0, {20, 21}}}, {{0, {10, 11}}}},
        {2, {{0, {30, 31}}}, {{0, {20, 21}}}},
        {2, {{0, {10, 11}}}, {{0, {30, 31}}}}},
       In::Every,
       0,
       rotation},
      {"the fourth byte stays as it was",
       {"ColorTwist32f_8s_AC4R"},
       2,
       1,
       {{{1, 2, 3, 99, 4, 5, 6, 98}, 8}},
       {{8, {{0, {1, 2, 3}}, {4, {4, 5, 6}}}, {{3, {50}}, {7, {51}}}}},
       In::Every,
       0,
       identity},
      {"the fourth byte stays as it was in place",
       {"ColorTwist32f_8s_AC4IR"},
       2,
       1,
       {},
       {{8, {{0, {2, 3, 1}}, {4, {5, 6, 4}}}, {{0, {1, 2, 3, 99, 4, 5, 6, 98}}}}},
       In::Every,
       0,
       rotation},
      {"rows lie their pitches apart, odd ones too",
       {"ColorTwist32f_8s_C3R"},
       1,
       3,
       {{{1, 2, 3, 0, 0, 4, 5, 6, 0, 0, 7, 8, 9}, 5}},
       {rows(7, {{2, 3, 1}, {5, 6, 4}, {8, 9, 7}})},
       In::Every,
       0,
       rotation},
      {"planes share a pitch",
       {"ColorTwist32f_8s_P3R"},
       1,
       2,
       {{{1, 0, 0, 2}, 3}, {{3, 0, 0, 4}, 9}, {{5, 0, 0, 6}, 9}},
       {{4, {{0, {3}}, {4, {4}}}}, {9, {{0, {5}}, {4, {6}}}}, {9, {{0, {1}}, {4, {2}}}}},
       In::Every,
       0,
       rotation},
      {"a constant fills its channel alone",
       {"ColorTwist32f_8s_C3R"},
       2,
       1,
       {{signedSamples({-128, 5, 6, 127, -7, 8}), 6}},
       {rows(6, {signedSamples({127, 5, 6, 127, -7, 8})})},
       In::Every,
       0,
       firstIs(200)},
      {"a constant empties its channel alone",
       {"ColorTwist32f_8s_C3R"},
       2,
       1,
       {{signedSamples({-128, 5, 6, 127, -7, 8}), 6}},
       {rows(6, {signedSamples({-128, 5, 6, -128, -7, 8})})},
       In::Every,
       0,
       firstIs(-200)},
      {"a pitch below 1 is rejected",
       {"ColorTwist32f_8s_C3R"},
       1,
       1,
       {{{1, 2, 3}, 0}},
       {untouched(3)},
       In::Every,
       -14,
       identity},
      {"a negative pitch is rejected",
       {"ColorTwist32f_8s_C3IR"},
       1,
       1,
       {},
       {{-3, {{0, {1, 2, 3}}}, {{0, {1, 2, 3}}}}},
       In::Every,
       -14,
       identity},
  };

  Bytes every;
  for (int s = -128; s < 128; ++s) every.insert(every.end(), 3, static_cast<std::uint8_t>(s));
  all.push_back({"identity keeps every sample",
                 {"ColorTwist32f_8s_C3R"},
                 256,
                 1,
                 {{every, 768}},
                 {rows(768, {every})},
                 In::Every,
                 0,
                 identity});
  return all;
}

}  // namespace examples
