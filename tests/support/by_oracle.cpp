// SPDX-License-Identifier: MIT
#include "tests/support/by_oracle.h"

#include <cstring>
#include <stdexcept>
#include <string>

#include "catalogue/variants.h"
#include "tests/oracle/oracle.h"

const float ordinaryTwist[3][4] = {
    {1.25f, -0.5f, 0.125f, 10.0f}, {-0.75f, 0.9f, 0.3f, -20.5f}, {0.1f, 0.2f, -1.7f, 0.5f}};

namespace {

oracle::TwistCall twistCall(const CallArguments& a) {
  oracle::TwistCall call = {};
  for (int i = 0; i < 3; ++i) {
    call.dst[i] = reinterpret_cast<std::int8_t*>(a.dst[i]);
    call.src[i] = a.src[i] ? reinterpret_cast<const std::int8_t*>(a.src[i]) : call.dst[i];
  }
  call.dstStep = a.dstStep[0];
  call.srcStep = a.src[0] ? a.srcStep[0] : a.dstStep[0];
  call.width = a.size.width;
  call.height = a.size.height;
  std::memcpy(call.twist, a.twist, sizeof call.twist);
  return call;
}

}  // namespace

oracle::Variant oracleVariant(int variant) {
  const auto known = oracle::variantOfTag(variantTags[variant]);
  if (!known)
    throw std::logic_error("the oracle does not know variant '" +
                           std::string(variantTags[variant]) + "' (tests/oracle/variants.h)");
  return *known;
}

int convertByOracle(const Conversion& c, int variant, const CallArguments& a) {
  const oracle::Variant v = oracleVariant(variant);
  switch (c.kind) {
    case Kind::Decode:
      return oracle::decode(c.name, v,
                            {{a.src[0], a.src[1], a.src[2]},
                             {a.srcStep[0], a.srcStep[1], a.srcStep[2]},
                             a.dst[0],
                             a.dstStep[0],
                             a.size.width,
                             a.size.height});
    case Kind::Encode:
      return oracle::encode(c.name, v,
                            {a.src[0],
                             a.srcStep[0],
                             {a.dst[0], a.dst[1], a.dst[2]},
                             {a.dstStep[0], a.dstStep[1], a.dstStep[2]},
                             a.size.width,
                             a.size.height});
    case Kind::Depth:
      return oracle::convertDepth(
          c.name, v, {a.src[0], a.srcStep[0], a.dst[0], a.dstStep[0], a.size.width, a.size.height});
    default:
      return oracle::twist(c.name, v, twistCall(a));
  }
}
