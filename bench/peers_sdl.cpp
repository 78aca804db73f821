// SPDX-License-Identifier: MIT
// SDL. It cannot be held to a class, and needs no more than SSE2 for this.
#include <SDL.h>

#include <cstring>
#include <memory>

#include "bench/peers.h"

namespace {

Uint32 pixelFormat(const Work& work) {
  if (work.pixels == Pixels::Bits444)
    return work.redLow ? SDL_PIXELFORMAT_XBGR4444 : SDL_PIXELFORMAT_XRGB4444;
  if (work.pixels == Pixels::Bits555)
    return work.redLow ? SDL_PIXELFORMAT_XBGR1555 : SDL_PIXELFORMAT_XRGB1555;
  return work.redLow ? SDL_PIXELFORMAT_BGR565 : SDL_PIXELFORMAT_RGB565;
}

// It wants the three planes one after another.
std::vector<std::uint8_t> joined(const Images& images) {
  const int pitch = images.width(), chroma = (pitch + 1) / 2;
  std::vector<std::uint8_t> all;
  for (const Plane& plane : images.src())
    for (int y = 0; y < plane.rows; ++y) {
      const std::uint8_t* row = plane.data + static_cast<std::ptrdiff_t>(y) * plane.pitch;
      all.insert(all.end(), row, row + (&plane == images.src().data() ? pitch : chroma));
    }
  return all;
}

void add(const char* call, const Images& images, Uint32 from, Uint32 to,
         std::vector<Candidate>& candidates) {
  const Plane src = images.src()[0], dst = images.dst()[0];
  candidates.push_back(
      {"SDL", call, PeerClass::Any, {}, [=, width = images.width(), height = images.height()] {
         SDL_ConvertPixels(width, height, from, src.data, src.pitch, to, dst.data, dst.pitch);
       }});
}

}  // namespace

void addSdl(const Work& work, const Images& images, std::vector<Candidate>& candidates) {
  if (work.kind == Kind::Depth) {
    const Uint32 words = pixelFormat(work);
    const Uint32 bytes = work.redLow ? SDL_PIXELFORMAT_RGB24 : SDL_PIXELFORMAT_BGR24;
    if (work.toBytes)
      add("SDL_ConvertPixels", images, words, bytes, candidates);
    else
      add("SDL_ConvertPixels", images, bytes, words, candidates);
    return;
  }
  if (work.kind != Kind::Decode || work.dither) return;
  const auto mode = work.fullRange ? SDL_YUV_CONVERSION_JPEG : SDL_YUV_CONVERSION_BT601;
  const std::size_t first = candidates.size();
  if (work.layout == Layout::Interleaved422)
    add("SDL_ConvertPixels(YUY2)", images, SDL_PIXELFORMAT_YUY2, pixelFormat(work), candidates);
  if (work.layout == Layout::Planes420) {
    const auto planes = std::make_shared<std::vector<std::uint8_t>>(joined(images));
    const Plane dst = images.dst()[0];
    const int width = images.width(), height = images.height();
    candidates.push_back(
        {"SDL", "SDL_ConvertPixels(IYUV)", PeerClass::Any, {}, [=, to = pixelFormat(work)] {
           SDL_ConvertPixels(width, height, SDL_PIXELFORMAT_IYUV, planes->data(), width, to,
                             dst.data, dst.pitch);
         }});
  }
  for (std::size_t i = first; i < candidates.size(); ++i)
    candidates[i].select = [mode] { SDL_SetYUVConversionMode(mode); };
}

std::string describeSdl() {
  SDL_version version;
  SDL_GetVersion(&version);
  return "SDL " + std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
         std::to_string(version.patch) + ", not held to a class";
}
