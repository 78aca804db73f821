// SPDX-License-Identifier: MIT
// Groups of 16-bit pixels whose fields have every sum that so many pixels can have.
#ifndef TESTS_SUPPORT_PIXEL_SUMS_H_
#define TESTS_SUPPORT_PIXEL_SUMS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

enum class PixelFormat { Bgr555, Bgr565, Rgb565 };

// That of the pixels which a conversion reads, by its name.
inline PixelFormat formatOf(std::string_view name) {
  if (name.starts_with("BGR555")) return PixelFormat::Bgr555;
  return name.starts_with("RGB") ? PixelFormat::Rgb565 : PixelFormat::Bgr565;
}

inline std::string nameOf(PixelFormat format) {
  if (format == PixelFormat::Bgr555) return "BGR555";
  return format == PixelFormat::Rgb565 ? "RGB565" : "BGR565";
}

class PixelSums {
 public:
  PixelSums(PixelFormat format, unsigned groupSize)
      : format_(format),
        n_(groupSize),
        redSums_(31 * n_ + 1),
        greenSums_((format == PixelFormat::Bgr555 ? 31 : 63) * n_ + 1) {}

  std::uint32_t count() const { return redSums_ * greenSums_ * redSums_; }

  // A group with a sum of its own for each index below the count; neighbours are far apart. Its
  // pixels are as equal as the sum allows.
  std::vector<std::uint16_t> pixels(std::uint32_t index) const {
    // 48271 is prime and divides none of the counts, so the order is a permutation.
    const auto sum = static_cast<std::uint32_t>(std::uint64_t{index % count()} * 48271u % count());
    const unsigned r = sum % redSums_, b = sum / redSums_ % redSums_, g = sum / redSums_ / redSums_;
    std::vector<std::uint16_t> group;
    for (unsigned i = 0; i < n_; ++i)
      group.push_back(word(share(r, i), share(g, i), share(b, n_ - 1 - i)));
    return group;
  }

 private:
  unsigned share(unsigned sum, unsigned i) const { return (sum + i) / n_; }

  std::uint16_t word(unsigned r, unsigned g, unsigned b) const {
    if (format_ == PixelFormat::Bgr555) return static_cast<std::uint16_t>(r << 10 | g << 5 | b);
    if (format_ == PixelFormat::Bgr565) return static_cast<std::uint16_t>(r << 11 | g << 5 | b);
    return static_cast<std::uint16_t>(b << 11 | g << 5 | r);
  }

  PixelFormat format_;
  unsigned n_, redSums_, greenSums_;
};

#endif
