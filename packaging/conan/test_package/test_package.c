/* SPDX-License-Identifier: MIT */
#include <pxmcc90lgc.h>
#include <stdio.h>

int main(void) {
  const unsigned char luma[4] = {16, 235, 16, 235}, chroma[4] = {128, 128, 128, 128};
  const unsigned char* planes[3];
  unsigned short pixels[4];
  const pxmSize size = {2, 1};

  planes[0] = luma;
  planes[1] = planes[2] = chroma;
  if (legacy90pxmiYCbCrToBGR565_8u16u_P3C3R(planes, 2, pixels, 4, size) < 0) return 1;
  printf("pxmcc90lgc, %s: black 0x%04X, white 0x%04X\n", legacy90pxmccGetLibVersion()->label,
         pixels[0], pixels[1]);
  return pixels[0] != 0x0000 || pixels[1] != 0xFFFF;
}
