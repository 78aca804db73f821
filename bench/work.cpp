// SPDX-License-Identifier: MIT
#include "bench/work.h"

namespace {

Layout layoutOf(const Conversion& c) {
  if (c.has("411")) return Layout::Planes411;
  if (c.has("420")) return Layout::Planes420;
  if (c.has("C2")) return Layout::Interleaved422;
  if (c.has("422")) return Layout::Planes422;
  return c.has("P3") ? Layout::Planes444 : Layout::Interleaved444;
}

const char* nameOf(Layout layout) {
  switch (layout) {
    case Layout::Planes444:
      return "444-planes";
    case Layout::Interleaved444:
      return "444-interleaved";
    case Layout::Planes422:
      return "422-planes";
    case Layout::Interleaved422:
      return "422-interleaved";
    case Layout::Planes420:
      return "420";
    default:
      return "411";
  }
}

}  // namespace

Work workOf(const Conversion& c) {
  Work work = {};
  work.kind = c.kind;
  work.layout = layoutOf(c);
  work.pixels = c.has("B444") || c.has("R444")   ? Pixels::Bits444
                : c.has("B555") || c.has("R555") ? Pixels::Bits555
                                                 : Pixels::Bits565;
  work.redLow = c.has("RGB");
  work.fullRange = c.has("YUV");
  work.dither = c.has("Dither");
  work.crFirst = c.has("YCrCb");
  work.toBytes = c.kind == Kind::Depth && c.has("_16u8u_");
  return work;
}

std::string familyOf(const Conversion& c) {
  switch (c.kind) {
    case Kind::Decode:
      return std::string("decode-") + (c.has("YUV") ? "yuv" : "ycbcr") + "-" + nameOf(layoutOf(c));
    case Kind::Encode:
      return std::string("encode-") + (c.has("YUV") ? "yuv" : "ycbcr");
    case Kind::Depth:
      return "depth";
    default:
      return "twist";
  }
}

std::string kindOf(const Conversion& c) {
  switch (c.kind) {
    case Kind::Decode:
      return c.has("Dither") ? "dither" : "plain decoder";
    case Kind::Encode:
      return "encoder";
    case Kind::Depth:
      return "depth";
    default:
      return "twist";
  }
}
