// SPDX-License-Identifier: MIT

#include <stdexcept>
#include <string>
#include <utility>

#include "encode_job.h"
#include "families.h"
#include "oracle.h"

namespace oracle {
namespace {

Unpack unpackOf(std::string_view name) {
  if (name.starts_with("BGR555")) return unpackBgr555;
  return name.starts_with("BGR565") ? unpackBgr565 : unpackRgb565;
}

// The call with its planes in the order Y, Cb, Cr.
EncodeCall inPlaneOrder(std::string_view name, EncodeCall call) {
  if (name.find("YCrCb") != std::string_view::npos) {
    std::swap(call.dst[1], call.dst[2]);
    std::swap(call.dstStep[1], call.dstStep[2]);
  }
  return call;
}

// The sources of BGR round the luma of YUV to nearest. Those of RGB do not.
constexpr int kBgrRounding = 32768;
constexpr int kRgbRounding = 0;

void run(Family family, const EncodeJob& job) {
  const int step = job.call.srcStep;
  switch (family) {
    case Family::Encode411:
      return encode411(job);
    case Family::Encode420:
      return encode420(job);
    case Family::Encode422Planar:
      return encode422Planar(job);
    case Family::Encode422Interleaved:
      return encode422Interleaved(job);
    case Family::EncodeYuv420:
      return encodeYuv420(job, kBgrRounding, evenStep(step));
    case Family::RgbToYuv420:
      return encodeYuv420(job, kRgbRounding, step);
    case Family::RgbToYuv422:
      return encodeYuv422(job, kRgbRounding);
    default:
      throw std::invalid_argument("not an encoding conversion");
  }
}

}  // namespace

int encode(std::string_view name, Variant variant, const EncodeCall& call) {
  const EncodeCall ordered = inPlaneOrder(name, call);
  run(familyOf(name), {ordered, unpackOf(name), variant});
  return statusAfter(name, call.width, call.height);
}

}  // namespace oracle
