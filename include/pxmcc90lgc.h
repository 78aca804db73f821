/* SPDX-License-Identifier: MIT */
/**
 * @file
 * @brief Image colour conversions for 64-bit x86: YCbCr and YUV, 16-bit and 24-bit pixels, by
 * region.
 *
 * @code{.c}
 *   const unsigned char *planes[3];               Y, Cb, Cr; 640x480 samples in each
 *   unsigned short screen[480][642];              what a 16-bit display shows
 *   pxmSize size = {640, 480};
 *   pxmStatus status = legacy90pxmiYCbCrToBGR565_8u16u_P3C3R(
 *       planes, 640,                              source, bytes from row to row
 *       screen[0], 642 * 2,                       destination, bytes from row to row
 *       size);                                    region: width, height in pixels
 *   if (status < 0) ...                           rejected, nothing was written
 * @endcode
 *
 * Link with -lpxmcc90lgc. Nothing needs starting, stopping or freeing. What to know first:
 *
 * - Test for status < 0, never for status != 0: a positive value is a warning, the work is done.
 *   legacy90pxmccInit, for one, returns 20 on every processor of today.
 * - A name says source, To, target, perhaps Dither, the element types of source and destination,
 *   and the layout. C3: interleaved channels (a 16-bit pixel counts as C3), P3: three planes,
 *   R: a region of an image. Two layout words are source, then destination.
 * - The colour that a name spells FIRST sits in the LOW bits: BGR565 has blue in bits 0 to 4 and
 *   red in bits 11 to 15, which most other software calls RGB565. Red and blue exchanged on the
 *   screen mean that the other name of the pair is wanted.
 * - A pitch is the bytes from one row to the next, signed; a negative one walks up the image.
 *   Pixels may stand at any address. Keep the pitch of 16-bit pixels even: it loses its low bit
 *   (641 acts as 640, -641 as -642), but not for the destination of 4:1:1 decoders nor for the
 *   source of most encoders.
 * - The region starts at the pointers given. Pointers and sizes are checked; pitches, overlap and
 *   room are not.
 * - Leave two pixels of room after each destination row, and two readable bytes after the last row
 *   of each source plane: that is always enough. Some functions use the room at some sizes, most
 *   of all YUV 4:2:0 without dither where width & 7 is 4 or 5 (so also 852), and 4:2:0 with dither
 *   where width and height are odd. Rows that are packed tightly then get wrong pixels at their
 *   left edge, and bytes past the end change. docs/room.md has every function.
 * - Arrays of planes that are read hold pointers to const samples, so that a program can pass
 * planes that it may not change itself; one with pointers to unsigned char copies the three into
 * such an array. Arrays of planes and of pitches are only read; that a pitch array is not const is
 * how the interface has always been, and programs declare pointers to these functions by it.
 * - Any number of threads may convert at once into separate destinations. No call allocates,
 *   locks or keeps a pointer.
 * - The processor is detected once, at load, and decides which of seven variants of a function
 *   runs; legacy90pxmccGetLibVersion tells which. Variants do not always agree to the last bit: the
 *   SIMD variants use shorter arithmetic in the leading columns of a row for plain interleaved
 *   4:4:4 and 4:2:2, plain YUV, 4:1:1 and all encoders. One variant gives the same bytes always.
 */
#ifndef PXMCC90LGC_H
#define PXMCC90LGC_H

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Result of a call, signed 32 bits: 0 is success, a negative value a rejection with nothing
 * written, a positive value a warning with the work done.
 */
typedef int pxmStatus;

enum {
  pxmStatusBadStep = -14,      /**< a row pitch is zero or negative (colour twist only) */
  pxmStatusNullPointer = -8,   /**< one of the pointers that are checked is null */
  pxmStatusBadSize = -6,       /**< width or height is below the family's minimum */
  pxmStatusOk = 0,             /**< done */
  pxmStatusThreadsFixed = 1,   /**< the library has one thread; the number cannot be changed */
  pxmStatusForeignCpu = 20,    /**< a processor of another vendor; everything works all the same */
  pxmStatusSizeWarning = 35,   /**< the size does not divide as the format wants; what could be
                                    converted is written */
  pxmStatusCpuUnsupported = 36 /**< the processor could not be detected; scalar code serves it */
};

/** Size of a region of interest in pixels; passed by value. */
typedef struct pxmSize {
  int width;  /**< pixels in a row */
  int height; /**< rows */
} pxmSize;

