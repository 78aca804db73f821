// SPDX-License-Identifier: MIT
// libswscale. A context chooses its code when it is made, so one is made for each class. Converters
// between packed pixels are chosen once for the process, by the first context, of the higher class.
// Its 16-bit pixels are always dithered.
extern "C" {
#include <libavutil/cpu.h>
#include <libavutil/log.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "bench/peers.h"

namespace {

AVPixelFormat pixelFormat(const Work& work) {
  if (work.pixels == Pixels::Bits444)
    return work.redLow ? AV_PIX_FMT_BGR444LE : AV_PIX_FMT_RGB444LE;
  if (work.pixels == Pixels::Bits555)
    return work.redLow ? AV_PIX_FMT_BGR555LE : AV_PIX_FMT_RGB555LE;
  return work.redLow ? AV_PIX_FMT_BGR565LE : AV_PIX_FMT_RGB565LE;
}

// The format of the other side; none for interleaved 4:4:4 in three bytes.
AVPixelFormat otherFormat(const Work& work) {
  if (work.kind == Kind::Depth) return work.redLow ? AV_PIX_FMT_RGB24 : AV_PIX_FMT_BGR24;
  switch (work.layout) {
    case Layout::Planes444:
      return AV_PIX_FMT_YUV444P;
    case Layout::Planes422:
      return AV_PIX_FMT_YUV422P;
    case Layout::Interleaved422:
      return AV_PIX_FMT_YUYV422;
    case Layout::Planes420:
      return AV_PIX_FMT_YUV420P;
    case Layout::Planes411:
      return AV_PIX_FMT_YUV411P;
    default:
      return AV_PIX_FMT_NONE;
  }
}

struct Side {
  std::array<std::uint8_t*, 4> data = {};
  std::array<int, 4> pitch = {};
};

Side sideOf(const std::vector<Plane>& planes, bool crFirst) {
  Side side;
  for (std::size_t i = 0; i < planes.size(); ++i) {
    const std::size_t to = crFirst && i > 0 ? 3 - i : i;
    side.data[to] = planes[i].data;
    side.pitch[to] = planes[i].pitch;
  }
  return side;
}

int flagsOf(PeerClass peerClass) {
  static const int all = av_get_cpu_flags();
  int flags = AV_CPU_FLAG_MMX | AV_CPU_FLAG_MMXEXT | AV_CPU_FLAG_SSE | AV_CPU_FLAG_SSE2 |
              AV_CPU_FLAG_SSE3 | AV_CPU_FLAG_SSSE3 | AV_CPU_FLAG_SSE4 | AV_CPU_FLAG_SSE42 |
              AV_CPU_FLAG_CMOV;
  if (peerClass == PeerClass::Avx2)
    flags |=
        AV_CPU_FLAG_AVX | AV_CPU_FLAG_AVX2 | AV_CPU_FLAG_FMA3 | AV_CPU_FLAG_BMI1 | AV_CPU_FLAG_BMI2;
  return all & flags;
}

using Context = std::shared_ptr<SwsContext>;

Context contextFor(const Work& work, const Images& images, PeerClass peerClass, int scaler) {
  const bool toPixels = work.kind == Kind::Decode || (work.kind == Kind::Depth && !work.toBytes);
  AVPixelFormat from = otherFormat(work), to = pixelFormat(work);
  if (!toPixels) std::swap(from, to);
  av_force_cpu_flags(flagsOf(peerClass));
  const Context context(sws_getContext(images.width(), images.height(), from, images.width(),
                                       images.height(), to, scaler, nullptr, nullptr, nullptr),
                        sws_freeContext);
  if (context && work.fullRange) {
    const int* table = sws_getCoefficients(SWS_CS_ITU601);
    sws_setColorspaceDetails(context.get(), table, 1, table, 1, 0, 1 << 16, 1 << 16);
  }
  return context;
}

}  // namespace

void addSwscale(const Work& work, const Images& images, std::vector<Candidate>& candidates) {
  if (work.kind == Kind::Twist || otherFormat(work) == AV_PIX_FMT_NONE) return;
  av_log_set_level(AV_LOG_QUIET);
  const Side from = sideOf(images.src(), false), to = sideOf(images.dst(), work.crFirst);
  const std::pair<int, const char*> scalers[] = {{SWS_POINT, "sws_scale(POINT)"},
                                                 {SWS_FAST_BILINEAR, "sws_scale(FAST_BILINEAR)"}};
  for (const PeerClass peerClass : {PeerClass::Avx2, PeerClass::Sse4})
    for (const auto& [scaler, call] : scalers)
      if (const Context context = contextFor(work, images, peerClass, scaler))
        candidates.push_back({"swscale", call, peerClass,
                              [peerClass] { av_force_cpu_flags(flagsOf(peerClass)); },
                              [context, from, to, height = images.height()] {
                                sws_scale(context.get(), from.data.data(), from.pitch.data(), 0,
                                          height, to.data.data(), to.pitch.data());
                              }});
}

std::string describeSwscale() {
  const unsigned version = swscale_version();
  return "swscale " + std::to_string(version >> 16) + "." + std::to_string(version >> 8 & 255) +
         "." + std::to_string(version & 255) + ", held to SSE4 and to AVX2 by its flags";
}
