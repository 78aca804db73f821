// SPDX-License-Identifier: MIT
// libyuv. Where it has no single call for a conversion, its calls follow one another over strips of
// rows that stay in the first cache.
#include <libyuv.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "bench/peers.h"

namespace {

// Rows of an image, or of a strip, which has the same few rows again and again.
struct Rows {
  std::uint8_t* data = nullptr;
  int pitch = 0;
  int rowsPerRow = 1;  // luma rows that share a row
  bool isStrip = false;

  std::uint8_t* at(int row) const {
    return data + (isStrip ? 0 : static_cast<std::ptrdiff_t>(row / rowsPerRow) * pitch);
  }
};

struct Frames {
  int width, height;
  Rows luma, cb, cr;
  Rows interleaved, pixels, bytes;
  Rows argb;
  Rows wideCb, wideCr;  // of 4:1:1: chroma with twice the columns
  // Decoders to pixels with red in the low bits take Cb and Cr exchanged, and a matrix for that.
  bool exchanged;
  const libyuv::YuvConstants* matrix;
  std::vector<std::uint8_t> memory;
};

// Work on `rows` rows from `row` on.
using Stage = void (*)(const Frames& f, int row, int rows);

struct Step {
  std::string call;
  Stage run;
};
using Steps = std::vector<Step>;

// Thresholds up to 7, as the library wants them.
constexpr std::uint8_t noDither[16] = {};
constexpr std::uint8_t dither[16] = {0, 4, 1, 5, 6, 2, 7, 3, 1, 5, 0, 4, 7, 3, 6, 2};

// A function of libyuv that takes three planes, a destination and a matrix.
template <auto function, Rows Frames::*target>
void decode(const Frames& f, int row, int rows) {
  const Rows &u = f.exchanged ? f.cr : f.cb, &v = f.exchanged ? f.cb : f.cr;
  function(f.luma.at(row), f.luma.pitch, u.at(row), u.pitch, v.at(row), v.pitch,
           (f.*target).at(row), (f.*target).pitch, f.matrix, f.width, rows);
}

template <auto function, Rows Frames::*target>
void decodeWide(const Frames& f, int row, int rows) {
  const Rows &u = f.exchanged ? f.wideCr : f.wideCb, &v = f.exchanged ? f.wideCb : f.wideCr;
  function(f.luma.at(row), f.luma.pitch, u.at(row), u.pitch, v.at(row), v.pitch,
           (f.*target).at(row), (f.*target).pitch, f.matrix, f.width, rows);
}

// The same without a matrix: studio range, red on top.
template <auto function>
void decodePlain(const Frames& f, int row, int rows) {
  function(f.luma.at(row), f.luma.pitch, f.cb.at(row), f.cb.pitch, f.cr.at(row), f.cr.pitch,
           f.pixels.at(row), f.pixels.pitch, f.width, rows);
}

template <const std::uint8_t* thresholds>
void decodeDithered(const Frames& f, int row, int rows) {
  libyuv::I420ToRGB565Dither(f.luma.at(row), f.luma.pitch, f.cb.at(row), f.cb.pitch, f.cr.at(row),
                             f.cr.pitch, f.pixels.at(row), f.pixels.pitch, thresholds, f.width,
                             rows);
}

// From one interleaved image to another.
template <auto function, Rows Frames::*source, Rows Frames::*target>
void convert(const Frames& f, int row, int rows) {
  function((f.*source).at(row), (f.*source).pitch, (f.*target).at(row), (f.*target).pitch, f.width,
           rows);
}

template <const std::uint8_t* thresholds>
void packDithered(const Frames& f, int row, int rows) {
  libyuv::ARGBToRGB565Dither(f.argb.at(row), f.argb.pitch, f.pixels.at(row), f.pixels.pitch,
                             thresholds, f.width, rows);
}

template <auto function, Rows Frames::*source>
void toPlanes(const Frames& f, int row, int rows) {
  function((f.*source).at(row), (f.*source).pitch, f.luma.at(row), f.luma.pitch, f.cb.at(row),
           f.cb.pitch, f.cr.at(row), f.cr.pitch, f.width, rows);
}

void toPlanesWide(const Frames& f, int row, int rows) {
  libyuv::ARGBToI422(f.argb.at(row), f.argb.pitch, f.luma.at(row), f.luma.pitch, f.wideCb.at(row),
                     f.wideCb.pitch, f.wideCr.at(row), f.wideCr.pitch, f.width, rows);
}

template <libyuv::FilterMode filter>
void widenChroma(const Frames& f, int row, int rows) {
  const int narrow = (f.width + 3) / 4, wide = (f.width + 1) / 2;
  libyuv::ScalePlane(f.cb.at(row), f.cb.pitch, narrow, rows, f.wideCb.at(row), f.wideCb.pitch, wide,
                     rows, filter);
  libyuv::ScalePlane(f.cr.at(row), f.cr.pitch, narrow, rows, f.wideCr.at(row), f.wideCr.pitch, wide,
                     rows, filter);
}

template <libyuv::FilterMode filter>
void narrowChroma(const Frames& f, int row, int rows) {
  const int narrow = f.width / 4, wide = f.width / 4 * 2;
  libyuv::ScalePlane(f.wideCb.at(row), f.wideCb.pitch, wide, rows, f.cb.at(row), f.cb.pitch, narrow,
                     rows, filter);
  libyuv::ScalePlane(f.wideCr.at(row), f.wideCr.pitch, wide, rows, f.cr.at(row), f.cr.pitch, narrow,
                     rows, filter);
}

void joinInterleaved(const Frames& f, int row, int rows) {
  libyuv::I422ToYUY2(f.luma.at(row), f.luma.pitch, f.cb.at(row), f.cb.pitch, f.cr.at(row),
                     f.cr.pitch, f.interleaved.at(row), f.interleaved.pitch, f.width, rows);
}

void splitInterleaved(const Frames& f, int row, int rows) {
  libyuv::SplitRGBPlane(f.interleaved.at(row), f.interleaved.pitch, f.luma.at(row), f.luma.pitch,
                        f.cb.at(row), f.cb.pitch, f.cr.at(row), f.cr.pitch, f.width, rows);
}

constexpr auto argb = &Frames::argb;
constexpr auto pixels = &Frames::pixels;
constexpr auto interleaved = &Frames::interleaved;
constexpr auto bytes = &Frames::bytes;

const Step i420ToArgb = {"I420ToARGBMatrix", decode<libyuv::I420ToARGBMatrix, argb>};
const Step i422ToArgb = {"I422ToARGBMatrix", decode<libyuv::I422ToARGBMatrix, argb>};
const Step i444ToArgb = {"I444ToARGBMatrix", decode<libyuv::I444ToARGBMatrix, argb>};
const Step i420To565 = {"I420ToRGB565Matrix", decode<libyuv::I420ToRGB565Matrix, pixels>};
const Step i422To565 = {"I422ToRGB565Matrix", decode<libyuv::I422ToRGB565Matrix, pixels>};
const Step wideToArgb = {"I422ToARGBMatrix", decodeWide<libyuv::I422ToARGBMatrix, argb>};
const Step wideTo565 = {"I422ToRGB565Matrix", decodeWide<libyuv::I422ToRGB565Matrix, pixels>};
const Step split = {"SplitRGBPlane", splitInterleaved};
const Step yuy2ToPlanes = {"YUY2ToI422", toPlanes<libyuv::YUY2ToI422, interleaved>};
const Step yuy2ToArgb = {"YUY2ToARGB", convert<libyuv::YUY2ToARGB, interleaved, argb>};
const Step widenNone = {"ScalePlane(None)", widenChroma<libyuv::kFilterNone>};
const Step widenLinear = {"ScalePlane(Linear)", widenChroma<libyuv::kFilterLinear>};
const Step narrowLinear = {"ScalePlane(Linear)", narrowChroma<libyuv::kFilterLinear>};
const Step narrowBox = {"ScalePlane(Box)", narrowChroma<libyuv::kFilterBox>};
const Step argbTo565 = {"ARGBToRGB565", convert<libyuv::ARGBToRGB565, argb, pixels>};
const Step argbTo565NoDither = {"ARGBToRGB565Dither(0)", packDithered<noDither>};
const Step argbTo565Dither = {"ARGBToRGB565Dither", packDithered<dither>};
const Step argbTo1555 = {"ARGBToARGB1555", convert<libyuv::ARGBToARGB1555, argb, pixels>};
const Step argbTo4444 = {"ARGBToARGB4444", convert<libyuv::ARGBToARGB4444, argb, pixels>};
const Step from565 = {"RGB565ToARGB", convert<libyuv::RGB565ToARGB, pixels, argb>};
const Step from1555 = {"ARGB1555ToARGB", convert<libyuv::ARGB1555ToARGB, pixels, argb>};

class Calls {
 public:
  Calls(const Work& work, const Images& images, std::vector<Candidate>& candidates)
      : work_(work), frames_(std::make_shared<Frames>()), candidates_(candidates) {
    Frames& f = *frames_;
    f.width = images.width();
    f.height = images.height();
    f.exchanged = work.redLow;
    if (work.fullRange)
      f.matrix = work.redLow ? &libyuv::kYvuJPEGConstants : &libyuv::kYuvJPEGConstants;
    else
      f.matrix = work.redLow ? &libyuv::kYvuI601Constants : &libyuv::kYuvI601Constants;
    const bool toPixels = work.kind == Kind::Decode || (work.kind == Kind::Depth && !work.toBytes);
    setPixels(toPixels ? images.dst() : images.src());
    setOther(toPixels ? images.src() : images.dst());
    setStrips();
  }