/** What the library is and which of its variants this processor runs. Constant, never freed. */
typedef struct pxmVersionRecord {
  int versionMajor;        /**< 9 */
  int versionMinor;        /**< 0 */
  int versionPatch;        /**< 0 */
  int buildNumber;         /**< -1 */
  char variantTag[8];      /**< the variant in two letters, such as "l9", zero-filled */
  const char* label;       /**< the variant in words, such as "pxmCC AVX2 (l9)" */
  const char* releaseText; /**< name of the release */
  const char* dateText;    /**< its date */
} pxmVersionRecord;

/**
 * @name Services
 * They work at any time, from any thread, before and after every other call.
 * @{
 */

/**
 * The record of the variant that runs.
 * @return a constant record that lives as long as the library; never null.
 */
const pxmVersionRecord* legacy90pxmccGetLibVersion(void);

/**
 * Detects the processor and chooses the variant, as the load of the library has done already: a
 * repeat makes the same choice and returns the same. No caller needs it.
 * @return pxmStatusOk; pxmStatusForeignCpu where the processor's vendor is not the one that the
 *   library favours, which changes nothing else and is returned on most machines; or
 *   pxmStatusCpuUnsupported. None of them is a failure: conversions work after each.
 */
pxmStatus legacy90pxmccInit(void);

/**
 * Stores the number of threads that the library uses, which is always 1.
 * @param numThreads where the number goes.
 * @return pxmStatusNullPointer if numThreads is null, with nothing stored; otherwise
 *   pxmStatusThreadsFixed (a positive value, and not pxmStatusOk).
 */
pxmStatus legacy90pxmccGetNumThreads(int* numThreads);

/**
 * Changes nothing: the library runs no thread of its own.
 * @param numThreads ignored.
 * @return pxmStatusThreadsFixed.
 */
pxmStatus legacy90pxmccSetNumThreads(int numThreads);

/** @} */

/**
 * @page formats Pixels and colours
 *
 * 16-bit packed pixels. One word a pixel, little-endian, two bytes from pixel to pixel. Bit 15
 * stands at the left; a letter is one bit of red, green or blue, 0 a spare bit: written as zero,
 * ignored where it is read. After each the name that it has in ffmpeg, DRM and SDL, which spell
 * the high bits first:
 *
 * @verbatim
 *   BGR444  0000 RRRR GGGG BBBB   rgb444le, XRGB4444, SDL_PIXELFORMAT_XRGB4444
 *   BGR555  0RRR RRGG GGGB BBBB   rgb555le, XRGB1555, SDL_PIXELFORMAT_XRGB1555
 *   BGR565  RRRR RGGG GGGB BBBB   rgb565le, RGB565, SDL_PIXELFORMAT_RGB565
 *   RGB444  0000 BBBB GGGG RRRR   bgr444le, XBGR4444, SDL_PIXELFORMAT_XBGR4444
 *   RGB555  0BBB BBGG GGGR RRRR   bgr555le, XBGR1555, SDL_PIXELFORMAT_XBGR1555
 *   RGB565  BBBB BGGG GGGR RRRR   bgr565le, BGR565, SDL_PIXELFORMAT_BGR565
 * @endverbatim
 *
 * Plain conversions drop the low bits of each 8-bit component. Dither conversions round by a 4x4
 * ordered matrix, which turns bands into a fine pattern: a component takes the level below it, or
 * the next one where it exceeds that level by more than the threshold at (row & 3, column & 3).
 * Rows and columns count from the first pixel of the region, so the pattern restarts with every
 * call; bands of rows that start at multiples of four join without a seam. One oddity stays: white
 * dithered to 565 is 0xFFDF, not 0xFFFF, at rows 3, 7, 11... and columns 0, 4, 8...
 *
 * YCbCr is 8-bit studio range of ITU-R BT.601: luma 16 to 235, chroma 128 +- 112.
 *
 * @verbatim
 *     R = 1.164 (Y - 16)                     + 1.596 (Cr - 128)
 *     G = 1.164 (Y - 16) - 0.392 (Cb - 128)  - 0.813 (Cr - 128)
 *     B = 1.164 (Y - 16) + 2.017 (Cb - 128)
 *
 *     Y  =  0.257 R + 0.504 G + 0.098 B +  16
 *     Cb = -0.148 R - 0.291 G + 0.439 B + 128
 *     Cr =  0.439 R - 0.368 G - 0.071 B + 128
 * @endverbatim
 *
 * YUV is 8-bit full range with the analogue colour differences.
 *
 * @verbatim
 *     R = Y                     + 1.140 (V - 128)        Y = 0.299 R + 0.587 G + 0.114 B
 *     G = Y - 0.394 (U - 128)   - 0.581 (V - 128)        U = 0.492 (B - Y) + 128
 *     B = Y + 2.032 (U - 128)                            V = 0.877 (R - Y) + 128
 * @endverbatim
 *
 * All in fixed point; components, and V, are clamped to 0 to 255. Each conversion has fixed
 * constants and roundings of its own; conversions that look alike may differ by one level.
 */

