/* SPDX-License-Identifier: MIT */
/* Shows a frame of planar 4:2:0 video on a 16-bit display: show_frame WIDTH HEIGHT <frame >/dev/fb0
   Its width and height are even, as those of video are, and its rows those of the display. */
#include <pxmcc90lgc.h>
#include <stdio.h>
#include <stdlib.h>

static int fail(const char* reason) {
  fprintf(stderr, "show_frame: %s\n", reason);
  return 1;
}

int main(int argc, char** argv) {
  const int width = argc == 3 ? atoi(argv[1]) : 0, height = argc == 3 ? atoi(argv[2]) : 0;
  const pxmSize size = {width, height};
  const int dstStep = (width + 2) * 2; /* bytes: two pixels of room after each row */
  const size_t luma = (size_t)width * (size_t)height;
  int srcStep[3], row;
  const unsigned char* planes[3];
  unsigned char* samples;
  unsigned short* pixels;

  if (width < 2 || height < 2 || width > 16384 || height > 16384 || width % 2 || height % 2)
    return fail("usage: show_frame WIDTH HEIGHT <frame.yuv >/dev/fb0, both even");
  samples = malloc(luma * 3 / 2 + 2);
  pixels = malloc((size_t)dstStep * (size_t)height);
  if (!samples || !pixels) return fail("not enough memory");
  if (fread(samples, 1, luma * 3 / 2, stdin) != luma * 3 / 2) return fail("the frame is too short");
  planes[0] = samples;
  planes[1] = samples + luma;
  planes[2] = planes[1] + luma / 4;
  srcStep[0] = width;
  srcStep[1] = srcStep[2] = width / 2;
  if (legacy90pxmiYCbCr420ToBGR565Dither_8u16u_P3C3R(planes, srcStep, pixels, dstStep, size) < 0)
    return fail("the conversion is rejected");
  for (row = 0; row < height; ++row) /* without the room */
    fwrite(pixels + (size_t)row * (size_t)(width + 2), 2, (size_t)width, stdout);
  return fflush(stdout) == 0 && !ferror(stdout) ? 0 : fail("cannot write the pixels");
}