  void addAll() {
    if (work_.kind == Kind::Decode)
      addDecoders();
    else if (work_.kind == Kind::Encode)
      addEncoders();
    else
      addDepth();
  }

 private:
  void setPixels(const std::vector<Plane>& planes) {
    frames_->pixels = {planes[0].data, planes[0].pitch};
  }

  void setOther(const std::vector<Plane>& planes) {
    Frames& f = *frames_;
    if (planes.size() == 1) {
      f.bytes = f.interleaved = {planes[0].data, planes[0].pitch};
      return;
    }
    const int shared = work_.layout == Layout::Planes420 ? 2 : 1;
    f.luma = {planes[0].data, planes[0].pitch};
    f.cb = {planes[1].data, planes[1].pitch, shared};
    f.cr = {planes[2].data, planes[2].pitch, shared};
    if (work_.crFirst) std::swap(f.cb, f.cr);
  }

  // Where the steps meet.
  void setStrips() {
    Frames& f = *frames_;
    const int pitch = (f.width + 63) / 64 * 64;
    f.memory.resize(static_cast<std::size_t>(pitch) * 7 * static_cast<std::size_t>(rows()) + 64);
    std::uint8_t* next = f.memory.data();
    const auto strip = [&](int bytesPerPixel) {
      const Rows rows = {next, pitch * bytesPerPixel, 1, true};
      next += static_cast<std::ptrdiff_t>(rows.pitch) * this->rows();
      return rows;
    };
    f.argb = strip(4);
    if (!f.luma.data) {
      f.luma = strip(1);
      f.cb = strip(1);
      f.cr = strip(1);
    } else {
      f.wideCb = strip(1);
      f.wideCr = strip(1);
    }
  }

