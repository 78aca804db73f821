// SPDX-License-Identifier: MIT

#include "families.h"

#include <stdexcept>
#include <string>

#include "oracle.h"

namespace oracle {
namespace {

struct NamedFamily {
  std::string_view name;
  Family family;
};

// Every conversion that is not a decoder.
constexpr NamedFamily kNamed[] = {
    {"BGR555ToYCbCr411_16u8u_C3P3R", Family::Encode411},
    {"BGR565ToYCbCr411_16u8u_C3P3R", Family::Encode411},
    {"BGR555ToYCbCr420_16u8u_C3P3R", Family::Encode420},
    {"BGR565ToYCbCr420_16u8u_C3P3R", Family::Encode420},
    {"BGR555ToYCrCb420_16u8u_C3P3R", Family::Encode420},
    {"BGR565ToYCrCb420_16u8u_C3P3R", Family::Encode420},
    {"BGR555ToYUV420_16u8u_C3P3R", Family::EncodeYuv420},
    {"BGR565ToYUV420_16u8u_C3P3R", Family::EncodeYuv420},
    {"BGR555ToYCbCr422_16u8u_C3P3R", Family::Encode422Planar},
    {"BGR565ToYCbCr422_16u8u_C3P3R", Family::Encode422Planar},
    {"BGR555ToYCbCr422_16u8u_C3C2R", Family::Encode422Interleaved},
    {"BGR565ToYCbCr422_16u8u_C3C2R", Family::Encode422Interleaved},
    {"RGB565ToYUV420_16u8u_C3P3R", Family::RgbToYuv420},
    {"RGB565ToYUV422_16u8u_C3P3R", Family::RgbToYuv422},
    {"BGR565ToBGR_16u8u_C3R", Family::Depth},
    {"RGB565ToRGB_16u8u_C3R", Family::Depth},
    {"BGRToBGR565_8u16u_C3R", Family::Depth},
    {"RGBToRGB565_8u16u_C3R", Family::Depth},
    {"ColorTwist32f_8s_C3R", Family::TwistPacked},
    {"ColorTwist32f_8s_AC4R", Family::TwistPacked},
    {"ColorTwist32f_8s_C3IR", Family::TwistPackedInPlace},
    {"ColorTwist32f_8s_AC4IR", Family::TwistPackedInPlace},
    {"ColorTwist32f_8s_P3R", Family::TwistPlanar},
    {"ColorTwist32f_8s_IP3R", Family::TwistPlanarInPlace},
};

Family familyOfDecoder(const DecodeName& name) {
  if (name.source == DecodeSource::YCbCr411) return Family::Decode411;
  return name.layout == DecodeLayout::P3C3 ? Family::DecodePlanar : Family::DecodeInterleaved;
}

}  // namespace

Family familyOf(std::string_view name) {
  if (const auto decoder = parseDecodeName(name)) return familyOfDecoder(*decoder);
  for (const NamedFamily& named : kNamed) {
    if (named.name == name) return named.family;
  }
  throw std::invalid_argument("no such conversion: " + std::string(name));
}

}  // namespace oracle
