/* SPDX-License-Identifier: MIT */
/*
 * Image colour conversions for 64-bit x86: YCbCr samples to 16-bit packed pixels, by region.
 *
 *   const unsigned char *planes[3];               Y, Cb, Cr; 640x480 samples in each
 *   unsigned short screen[480 * 640 + 2];         what a 16-bit display shows
 *   pxmSize size = {640, 480};
 *   pxmStatus status = legacy90pxmiYCbCrToBGR565_8u16u_P3C3R(
 *       planes, 640,                              source, bytes from row to row
 *       screen, 640 * 2,                          destination, bytes from row to row
 *       size);                                    region: width, height in pixels
 *   if (status < 0) ...                           refused, nothing was written
 *
 * Link with -lpxmcc90lgc. Nothing needs starting, stopping or freeing. What to know first:
 *
 * - Test for status < 0, never for status != 0: a positive value is a warning, the work is done.
 *   legacy90pxmccInit, for one, answers with a positive value on most machines.
 * - A name says source, To, target, perhaps Dither, the element types of source and destination,
 *   and the layout. C3: interleaved channels (a 16-bit pixel counts as C3), P3: three planes,
 *   R: a region of an image. Two layout words are source, then destination.
 * - The colour that a name spells FIRST sits in the LOW bits: BGR565 has blue in bits 0 to 4 and
 *   red in bits 11 to 15, which most other software calls RGB565. Red and blue exchanged on the
 *   screen mean that the other name of the pair is wanted.
 * - A pitch is the bytes from one row to the next, signed; a negative one walks up the image.
 *   Pixels may stand at any address. A pitch of 16-bit pixels loses its low bit: 641 acts as 640,
 *   -641 as -642.
 * - The region starts at the pointers given. Pointers and sizes are checked; pitches, overlap and
 *   room are not.
 * - Leave room for two pixels after each destination row, and readable bytes after the last row
 *   of each source plane (two of luma, one of chroma): some processor variants of the subsampled
 *   formats use them at some odd sizes.
 * - Any number of threads may convert at once into separate destinations. No call allocates,
 *   locks or keeps a pointer.
 * - The processor is detected once, at load, and decides which of seven variants of a function
 *   runs; legacy90pxmccGetLibVersion tells which.
 */
#ifndef PXMCC90LGC_H
#define PXMCC90LGC_H

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Result of a call, signed 32 bits: 0 is success, a negative value a refusal with nothing written,
 * a positive value a warning with the work done.
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
  pxmStatusCpuUnsupported = 36 /**< the processor could not be detected; plain code serves it */
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
  char variantTag[8];      /**< "mx", "m7", "u8", "n8", "y8", "e9" or "l9", zero-filled */
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
 * repeat reaches the same choice and the same answer. No caller needs it.
 * @return pxmStatusOk; pxmStatusForeignCpu where the processor's vendor is not the one that the
 *   library favours, which changes nothing else and is the answer on most machines; or
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

/*
 * 16-bit packed pixels. One word a pixel, little-endian, two bytes from pixel to pixel. Bit 15
 * stands at the left; a letter is one bit of red, green or blue, 0 a spare bit that is always
 * written as zero.
 *
 *   BGR444  0000 RRRR GGGG BBBB          RGB444  0000 BBBB GGGG RRRR
 *   BGR555  0RRR RRGG GGGB BBBB          RGB555  0BBB BBGG GGGR RRRR
 *   BGR565  RRRR RGGG GGGB BBBB          RGB565  BBBB BGGG GGGR RRRR
 *
 * Plain conversions drop the low bits of each 8-bit component. Dither conversions round by a 4x4
 * ordered matrix, which turns bands into a fine pattern: level v * (2^bits - 1) / 256, raised by
 * one where the rest exceeds the threshold at (row & 3, column & 3). Rows and columns count from
 * the first pixel of the region, so the pattern restarts with every call; bands of rows that start
 * at multiples of four join without a seam. White dithered to 565 is 0xFFDF, not 0xFFFF, at rows
 * 3, 7, 11... and columns 0, 4, 8...: the threshold there is as large as the rest of 255.
 */