  // An even number, so that strips of 4:2:0 share no chroma, and for dithers one of fours. Strips
  // from a quarter of this size to eight times as much differ by a few hundredths.
  int rows() const {
    constexpr int stripBytes = 32768;
    const int step = work_.dither ? 4 : 2;
    return std::max(1, stripBytes / (4 * frames_->width) / step) * step;
  }

  // Of both classes.
  void add(const std::string& call, std::function<void()> run) {
    static const int all = libyuv::MaskCpuFlags(-1);
    static const int sse4 = libyuv::kCpuInitialized | libyuv::kCpuHasX86 | libyuv::kCpuHasSSE2 |
                            libyuv::kCpuHasSSSE3 | libyuv::kCpuHasSSE41 | libyuv::kCpuHasSSE42;
    static const int avx2 = sse4 | libyuv::kCpuHasAVX | libyuv::kCpuHasAVX2 | libyuv::kCpuHasERMS |
                            libyuv::kCpuHasFMA3 | libyuv::kCpuHasF16C;
    candidates_.push_back(
        {"libyuv", call, PeerClass::Sse4, [] { libyuv::SetCpuFlags(all & sse4); }, run});
    candidates_.push_back(
        {"libyuv", call, PeerClass::Avx2, [] { libyuv::SetCpuFlags(all & avx2); }, run});
  }

  // One call for the whole image.
  void addWhole(const Step& step) {
    add(step.call, [f = frames_, run = step.run] { run(*f, 0, f->height); });
  }

  void addStrips(const Steps& steps) {
    std::string call;
    for (const Step& step : steps) call += (call.empty() ? "" : "+") + step.call;
    add(call, [f = frames_, steps, most = rows()] {
      for (int row = 0; row < f->height; row += most)
        for (const Step& step : steps) step.run(*f, row, std::min(most, f->height - row));
    });
  }

  // The ways from the samples to 32-bit pixels.
  std::vector<Steps> toArgb() const {
    switch (work_.layout) {
      case Layout::Planes444:
        return {{i444ToArgb}};
      case Layout::Interleaved444:
        return {{split, i444ToArgb}};
      case Layout::Planes422:
        return {{i422ToArgb}};
      case Layout::Interleaved422:
        if (work_.redLow) return {{yuy2ToPlanes, i422ToArgb}};
        return {{yuy2ToPlanes, i422ToArgb}, {yuy2ToArgb}};
      case Layout::Planes420:
        return {{i420ToArgb}};
      default:
        return {{widenNone, wideToArgb}, {widenLinear, wideToArgb}};
    }
  }

