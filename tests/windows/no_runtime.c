/* SPDX-License-Identifier: MIT */
/* A program of one function, without any runtime: the library needs none. */
#include <pxmcc90lgc.h>

int start(void) {
  unsigned char pixel[3];
  unsigned short screen[1];
  pxmSize size;
  pixel[0] = 235;
  pixel[1] = pixel[2] = 128;
  size.width = size.height = 1;
  if (legacy90pxmiYCbCrToBGR555_8u16u_C3R(pixel, 3, screen, 2, size) != pxmStatusOk) return 1;
  return screen[0] == 0x7FFF ? 0 : 2;
}
