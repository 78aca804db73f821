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

// In the SIMD variants the encoder of BGR555 to 4:1:1 gives luma to the columns after its last
// group. Neither the one of BGR565 nor mx does.
bool hasLumaBeyond(std::string_view name, Variant variant) {
  return variant != Variant::mx && name.starts_with("BGR555");
}

}  // namespace

int encode(std::string_view name, Variant variant, const EncodeCall& call) {
  const int columns = encoderVectorColumns(name, variant, call.width);
  const EncodeCall ordered = inPlaneOrder(name, call);
  const EncodeJob job{ordered, unpackOf(name), columns};
  switch (familyOf(name)) {
    case Family::Encode411:
      encode411(job, hasLumaBeyond(name, variant));
      break;
    case Family::Encode420:
      encode420(job);
      break;
    case Family::Encode422Planar:
      encode422Planar(job);
      break;
    case Family::Encode422Interleaved:
      encode422Interleaved(job);
      break;
    case Family::EncodeYuv420:
      encodeBgrToYuv420(job);
      break;
    case Family::RgbToYuv420:
      encodeRgbToYuv420(job);
      break;
    case Family::RgbToYuv422:
      encodeRgbToYuv422(job);
      break;
    default:
      throw std::invalid_argument("not an encoding conversion");
  }
  return statusAfter(name, call.width, call.height);
}

}  // namespace oracle
