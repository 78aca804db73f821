// SPDX-License-Identifier: MIT
// What a conversion does, read from its name, so that other libraries can be asked for the same.
#ifndef BENCH_WORK_H_
#define BENCH_WORK_H_

#include <string>

#include "catalogue/conversions.h"

// How the samples of the YCbCr or YUV side stand in memory.
enum class Layout { Planes444, Interleaved444, Planes422, Interleaved422, Planes420, Planes411 };

enum class Pixels { Bits444, Bits555, Bits565 };

struct Work {
  Kind kind;
  Layout layout;  // of decoders and encoders
  Pixels pixels;
  bool redLow;     // red in the low bits, or first of the 24-bit pixel
  bool fullRange;  // YUV rather than YCbCr
  bool dither;
  bool crFirst;  // the planes are Y, Cr, Cb
  bool toBytes;  // depth: from 16 to 24 bits
};

Work workOf(const Conversion& conversion);

// The group that a conversion is plotted in.
std::string familyOf(const Conversion& conversion);

// What the summary takes minima over.
std::string kindOf(const Conversion& conversion);

#endif
