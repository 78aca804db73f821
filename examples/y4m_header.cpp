// SPDX-License-Identifier: MIT
#include "y4m_header.h"

#include <array>
#include <climits>
#include <string>

#include "failure.h"

namespace examples {

namespace {

using enum ChromaSupport;

// clang-format off
constexpr ChromaFormat kChromaFormats[] = {
    {"444", 0, 0, kRead},
    {"420jpeg", 1, 1, kRead},
    {"420mpeg2", 1, 1, kRead},
    {"420paldv", 1, 1, kRead},
    {"420", 1, 1, kRead},
    {"422", 1, 0, kRead},
    {"411", 2, 0, kRead},
    {"444alpha", 0, 0, kAlphaPlane},
    {"mono", 0, 0, kNoChroma},
    {"420p9", 1, 1, kDeepSamples}, {"420p10", 1, 1, kDeepSamples}, {"420p12", 1, 1, kDeepSamples},
    {"420p14", 1, 1, kDeepSamples}, {"420p16", 1, 1, kDeepSamples},
    {"422p9", 1, 0, kDeepSamples}, {"422p10", 1, 0, kDeepSamples}, {"422p12", 1, 0, kDeepSamples},
    {"422p14", 1, 0, kDeepSamples}, {"422p16", 1, 0, kDeepSamples},
    {"444p9", 0, 0, kDeepSamples}, {"444p10", 0, 0, kDeepSamples}, {"444p12", 0, 0, kDeepSamples},
    {"444p14", 0, 0, kDeepSamples}, {"444p16", 0, 0, kDeepSamples},
    {"mono9", 0, 0, kDeepSamples}, {"mono10", 0, 0, kDeepSamples},
    {"mono12", 0, 0, kDeepSamples}, {"mono16", 0, 0, kDeepSamples},
};
// clang-format on

constexpr std::string_view kDefaultChroma = "420jpeg";

// The parameters by letter; a null pointer is a parameter that is missing.
struct Parameters {
  std::array<std::string_view, 256> values;
  SampleRange range = SampleRange::kUnstated;
  bool has(char letter) const { return at(letter).data() != nullptr; }
  const std::string_view& at(char letter) const {
    return values[static_cast<unsigned char>(letter)];
  }
};

Parameters split(std::string_view line) {
  Parameters parameters;
  line.remove_prefix(kY4mMagic.size());
  while (!line.empty()) {
    const size_t end = line.find(' ');
    const std::string_view word = line.substr(0, end);
    line = end == std::string_view::npos ? std::string_view() : line.substr(end + 1);
    if (word.empty()) {
      continue;
    }
    if (word == "XCOLORRANGE=FULL") {
      parameters.range = SampleRange::kFull;
    } else if (word == "XCOLORRANGE=LIMITED") {
      parameters.range = SampleRange::kLimited;
    }
    std::string_view& value = parameters.values[static_cast<unsigned char>(word[0])];
    if (value.data() != nullptr && word[0] != 'X') {
      throw Failure("the header is damaged: " + quoted(word.substr(0, 1)) + " stands in it twice");
    }
    value = word.substr(1);
  }
  return parameters;
}

int readSize(const Parameters& parameters, char letter, const char* meaning) {
  if (!parameters.has(letter)) {
    throw Failure(std::string("the header is damaged: it does not tell the ") + meaning);
  }
  const long long number = positiveNumber(parameters.at(letter), INT_MAX);
  if (number == 0) {
    throw Failure(std::string("the header is damaged: ") + quoted(parameters.at(letter)) +
                  " is not a possible " + meaning);
  }
  return static_cast<int>(number);
}

bool isNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

void checkRatio(const Parameters& parameters, char letter, const char* meaning) {
  const std::string_view text = parameters.at(letter);
  const size_t colon = text.find(':');
  if (parameters.has(letter) &&
      (colon == std::string_view::npos || !isNumber(text.substr(0, colon)) ||
       !isNumber(text.substr(colon + 1)))) {
    throw Failure(std::string("the header is damaged: ") + quoted(text) + " is not a possible " +
                  meaning);
  }
}

void checkInterlacing(const Parameters& parameters) {
  const std::string_view text = parameters.at('I');
  if (parameters.has('I') &&
      (text.size() != 1 || std::string_view("ptbm?").find(text) == std::string_view::npos)) {
    throw Failure("the header is damaged: " + quoted(text) + " is not a possible interlacing");
  }
}

std::string readableTags() {
  std::string tags;
  for (const ChromaFormat& format : kChromaFormats) {
    if (format.support == kRead) {
      tags += tags.empty() ? "C" : ", C";
      tags += format.tag;
    }
  }
  return tags;
}

std::string rejection(ChromaSupport support) {
  switch (support) {
    case kDeepSamples:
      return " has samples of more than 8 bits";
    case kAlphaPlane:
      return " has an alpha plane";
    default:
      return " has no chroma planes";
  }
}

const ChromaFormat* readChroma(const Parameters& parameters) {
  const std::string_view tag = parameters.has('C') ? parameters.at('C') : kDefaultChroma;
  std::string reason = " is unknown";
  for (const ChromaFormat& format : kChromaFormats) {
    if (format.tag == tag && format.support == kRead) {
      return &format;
    }
    if (format.tag == tag) {
      reason = rejection(format.support);
    }
  }
  throw Failure("chroma format " + quoted("C" + std::string(tag)) + reason +
                "; readable: " + readableTags());
}

}  // namespace

bool beginsAsY4m(std::string_view line) {
  return line.substr(0, kY4mMagic.size()) == kY4mMagic &&
         (line.size() == kY4mMagic.size() || line[kY4mMagic.size()] == ' ');
}

Y4mHeader parseY4mHeader(std::string_view line) {
  const Parameters parameters = split(line);
  Y4mHeader header;
  header.width = readSize(parameters, 'W', "width");
  header.height = readSize(parameters, 'H', "height");
  checkRatio(parameters, 'F', "frame rate");
  checkRatio(parameters, 'A', "pixel aspect");
  checkInterlacing(parameters);
  header.chroma = readChroma(parameters);
  header.range = parameters.range;
  return header;
}

}  // namespace examples