/**
 * @name YCbCr 4:4:4 planes to 16-bit packed pixels (yuv444p)
 *
 * @param src      the first samples of three planes, Y, Cb, Cr, all of the region's size.
 * @param srcStep  source pitch in bytes, the same for the three planes.
 * @param dst      the region's first pixel.
 * @param dstStep  destination pitch in bytes; its low bit is dropped.
 * @param roiSize  width and height in pixels.
 *
 * Reads width samples of each plane in each of height rows, writes width pixels in each row.
 *
 * @return in this order: pxmStatusNullPointer if src or dst is null; pxmStatusBadSize if width or
 *   height is below 1; pxmStatusNullPointer if one of the three planes is null; pxmStatusOk.
 * @{
 */

pxmStatus legacy90pxmiYCbCrToBGR444Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                      unsigned short* dst, int dstStep,
                                                      pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR444_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR555Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                      unsigned short* dst, int dstStep,
                                                      pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR555_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR565Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                      unsigned short* dst, int dstStep,
                                                      pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR565_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB444Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                      unsigned short* dst, int dstStep,
                                                      pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB444_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB555Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                      unsigned short* dst, int dstStep,
                                                      pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB555_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB565Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                      unsigned short* dst, int dstStep,
                                                      pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB565_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                unsigned short* dst, int dstStep, pxmSize roiSize);

/** @} */

/**
 * @name YCbCr 4:4:4 interleaved to 16-bit packed pixels
 *
 * Three bytes a pixel: Y0 Cb0 Cr0 Y1 Cb1 Cr1 ... The plain conversions round each component once,
 * the others twice, so plain pixels may differ by one level from those of the planes above.
 *
 * @param src      the region's first byte.
 * @param srcStep  source pitch in bytes.
 * @param dst      the region's first pixel.
 * @param dstStep  destination pitch in bytes; its low bit is dropped.
 * @param roiSize  width and height in pixels, odd ones included.
 *
 * Reads 3 x width bytes in each of height rows, writes width pixels in each row.
 *
 * @return in this order: pxmStatusNullPointer if src or dst is null; pxmStatusBadSize if width or
 *   height is below 1; pxmStatusOk.
 * @{
 */

