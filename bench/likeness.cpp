// SPDX-License-Identifier: MIT
#include "bench/likeness.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double enough = 24;
constexpr double enoughInColumn = 15;

double psnrOf(double meanSquare) {
  return meanSquare > 0 ? 10 * std::log10(255 * 255 / meanSquare) : 99;
}

std::uint8_t byte(int value) {
  return static_cast<std::uint8_t>(value & 255);
}

void append(Components& c, const std::uint8_t* row, int count, int step, std::size_t component) {
  Components::Plane& plane = c.planes[component];
  plane.width = count;
  for (int x = 0; x < count; ++x) plane.samples.push_back(row[x * step]);
}

// Fields of words, each moved to the top of a byte.
void appendWords(Components& c, const std::uint8_t* row, int count, Pixels pixels) {
  const int low = pixels == Pixels::Bits444 ? 4 : 5;
  const int middle = pixels == Pixels::Bits565 ? 6 : low;
  for (auto& plane : c.planes) plane.width = count;
  for (int x = 0; x < count; ++x) {
    const int word = row[2 * x] | row[2 * x + 1] << 8;
    c.planes[0].samples.push_back(byte(word << (8 - low)));
    c.planes[1].samples.push_back(byte(word >> low << (8 - middle)));
    c.planes[2].samples.push_back(byte(word >> (low + middle) << (8 - low)));
  }
}

struct Line {
  double gain, offset;
};

Line fit(const std::vector<std::uint8_t>& reference, const std::vector<std::uint8_t>& other) {
  double sum = 0, sumOther = 0, squares = 0, products = 0;
  const auto count = static_cast<double>(reference.size());
  for (std::size_t i = 0; i < reference.size(); ++i) {
    sum += reference[i];
    sumOther += other[i];
    squares += other[i] * other[i];
    products += other[i] * reference[i];
  }
  const double variance = squares - sumOther * sumOther / count;
  const double gain = variance > 0 ? (products - sum * sumOther / count) / variance : 0;
  return {gain, (sum - gain * sumOther) / count};
}

}  // namespace

Components destinationOf(const Work& work, const Images& images) {
  Components c;
  const std::vector<Plane>& planes = images.dst();
  const auto eachRow = [](const Plane& plane, auto use) {
    // A hundred rows or so, spread over the image, odd and even ones alike.
    const int step = std::max(1, plane.rows / 128) | 1;
    for (int y = 0; y < plane.rows; y += step)
      use(plane.data + static_cast<std::ptrdiff_t>(y) * plane.pitch);
  };
  if (planes.size() == 3) {
    for (std::size_t i = 0; i < 3; ++i)
      eachRow(planes[i],
              [&](const std::uint8_t* row) { append(c, row, planes[i].rowBytes, 1, i); });
  } else if (work.kind == Kind::Encode) {
    const int width = images.width();
    eachRow(planes[0], [&](const std::uint8_t* row) {
      append(c, row, width, 2, 0);
      append(c, row + 1, width / 2, 4, 1);
      append(c, row + 3, width / 2, 4, 2);
    });
  } else if (work.toBytes) {
    eachRow(planes[0], [&](const std::uint8_t* row) {
      for (std::size_t i = 0; i < 3; ++i) append(c, row + i, images.width(), 3, i);
    });
  } else {
    // The last pixel of interleaved 4:2:2 of an odd width has one chroma sample, which everybody
    // takes for something else.
    const bool isHalf = work.kind == Kind::Decode && work.layout == Layout::Interleaved422;
    const int width = isHalf ? images.width() / 2 * 2 : images.width();
    eachRow(planes[0], [&](const std::uint8_t* row) { appendWords(c, row, width, work.pixels); });
  }
  return c;
}

bool Likeness::isSameKind() const {
  return psnr >= enough && worstColumn >= enoughInColumn && gain > 0.6 && gain < 1.6;
}

Likeness likenessOf(const Components& reference, const Components& other) {
  Likeness likeness = {99, 99, 1};
  for (std::size_t i = 0; i < 3; ++i) {
    const auto &a = reference.planes[i].samples, &b = other.planes[i].samples;
    if (a.empty()) continue;
    const auto [gain, offset] = fit(a, b);
    const auto width = static_cast<std::size_t>(reference.planes[i].width);
    std::vector<double> columns(width);
    for (std::size_t n = 0; n < a.size(); ++n) {
      const double error = gain * b[n] + offset - a[n];
      columns[n % width] += error * error;
    }
    double all = 0, worst = 0;
    for (const double column : columns) {
      all += column;
      worst = std::max(worst, column);
    }
    const auto count = static_cast<double>(a.size());
    likeness.psnr = std::min(likeness.psnr, psnrOf(all / count));
    likeness.worstColumn =
        std::min(likeness.worstColumn, psnrOf(worst * static_cast<double>(width) / count));
    if (std::abs(gain - 1) > std::abs(likeness.gain - 1)) likeness.gain = gain;
  }
  return likeness;
}
