// SPDX-License-Identifier: MIT
#include "tests/support/geometry.h"

std::vector<Layout> layoutsOf(const Conversion& conversion, int width, int height) {
  struct Pitch {
    int padding;
    bool upwards;
  };
  const Pitch srcPitches[] = {{0, false}, {13, false}, {22, false}, {0, true}, {37, true}};
  const Pitch dstPitches[] = {{0, false}, {1, false}, {22, false}, {37, false},
                              {0, true},  {1, true},  {22, true},  {37, true}};
  const bool downwardsOnly = conversion.kind == Kind::Twist;
  std::vector<Layout> layouts;
  for (const Pitch src : srcPitches)
    for (const Pitch dst : dstPitches)
      if (!(downwardsOnly && (src.upwards || dst.upwards)))
        for (const Against side : {Against::FirstPage, Against::LastPage})
          for (const int distance : {0, 1})
            layouts.push_back({width, height, src.padding, dst.padding, src.upwards, dst.upwards,
                               side, distance});
  return layouts;
}
