// SPDX-License-Identifier: MIT

#include <stdexcept>
#include <string>

#include "decode_job.h"
#include "oracle.h"

namespace oracle {
namespace {

void run(const DecodeJob& job) {
  switch (job.name.source) {
    case DecodeSource::YCbCr:
      return decode444(job);
    case DecodeSource::YCbCr422:
      return job.name.layout == DecodeLayout::P3C3 ? decode422Planar(job)
                                                   : decode422Interleaved(job);
    case DecodeSource::YCbCr420:
    case DecodeSource::YUV420:
      return decode420(job);
    case DecodeSource::YCbCr411:
      return decode411(job);
  }
}

}  // namespace

int decode(std::string_view name, Variant variant, const DecodeCall& call) {
  const auto parsed = parseDecodeName(name);
  if (!parsed) throw std::invalid_argument("not a decoding conversion: " + std::string(name));
  run({*parsed, variant, call});
  return statusAfter(name, call.width, call.height);
}

}  // namespace oracle