/**
 * @name YCbCr 4:4:4 to 16-bit packed pixels
 *
 * Samples are 8 bits, studio range, ITU-R BT.601: luma 16 to 235, chroma 128 +- 112.
 *
 *     R = 1.164 (Y - 16)                     + 1.596 (Cr - 128)
 *     G = 1.164 (Y - 16) - 0.392 (Cb - 128)  - 0.813 (Cr - 128)
 *     B = 1.164 (Y - 16) + 2.017 (Cb - 128)
 *
 * in fixed point, rounded down and clamped to 0 to 255. Y = 235 gives 254, not 255. The arithmetic
 * of plain C3R has one shift per component where that of all the others has two, so plain C3R and
 * plain P3C3R differ by one level for some samples; with Dither both give the same words.
 *
 * P3C3R: src points to three plane pointers, Y, Cb, Cr, all of the region's size and with one
 * pitch. C3R: src is one image of three bytes a pixel:
 *
 *     byte    0   1   2   3   4   5
 *             Y0  Cb0 Cr0 Y1  Cb1 Cr1 ...
 *
 * @param src      the region's first sample, or the array of the three planes' first samples.
 * @param srcStep  source pitch in bytes.
 * @param dst      the region's first pixel.
 * @param dstStep  destination pitch in bytes; its low bit is dropped.
 * @param roiSize  width and height in pixels, odd ones included.
 *
 * Reads width samples of each plane (3 x width bytes of an interleaved row) in each of height
 * rows, writes width pixels in each row, and touches nothing else.
 *
 * @return P3C3R, in this order: pxmStatusNullPointer if src or dst is null; pxmStatusBadSize if
 *   width or height is below 1; pxmStatusNullPointer if one of the three planes is null;
 *   pxmStatusOk. C3R: the same without the planes.
 * @{
 */

pxmStatus legacy90pxmiYCbCrToBGR444Dither_8u16u_C3R(const unsigned char* src, int srcStep,
                                                    unsigned short* dst, int dstStep,
                                                    pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR444Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                      unsigned short* dst, int dstStep,
                                                      pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR444_8u16u_C3R(const unsigned char* src, int srcStep,
                                              unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR444_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR555Dither_8u16u_C3R(const unsigned char* src, int srcStep,
                                                    unsigned short* dst, int dstStep,
                                                    pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR555Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                      unsigned short* dst, int dstStep,
                                                      pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR555_8u16u_C3R(const unsigned char* src, int srcStep,
                                              unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR555_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR565Dither_8u16u_C3R(const unsigned char* src, int srcStep,
                                                    unsigned short* dst, int dstStep,
                                                    pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR565Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                      unsigned short* dst, int dstStep,
                                                      pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR565_8u16u_C3R(const unsigned char* src, int srcStep,
                                              unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToBGR565_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB444Dither_8u16u_C3R(const unsigned char* src, int srcStep,
                                                    unsigned short* dst, int dstStep,
                                                    pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB444Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                      unsigned short* dst, int dstStep,
                                                      pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB444_8u16u_C3R(const unsigned char* src, int srcStep,
                                              unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB444_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB555Dither_8u16u_C3R(const unsigned char* src, int srcStep,
                                                    unsigned short* dst, int dstStep,
                                                    pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB555Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                      unsigned short* dst, int dstStep,
                                                      pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB555_8u16u_C3R(const unsigned char* src, int srcStep,
                                              unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB555_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB565Dither_8u16u_C3R(const unsigned char* src, int srcStep,
                                                    unsigned short* dst, int dstStep,
                                                    pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB565Dither_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                      unsigned short* dst, int dstStep,
                                                      pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB565_8u16u_C3R(const unsigned char* src, int srcStep,
                                              unsigned short* dst, int dstStep, pxmSize roiSize);
pxmStatus legacy90pxmiYCbCrToRGB565_8u16u_P3C3R(const unsigned char* src[3], int srcStep,
                                                unsigned short* dst, int dstStep, pxmSize roiSize);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