pxmStatus legacy90pxmiYCbCrToBGR444Dither_8u16u_C3R(const unsigned char* src, int srcStep,
                                                    unsigned short* dst, int dstStep,
                                                    pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR444_8u16u_C3R(const unsigned char* src, int srcStep,
                                              unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR555Dither_8u16u_C3R(const unsigned char* src, int srcStep,
                                                    unsigned short* dst, int dstStep,
                                                    pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR555_8u16u_C3R(const unsigned char* src, int srcStep,
                                              unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR565Dither_8u16u_C3R(const unsigned char* src, int srcStep,
                                                    unsigned short* dst, int dstStep,
                                                    pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR565_8u16u_C3R(const unsigned char* src, int srcStep,
                                              unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB444Dither_8u16u_C3R(const unsigned char* src, int srcStep,
                                                    unsigned short* dst, int dstStep,
                                                    pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB444_8u16u_C3R(const unsigned char* src, int srcStep,
                                              unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB555Dither_8u16u_C3R(const unsigned char* src, int srcStep,
                                                    unsigned short* dst, int dstStep,
                                                    pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB555_8u16u_C3R(const unsigned char* src, int srcStep,
                                              unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB565Dither_8u16u_C3R(const unsigned char* src, int srcStep,
                                                    unsigned short* dst, int dstStep,
                                                    pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB565_8u16u_C3R(const unsigned char* src, int srcStep,
                                              unsigned short* dst, int dstStep, pxmSize roiSize);

/** @} */

/**
 * @name YCbCr 4:2:2 planes to 16-bit packed pixels (yuv422p, Y42B)
 *
 * One Cb and one Cr sample for two pixels of a row.
 *
 * @param src      the first samples of three planes: Y of the region's size, Cb and Cr of
 *   (width + 1) / 2 samples in each row.
 * @param srcStep  source pitch in bytes, one for each plane.
 * @param dst      the region's first pixel.
 * @param dstStep  destination pitch in bytes; its low bit is dropped.
 * @param roiSize  width and height in pixels, odd ones included.
 *
 * Reads those samples and writes width pixels in each row. Plain conversions of a region one pixel
 * wide write nothing in the SIMD variants.
 *
 * @return in this order: pxmStatusNullPointer if src or dst is null; pxmStatusBadSize if width or
 *   height is below 1; pxmStatusNullPointer if one of the three planes is null; pxmStatusOk.
 * @{
 */

pxmStatus legacy90pxmiYCbCr422ToBGR444Dither_8u16u_P3C3R(const unsigned char* src[3],
                                                         int srcStep[3], unsigned short* dst,
                                                         int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToBGR444_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToBGR555Dither_8u16u_P3C3R(const unsigned char* src[3],
                                                         int srcStep[3], unsigned short* dst,
                                                         int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToBGR555_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToBGR565Dither_8u16u_P3C3R(const unsigned char* src[3],
                                                         int srcStep[3], unsigned short* dst,
                                                         int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToBGR565_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToRGB444Dither_8u16u_P3C3R(const unsigned char* src[3],
                                                         int srcStep[3], unsigned short* dst,
                                                         int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToRGB444_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToRGB555Dither_8u16u_P3C3R(const unsigned char* src[3],
                                                         int srcStep[3], unsigned short* dst,
                                                         int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToRGB555_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToRGB565Dither_8u16u_P3C3R(const unsigned char* src[3],
                                                         int srcStep[3], unsigned short* dst,
                                                         int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToRGB565_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);

/** @} */

/**
 * @name YCbCr 4:2:2 interleaved to 16-bit packed pixels (YUY2, YUYV, yuyv422)
 *
 * Four bytes for two pixels: Y0 Cb Y1 Cr. An odd width ends on Y and one chroma byte.
 *
 * @param src      the region's first byte.
 * @param srcStep  source pitch in bytes.
 * @param dst      the region's first pixel.
 * @param dstStep  destination pitch in bytes; its low bit is dropped.
 * @param roiSize  width and height in pixels, odd ones included.
 *
 * Reads 2 x width bytes in each of height rows. The last pixel of an odd width has a Cb and no Cr:
 * with Dither its chroma byte serves as both; plain conversions take the Cr of the pair before it.
 *
 * A plain conversion of a region ONE PIXEL WIDE stores no packed pixels but three bytes a row, R, G
 * and B, in this order whatever the name says, one byte more than a pixel's two, and steps by half
 * of dstStep from row to row. Two exceptions in variant l9, YCbCr422ToBGR555 and YCbCr422ToBGR565,
 * store a packed pixel a row there, and read the byte before the row as its Cr.
 *
 * @return in this order: pxmStatusNullPointer if src or dst is null; pxmStatusBadSize if width or
 *   height is below 1; pxmStatusOk.
 * @{
 */

pxmStatus legacy90pxmiYCbCr422ToBGR444Dither_8u16u_C2C3R(const unsigned char* src, int srcStep,
                                                         unsigned short* dst, int dstStep,
                                                         pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToBGR444_8u16u_C2C3R(const unsigned char* src, int srcStep,
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToBGR555Dither_8u16u_C2C3R(const unsigned char* src, int srcStep,
                                                         unsigned short* dst, int dstStep,
                                                         pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToBGR555_8u16u_C2C3R(const unsigned char* src, int srcStep,
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToBGR565Dither_8u16u_C2C3R(const unsigned char* src, int srcStep,
                                                         unsigned short* dst, int dstStep,
                                                         pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToBGR565_8u16u_C2C3R(const unsigned char* src, int srcStep,
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToRGB444Dither_8u16u_C2C3R(const unsigned char* src, int srcStep,
                                                         unsigned short* dst, int dstStep,
                                                         pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToRGB444_8u16u_C2C3R(const unsigned char* src, int srcStep,
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToRGB555Dither_8u16u_C2C3R(const unsigned char* src, int srcStep,
                                                         unsigned short* dst, int dstStep,
                                                         pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToRGB555_8u16u_C2C3R(const unsigned char* src, int srcStep,
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToRGB565Dither_8u16u_C2C3R(const unsigned char* src, int srcStep,
                                                         unsigned short* dst, int dstStep,
                                                         pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr422ToRGB565_8u16u_C2C3R(const unsigned char* src, int srcStep,
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);

/** @} */

/**
 * @name YCbCr 4:2:0 planes to 16-bit packed pixels (I420, yuv420p; YV12 with two planes exchanged)
 *
 * One Cb and one Cr sample for two by two pixels.
 *
 * @param src      the first samples of three planes: Y of the region's size, Cb and Cr of
 *   (width + 1) / 2 by (height + 1) / 2 samples.
 * @param srcStep  source pitch in bytes, one for each plane.
 * @param dst      the region's first pixel.
 * @param dstStep  destination pitch in bytes; its low bit is dropped.
 * @param roiSize  width and height in pixels, odd ones included.
 *   A row's offset, row times pitch, must fit in 32 bits.
 *
 * Reads those samples and writes width pixels in each row. Dither conversions of a region whose
 * width AND height are odd write two more pixels in the SIMD variants, after the end of the last
 * row, made from two more samples of the last luma row and one more of each last chroma row.
 *
 * @return in this order: pxmStatusNullPointer if src or dst is null; pxmStatusBadSize if width or
 *   height is below 1; pxmStatusNullPointer if one of the three planes is null; pxmStatusOk.
 * @{
 */

pxmStatus legacy90pxmiYCbCr420ToBGR444Dither_8u16u_P3C3R(const unsigned char* src[3],
                                                         int srcStep[3], unsigned short* dst,
                                                         int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr420ToBGR444_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr420ToBGR555Dither_8u16u_P3C3R(const unsigned char* src[3],
                                                         int srcStep[3], unsigned short* dst,
                                                         int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr420ToBGR555_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr420ToBGR565Dither_8u16u_P3C3R(const unsigned char* src[3],
                                                         int srcStep[3], unsigned short* dst,
                                                         int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr420ToBGR565_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr420ToRGB444Dither_8u16u_P3C3R(const unsigned char* src[3],
                                                         int srcStep[3], unsigned short* dst,
                                                         int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr420ToRGB444_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr420ToRGB555Dither_8u16u_P3C3R(const unsigned char* src[3],
                                                         int srcStep[3], unsigned short* dst,
                                                         int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr420ToRGB555_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr420ToRGB565Dither_8u16u_P3C3R(const unsigned char* src[3],
                                                         int srcStep[3], unsigned short* dst,
                                                         int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr420ToRGB565_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);

/** @} */

/**
 * @name YUV 4:2:0 planes to 16-bit packed pixels
 *
 * As YCbCr 4:2:0 above, planes and arguments alike, with the full-range YUV matrix.
 *
 * A plain conversion of a region one pixel wide or one pixel high writes NOTHING and returns
 * pxmStatusOk. In the last column of an odd width and the last row of an odd height plain
 * conversions round red and blue down instead of to nearest.
 *
 * Dither conversions of an odd width AND height write two pixels more in the SIMD variants, as
 * documented above. Plain conversions of a width with (width & 7) 4 or 5 store two pixels more in
 * every row of each pair of rows there, at columns (width & ~1) and (width & ~1) + 1, made from the
 * samples that follow in memory; where the width is odd the first of them is then written as it
 * should be.
 *
 * @param src      the first samples of three planes, Y, U, V, as above.
 * @param srcStep  source pitch in bytes, one for each plane.
 * @param dst      the region's first pixel.
 * @param dstStep  destination pitch in bytes; its low bit is dropped.
 * @param roiSize  width and height in pixels, odd ones included.
 *   A row's offset, row times pitch, must fit in 32 bits.
 *
 * @return in this order: pxmStatusNullPointer if src or dst is null; pxmStatusBadSize if width or
 *   height is below 1; pxmStatusNullPointer if one of the three planes is null; pxmStatusOk.
 * @{
 */

pxmStatus legacy90pxmiYUV420ToBGR444Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                       unsigned short* dst, int dstStep,
                                                       pxmSize roiSize);
pxmStatus legacy90pxmiYUV420ToBGR444_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                 unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYUV420ToBGR555Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                       unsigned short* dst, int dstStep,
                                                       pxmSize roiSize);
pxmStatus legacy90pxmiYUV420ToBGR555_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                 unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYUV420ToBGR565Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                       unsigned short* dst, int dstStep,
                                                       pxmSize roiSize);
pxmStatus legacy90pxmiYUV420ToBGR565_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                 unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYUV420ToRGB444Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                       unsigned short* dst, int dstStep,
                                                       pxmSize roiSize);
pxmStatus legacy90pxmiYUV420ToRGB444_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                 unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYUV420ToRGB555Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                       unsigned short* dst, int dstStep,
                                                       pxmSize roiSize);
pxmStatus legacy90pxmiYUV420ToRGB555_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                 unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYUV420ToRGB565Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                       unsigned short* dst, int dstStep,
                                                       pxmSize roiSize);
pxmStatus legacy90pxmiYUV420ToRGB565_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                 unsigned short* dst, int dstStep, pxmSize roiSize);

/** @} */

/**
 * @name YCbCr 4:1:1 planes to 16-bit packed pixels (yuv411p, Y41B)
 *
 * One Cb and one Cr sample for four pixels of a row.
 *
 * @param src      the first samples of three planes: Y of the region's size, Cb and Cr of width / 4
 *   samples, rounded down, in each row.
 * @param srcStep  source pitches in bytes, one for each plane.
 * @param dst      the region's first pixel.
 * @param dstStep  destination pitch in bytes, used as it is: an odd one stays odd here.
 * @param roiSize  width, at least 4, and height in pixels.
 *
 * Reads those samples and writes width pixels in each row. One to three columns left over by a
 * width that is no multiple of 4 take the chroma of the last whole group.
 *
 * @return in this order: pxmStatusNullPointer if src, dst or one of the three planes is null;
 *   pxmStatusBadSize if width is below 4 or height below 1; pxmStatusSizeWarning, with every pixel
 *   written, if width is no multiple of 4; pxmStatusOk.
 * @{
 */

pxmStatus legacy90pxmiYCbCr411ToBGR555_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiYCbCr411ToBGR565_8u16u_P3C3R(const unsigned char* src[3], int srcStep[3],
                                                   unsigned short* dst, int dstStep,
                                                   pxmSize roiSize);

/** @} */

/**
 * @name 16-bit packed pixels to YCbCr 4:2:0 planes (I420; YCrCb: YV12)
 *
 * Components are the fields of a pixel shifted up to 8 bits, without replication: white is 248,
 * or 252 in the green of 565. Chroma is the mean of two by two pixels.
 *
 * @param src      the region's first pixel.
 * @param srcStep  source pitch in bytes.
 * @param dst      the first samples of three planes: Y of the region's size, then Cb and Cr (YCrCb:
 * Cr and Cb) of width / 2 by height / 2 samples, both rounded down.
 * @param dstStep  destination pitches in bytes, one for each plane. A row's offset, row times
 * pitch, must fit in 32 bits.
 * @param roiSize  width and height in pixels, at least 2 by 2.
 *
 * Every pixel is read and gets its Y; the last column of an odd width and the last row of an odd
 * height have no part in chroma. Of an odd srcStep the second row of each pair of rows starts one
 * byte early: 21 reads rows at 0, 20, 42, 62.
 *
 * @return in this order: pxmStatusNullPointer if src, dst or one of the three planes is null;
 *   pxmStatusBadSize if width or height is below 2; pxmStatusOk, odd sizes included.
 * @{
 */

pxmStatus legacy90pxmiBGR555ToYCbCr420_16u8u_C3P3R(const unsigned short* src, int srcStep,
                                                   unsigned char* dst[3], int dstStep[3],
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiBGR555ToYCrCb420_16u8u_C3P3R(const unsigned short* src, int srcStep,
                                                   unsigned char* dst[3], int dstStep[3],
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiBGR565ToYCbCr420_16u8u_C3P3R(const unsigned short* src, int srcStep,
                                                   unsigned char* dst[3], int dstStep[3],
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiBGR565ToYCrCb420_16u8u_C3P3R(const unsigned short* src, int srcStep,
                                                   unsigned char* dst[3], int dstStep[3],
                                                   pxmSize roiSize);

/** @} */

/**
 * @name 16-bit packed pixels to YCbCr 4:2:2 planes (yuv422p, Y42B)
 *
 * Chroma is the mean of two pixels of a row.
 *
 * @param src      the region's first pixel.
 * @param srcStep  source pitch in bytes.
 * @param dst      the first samples of three planes: Y of the region's size, Cb and Cr of width / 2
 *   samples, rounded down, in each row.
 * @param dstStep  destination pitches in bytes, one for each plane.
 * @param roiSize  width, at least 2, and height in pixels.
 *
 * The last pixel of an odd width gets its Y and has no part in chroma.
 *
 * @return in this order: pxmStatusNullPointer if src, dst or one of the three planes is null;
 *   pxmStatusBadSize if width is below 2 or height below 1; pxmStatusOk, odd widths included.
 * @{
 */

pxmStatus legacy90pxmiBGR555ToYCbCr422_16u8u_C3P3R(const unsigned short* src, int srcStep,
                                                   unsigned char* dst[3], int dstStep[3],
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiBGR565ToYCbCr422_16u8u_C3P3R(const unsigned short* src, int srcStep,
                                                   unsigned char* dst[3], int dstStep[3],
                                                   pxmSize roiSize);

/** @} */

/**
 * @name 16-bit packed pixels to YCbCr 4:2:2 interleaved (YUY2, YUYV, yuyv422)
 *
 * Four bytes for two pixels: Y0 Cb Y1 Cr. The last pixel of an odd width writes two bytes, its Y
 * and a Cb of its own, and no Cr.
 *
 * @param src      the region's first pixel.
 * @param srcStep  source pitch in bytes.
 * @param dst      the region's first byte: 2 x width bytes are written in each row.
 * @param dstStep  destination pitch in bytes.
 * @param roiSize  width, at least 2, and height in pixels.
 *
 * @return in this order: pxmStatusNullPointer if src or dst is null; pxmStatusBadSize if width is
 *   below 2 or height below 1; pxmStatusOk, odd widths included.
 * @{
 */

pxmStatus legacy90pxmiBGR555ToYCbCr422_16u8u_C3C2R(const unsigned short* src, int srcStep,
                                                   unsigned char* dst, int dstStep,
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiBGR565ToYCbCr422_16u8u_C3C2R(const unsigned short* src, int srcStep,
                                                   unsigned char* dst, int dstStep,
                                                   pxmSize roiSize);

/** @} */

/**
 * @name 16-bit packed pixels to YCbCr 4:1:1 planes (yuv411p, Y41B)
 *
 * Chroma is the mean of four pixels of a row.
 *
 * @param src      the region's first pixel.
 * @param srcStep  source pitch in bytes.
 * @param dst      the first samples of three planes: Y of width samples in each row, Cb and Cr of
 *   width / 4, rounded down.
 * @param dstStep  destination pitches in bytes, one for each plane.
 * @param roiSize  width, at least 4, and height in pixels.
 *
 * One to three columns left over by a width that is no multiple of 4 are neither read nor written,
 * except that BGR555ToYCbCr411 writes their Y in the SIMD variants.
 *
 * @return in this order: pxmStatusNullPointer if src, dst or one of the three planes is null;
 *   pxmStatusBadSize if width is below 4 or height below 1; pxmStatusSizeWarning, with the whole
 * groups written, if width is no multiple of 4; pxmStatusOk.
 * @{
 */

pxmStatus legacy90pxmiBGR555ToYCbCr411_16u8u_C3P3R(const unsigned short* src, int srcStep,
                                                   unsigned char* dst[3], int dstStep[3],
                                                   pxmSize roiSize);
pxmStatus legacy90pxmiBGR565ToYCbCr411_16u8u_C3P3R(const unsigned short* src, int srcStep,
                                                   unsigned char* dst[3], int dstStep[3],
                                                   pxmSize roiSize);

/** @} */

/**
 * @name 16-bit packed pixels to YUV planes
 *
 * Full range. Chroma is the mean of two by two pixels (YUV420) or of two pixels of a row (YUV422).
 *
 * @param src      the region's first pixel.
 * @param srcStep  source pitch in bytes.
 * @param dst      the first samples of three planes: Y of the size that is converted, U and V of
 * half its width and, in YUV420, half its height.
 * @param dstStep  destination pitches in bytes, one for each plane. A row's offset, row times
 * pitch, must fit in 32 bits.
 * @param roiSize  width and height in pixels: at least 2 by 2 from BGR, 1 by 1 from RGB565.
 *
 * The last column of an odd width and, in YUV420, the last row of an odd height are neither read
 * nor written. From BGR an odd srcStep acts as documented for YCbCr 4:2:0.
 *
 * @return BGR, in this order: pxmStatusNullPointer if src, dst or one of the three planes is null;
 *   pxmStatusBadSize if width or height is below 2. RGB565: pxmStatusNullPointer if src or dst is
 * null; pxmStatusBadSize if width or height is below 1; pxmStatusNullPointer if one of the three
 * planes is null. Both: pxmStatusSizeWarning, with the even part written, if width or (in YUV420)
 * height is odd; pxmStatusOk.
 * @{
 */

pxmStatus legacy90pxmiBGR555ToYUV420_16u8u_C3P3R(const unsigned short* src, int srcStep,
                                                 unsigned char* dst[3], int dstStep[3],
                                                 pxmSize roiSize);
pxmStatus legacy90pxmiBGR565ToYUV420_16u8u_C3P3R(const unsigned short* src, int srcStep,
                                                 unsigned char* dst[3], int dstStep[3],
                                                 pxmSize roiSize);
pxmStatus legacy90pxmiRGB565ToYUV420_16u8u_C3P3R(const unsigned short* src, int srcStep,
                                                 unsigned char* dst[3], int dstStep[3],
                                                 pxmSize roiSize);
pxmStatus legacy90pxmiRGB565ToYUV422_16u8u_C3P3R(const unsigned short* src, int srcStep,
                                                 unsigned char* dst[3], int dstStep[3],
                                                 pxmSize roiSize);

/** @} */

/**
 * @name 16-bit packed pixels to 24-bit pixels and back
 *
 * Bits are moved and nothing else: the low field goes with byte 0, the middle field with byte 1,
 * the high field with byte 2, so the colour that a name spells first stands first in memory. BGR is
 * bgr24 in ffmpeg and RGB888 in DRM, RGB is rgb24 and BGR888. To 24 bits the low bits of each byte
 * are zero: white is 248, 252, 248. To 16 bits they are dropped.
 *
 * @param src      the region's first pixel.
 * @param srcStep  source pitch in bytes; the low bit is dropped where pixels are 16 bits.
 * @param dst      the region's first pixel.
 * @param dstStep  destination pitch in bytes; the low bit is dropped where pixels are 16 bits.
 * @param roiSize  width and height in pixels.
 *
 * Reads and writes width pixels in each of height rows.
 *
 * @return in this order: pxmStatusNullPointer if src or dst is null; pxmStatusBadSize if width or
 *   height is below 1; pxmStatusOk.
 * @{
 */

pxmStatus legacy90pxmiBGR565ToBGR_16u8u_C3R(const unsigned short* src, int srcStep,
                                            unsigned char* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiRGB565ToRGB_16u8u_C3R(const unsigned short* src, int srcStep,
                                            unsigned char* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiBGRToBGR565_8u16u_C3R(const unsigned char* src, int srcStep,
                                            unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiRGBToRGB565_8u16u_C3R(const unsigned char* src, int srcStep,
                                            unsigned short* dst, int dstStep, pxmSize roiSize);

/** @} */

/**
 * @name Colour twist of signed 8-bit images
 *
 * Each pixel's three samples s0, s1, s2, -128 to 127, give three results by a 3x4 matrix of floats:
 *
 *     result[r] = twist[r][0] * s0 + twist[r][3] + twist[r][1] * s1 + twist[r][2] * s2
 *
 * computed in float in this order, rounded to the nearest integer, halves to even, and clamped; NaN
 * gives 0. That is variant mx; the others add twist[r][3] last, so that a sum near a half may fall
 * on its other side, give 127 for NaN, and 1 and -1 for plus and minus 0.50000006, where mx
 * gives 0.
 *
 * C3: three bytes a pixel. AC4: four, the fourth being alpha: it plays no part, is not written, and
 * after the last pixel of a row not read. P3: three planes with one pitch.
 *
 * @param src      the region's first pixel, or the first samples of three planes.
 * @param srcStep  source pitch in bytes, at least 1.
 * @param dst      where the results go, laid out as the source.
 * @param dstStep  destination pitch in bytes, at least 1.
 * @param roiSize  width and height in pixels.
 * @param twist    twelve floats, row by row. Read only.
 *
 * Reads and writes width pixels in each of height rows. The rounding mode of MXCSR is the same
 * after the call as before. Variant mx computes in the mode that it finds, the others to nearest:
 * if the mode was another they restore all of MXCSR, exception flags included.
 *
 * @return in this order: pxmStatusNullPointer if src, dst or twist is null, then if one of the
 * planes is; pxmStatusBadSize if width or height is below 1; pxmStatusBadStep if a pitch is below
 * 1; pxmStatusOk.
 * @{
 */

pxmStatus legacy90pxmiColorTwist32f_8s_C3R(const signed char* src, int srcStep, signed char* dst,
                                           int dstStep, pxmSize roiSize, const float twist[3][4]);
pxmStatus legacy90pxmiColorTwist32f_8s_AC4R(const signed char* src, int srcStep, signed char* dst,
                                            int dstStep, pxmSize roiSize, const float twist[3][4]);
pxmStatus legacy90pxmiColorTwist32f_8s_P3R(const signed char* src[3], int srcStep,
                                           signed char* dst[3], int dstStep, pxmSize roiSize,
                                           const float twist[3][4]);
/** @} */

/**
 * @name Colour twist of signed 8-bit images, in place
 *
 * As above, with one image or one set of planes that is read and written.
 *
 * @param srcDst      the region's first pixel, or the first samples of three planes.
 * @param srcDstStep  pitch in bytes, at least 1.
 * @param roiSize     width and height in pixels.
 * @param twist       twelve floats, row by row. Read only.
 *
 * @return in this order: pxmStatusNullPointer if srcDst or twist is null, then if one of the planes
 * is; pxmStatusBadSize if width or height is below 1; pxmStatusBadStep if the pitch is below 1;
 * pxmStatusOk.
 * @{
 */

pxmStatus legacy90pxmiColorTwist32f_8s_C3IR(signed char* srcDst, int srcDstStep, pxmSize roiSize,
                                            const float twist[3][4]);
pxmStatus legacy90pxmiColorTwist32f_8s_AC4IR(signed char* srcDst, int srcDstStep, pxmSize roiSize,
                                             const float twist[3][4]);
pxmStatus legacy90pxmiColorTwist32f_8s_IP3R(signed char* srcDst[3], int srcDstStep, pxmSize roiSize,
                                            const float twist[3][4]);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
