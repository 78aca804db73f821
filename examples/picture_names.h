// SPDX-License-Identifier: MIT
// Names of the pictures of a clip.
#ifndef PXM_EXAMPLES_PICTURE_NAMES_H
#define PXM_EXAMPLES_PICTURE_NAMES_H

#include <string>
#include <string_view>

namespace examples {

/// A file name with at most one place for the frame number: %d, or %0Nd for at least N digits
/// with leading zeros, N from 1 to 9. %% stands for one percent sign.
class PictureNames {
 public:
  /// Throws a UsageFailure if the text is empty, "-", or has another % in it.
  explicit PictureNames(std::string_view pattern);

  /// True if every frame has a name of its own.
  bool numbered() const { return numbered_; }

  std::string name(long long frameNumber) const;

 private:
  void readPercent(std::string_view& rest);

  bool numbered_ = false;
  size_t digits_ = 1;
  std::string before_;
  std::string after_;
};

}  // namespace examples

#endif
