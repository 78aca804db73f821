// SPDX-License-Identifier: MIT
// A picture that shows what few bits do to colours.
#ifndef PXM_EXAMPLES_TEST_PICTURE_H
#define PXM_EXAMPLES_TEST_PICTURE_H

#include <vector>

namespace examples {

/// Samples of a picture in three planes of the same size, ITU-R BT.601 in studio range.
struct YcbcrPlanes {
  std::vector<unsigned char> plane[3];
};

/// Draws frame number 0, 1, 2... of the test clip. From the top down:
///  - eight saturated bars: white, yellow, cyan, green, magenta, red, blue, black;
///  - ramps from left to right: black to white, red, green, blue, and a ramp of skin tones;
///  - a zone plate on the left, a skin-coloured ball before a dusk sky on the right.
/// The rings of the zone plate and the ball move from frame to frame. Integers and exact square
/// roots make the same bytes on every machine.
/// @param width, height from 1 to 16384
void drawTestPicture(int width, int height, int frame, YcbcrPlanes& planes);

}  // namespace examples

#endif
