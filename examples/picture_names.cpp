// SPDX-License-Identifier: MIT
#include "picture_names.h"

#include "failure.h"

namespace examples {

PictureNames::PictureNames(std::string_view pattern) {
  if (pattern.empty() || pattern == "-") {
    throw UsageFailure("OUTPUT " + quoted(pattern) + " is not the name of a file");
  }
  std::string_view rest = pattern;
  while (!rest.empty()) {
    if (rest[0] == '%') {
      try {
        readPercent(rest);
      } catch (const UsageFailure& failure) {
        throw UsageFailure("OUTPUT " + quoted(pattern) + " " + failure.what());
      }
      continue;
    }
    (numbered_ ? after_ : before_) += rest[0];
    rest.remove_prefix(1);
  }
}

// Takes what begins with % off the front of the rest.
void PictureNames::readPercent(std::string_view& rest) {
  if (rest.substr(0, 2) == "%%") {
    (numbered_ ? after_ : before_) += '%';
    rest.remove_prefix(2);
    return;
  }
  const bool padded =
      rest.size() >= 4 && rest[1] == '0' && rest[2] >= '1' && rest[2] <= '9' && rest[3] == 'd';
  if (!padded && rest.substr(0, 2) != "%d") {
    throw UsageFailure("has a % that is none of %d, %01d to %09d, %%");
  }
  if (numbered_) {
    throw UsageFailure("has a second place for the frame number");
  }
  numbered_ = true;
  digits_ = padded ? static_cast<size_t>(rest[2] - '0') : 1;
  rest.remove_prefix(padded ? 4 : 2);
}

std::string PictureNames::name(long long frameNumber) const {
  if (!numbered_) {
    return before_;
  }
  const std::string number = std::to_string(frameNumber);
  const size_t zeros = number.size() < digits_ ? digits_ - number.size() : 0;
  return before_ + std::string(zeros, '0') + number + after_;
}

}  // namespace examples
