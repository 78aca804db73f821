/* SPDX-License-Identifier: MIT */
#include <pxmcc90lgc.h>
#include <stdio.h>

int main(void) {
  static unsigned char luma[480 * 640], chroma[480 * 640];
  static unsigned short screen[480][642];
  const unsigned char* planes[3];
  pxmSize size = {640, 480};
  pxmStatus status;

  planes[0] = luma;
  planes[1] = planes[2] = chroma;
  status = legacy90pxmiYCbCrToBGR565_8u16u_P3C3R(planes, 640, screen[0], 642 * 2, size);
  if (status < 0) return 1;
  printf("%s: first pixel 0x%04X\n", legacy90pxmccGetLibVersion()->label, screen[0][0]);
  /* Y = Cb = Cr = 0 is red 0, green 135 and blue 0: 135 >> 2 is 33. */
  return screen[0][0] != 33 << 5 || screen[479][639] != 33 << 5;
}