  std::vector<Step> fromArgb() const {
    if (work_.pixels == Pixels::Bits444) return {argbTo4444};
    if (work_.pixels == Pixels::Bits555) return {argbTo1555};
    if (work_.dither) return {argbTo565Dither};
    return {argbTo565, argbTo565NoDither};
  }

  void addDecoders() {
    // It dithers to 565 only.
    if (work_.dither && work_.pixels != Pixels::Bits565) return;
    for (const Steps& front : toArgb())
      for (const Step& back : fromArgb()) {
        Steps steps = front;
        steps.push_back(back);
        addStrips(steps);
      }
    const bool plain = !work_.redLow && !work_.fullRange && work_.layout == Layout::Planes420;
    if (work_.pixels == Pixels::Bits565) {
      if (work_.dither) {
        if (plain) addWhole({"I420ToRGB565Dither", decodeDithered<dither>});
        return;
      }
      if (plain) addWhole({"I420ToRGB565Dither(0)", decodeDithered<noDither>});
      add565();
    } else if (plain && work_.pixels == Pixels::Bits555) {
      addWhole({"I420ToARGB1555", decodePlain<libyuv::I420ToARGB1555>});
    } else if (plain) {
      addWhole({"I420ToARGB4444", decodePlain<libyuv::I420ToARGB4444>});
    }
  }

  void add565() {
    if (work_.layout == Layout::Planes420) addWhole(i420To565);
    if (work_.layout == Layout::Planes422) addWhole(i422To565);
    if (work_.layout == Layout::Interleaved422) addStrips({yuy2ToPlanes, i422To565});
    if (work_.layout == Layout::Planes411) {
      addStrips({widenNone, wideTo565});
      addStrips({widenLinear, wideTo565});
    }
  }

  void addEncoders() {
    const bool is565 = work_.pixels == Pixels::Bits565;
    const Step front = is565 ? from565 : from1555;
    if (work_.layout == Layout::Planes411) {
      addStrips({front, {"ARGBToI422", toPlanesWide}, narrowLinear});
      addStrips({front, {"ARGBToI422", toPlanesWide}, narrowBox});
    } else if (work_.layout == Layout::Interleaved422) {
      addStrips({front, {"ARGBToYUY2", convert<libyuv::ARGBToYUY2, argb, interleaved>}});
      addStrips({front,
                 {"ARGBToI422", toPlanes<libyuv::ARGBToI422, argb>},
                 {"I422ToYUY2", joinInterleaved}});
    } else if (work_.layout == Layout::Planes422 && work_.fullRange) {
      // What it reads from our RGB565 as ARGB is ABGR.
      addStrips({front, work_.redLow ? Step{"ABGRToJ422", toPlanes<libyuv::ABGRToJ422, argb>}
                                     : Step{"ARGBToJ422", toPlanes<libyuv::ARGBToJ422, argb>}});
    } else if (work_.layout == Layout::Planes422) {
      addStrips({front, {"ARGBToI422", toPlanes<libyuv::ARGBToI422, argb>}});
    } else if (work_.fullRange) {
      addStrips({front, work_.redLow ? Step{"ABGRToJ420", toPlanes<libyuv::ABGRToJ420, argb>}
                                     : Step{"ARGBToJ420", toPlanes<libyuv::ARGBToJ420, argb>}});
    } else {
      addStrips({front, {"ARGBToI420", toPlanes<libyuv::ARGBToI420, argb>}});
      addWhole(is565 ? Step{"RGB565ToI420", toPlanes<libyuv::RGB565ToI420, pixels>}
                     : Step{"ARGB1555ToI420", toPlanes<libyuv::ARGB1555ToI420, pixels>});
    }
  }

  // The fields move alike in both colour orders.
  void addDepth() {
    if (work_.toBytes) {
      addStrips({from565, {"ARGBToRGB24", convert<libyuv::ARGBToRGB24, argb, bytes>}});
      return;
    }
    const Step toArgb = {"RGB24ToARGB", convert<libyuv::RGB24ToARGB, bytes, argb>};
    addStrips({toArgb, argbTo565});
    addStrips({toArgb, argbTo565NoDither});
  }

  Work work_;
  std::shared_ptr<Frames> frames_;
  std::vector<Candidate>& candidates_;
};

}  // namespace

void addLibyuv(const Work& work, const Images& images, std::vector<Candidate>& candidates) {
  if (work.kind != Kind::Twist) Calls(work, images, candidates).addAll();
}

std::string describeLibyuv() {
  return "libyuv " + std::to_string(LIBYUV_VERSION) + ", held to SSE4 and to AVX2 by its flags";
}
