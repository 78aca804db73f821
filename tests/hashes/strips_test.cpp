// SPDX-License-Identifier: MIT
// The strips of a domain hold what they are said to hold.
#include "tests/hashes/strips.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "tests/hashes/converters.h"
#include "tests/oracle/oracle.h"

namespace {

// One conversion of each domain.
std::vector<LoadedConversion> conversionsOfDomains() {
  std::vector<LoadedConversion> some;
  std::set<std::string> names;
  const std::unique_ptr<Converter> converter = converterOfOracle();
  for (const LoadedConversion& c : converter->conversions())
    if (names.insert(Domain(c).name()).second) some.push_back(c);
  return some;
}

Group groupOf(const LoadedConversion& c) {
  return {c.has("411") ? 4 : c.has("420") || c.has("422") ? 2 : 1, c.has("420") ? 2 : 1};
}

class Strips : public testing::TestWithParam<LoadedConversion> {
 protected:
  const LoadedConversion conversion_ = GetParam();
  const Group group_ = groupOf(conversion_);
  const Domain domain_{conversion_};

  // Calls visit(strip) for the strips of an arrangement; returns how many there are.
  template <class Visit>
  int visit(std::size_t arrangement, Visit visit) const {
    int count = 0;
    for (int i = 0; i < domain_.strips(); ++i)
      if (domain_.arrangementOf(i) == arrangement) {
        visit(domain_.strip(i));
        ++count;
      }
    return count;
  }

  std::uint32_t tripleAt(const Strip& strip, int row, int column) const {
    const auto width = static_cast<std::size_t>(strip.size.width),
               pixel = static_cast<std::size_t>(row) * width + static_cast<std::size_t>(column);
    const auto columns = static_cast<std::size_t>(group_.columns),
               group = static_cast<std::size_t>(row / group_.rows) * (width / columns) +
                       static_cast<std::size_t>(column) / columns;
    const auto triple = [](std::uint8_t a, std::uint8_t b, std::uint8_t c) {
      return static_cast<std::uint32_t>(a | b << 8 | c << 16);
    };
    const auto& planes = strip.planes;
    if (planes.size() == 3) return triple(planes[0][pixel], planes[1][group], planes[2][group]);
    const std::vector<std::uint8_t>& bytes = planes[0];
    if (conversion_.has("_C2C3R"))
      return triple(bytes[2 * pixel], bytes[4 * group + 1], bytes[4 * group + 3]);
    const std::size_t first = (conversion_.has("AC4") ? 4 : 3) * pixel;
    return triple(bytes[first], bytes[first + 1], bytes[first + 2]);
  }
};

class TripleStrips : public Strips {};

// In each arrangement, and in the first two at columns of both parities.
TEST_P(TripleStrips, HaveEveryTriple) {
  std::vector<std::uint8_t> parities(1u << 24);
  for (std::size_t arrangement = 0; arrangement < 4; ++arrangement) {
    std::vector<bool> seen(1u << 24);
    const int strips = visit(arrangement, [&](const Strip& strip) {
      for (int row = 0; row < strip.size.height; ++row)
        for (int column = 0; column < strip.size.width; ++column) {
          const std::uint32_t triple = tripleAt(strip, row, column);
          seen[triple] = true;
          if (arrangement < 2) parities[triple] |= static_cast<std::uint8_t>(1 << column % 2);
        }
    });
    EXPECT_GE(strips, 256);
    EXPECT_EQ(std::ranges::count(seen, false), 0) << "arrangement " << arrangement;
  }
  EXPECT_EQ(std::ranges::count(parities, 3), 1 << 24);
}

class WordStrips : public Strips {
 protected:
  static std::uint16_t wordAt(const Strip& strip, int row, int column) {
    const auto pixel = static_cast<std::size_t>(row * strip.size.width + column);
    const std::vector<std::uint8_t>& bytes = strip.planes[0];
    return static_cast<std::uint16_t>(bytes[2 * pixel] | bytes[2 * pixel + 1] << 8);
  }

  oracle::Rgb unpacked(std::uint16_t word) const {
    if (conversion_.has("BGR555")) return oracle::unpackBgr555(word);
    return conversion_.has("BGR565") ? oracle::unpackBgr565(word) : oracle::unpackRgb565(word);
  }
};

TEST_P(WordStrips, HaveEveryWordAtEveryPlace) {
  for (const std::size_t arrangement : {0u, 1u}) {
    int strips = 0, width = 0;
    std::vector<std::uint64_t> places(1u << 16);
    strips = visit(arrangement, [&](const Strip& strip) {
      width = strip.size.width;
      for (int row = 0; row < strip.size.height; ++row)
        for (int column = 0; column < width; ++column)
          places[wordAt(strip, row, column)] |= std::uint64_t{1}
                                                << (arrangement == 0 ? column % 32 : column);
    });
    const int count = arrangement == 0 ? 32 : width;
    EXPECT_EQ(strips, count);
    EXPECT_EQ(std::ranges::count(places, (std::uint64_t{1} << count) - 1), 1 << 16);
  }
}

TEST_P(WordStrips, HaveEverySumOfAGroup) {
  if (group_.size() == 1) GTEST_SKIP() << "has no groups";
  const int step = conversion_.has("BGR555") ? 8 : 4, most = group_.size() * 31 + 1,
            greens = group_.size() * (conversion_.has("BGR555") ? 31 : 63) + 1;
  std::vector<bool> seen(static_cast<std::size_t>(most * most * greens));
  visit(3, [&](const Strip& strip) {
    for (int row = 0; row < strip.size.height; row += group_.rows)
      for (int column = 0; column < strip.size.width; column += group_.columns) {
        oracle::Rgb sum = {0, 0, 0};
        for (int i = 0; i < group_.size(); ++i) {
          const oracle::Rgb c =
              unpacked(wordAt(strip, row + i / group_.columns, column + i % group_.columns));
          sum = {sum.r + c.r / 8, sum.g + c.g / step, sum.b + c.b / 8};
        }
        seen[static_cast<std::size_t>((sum.g * most + sum.r) * most + sum.b)] = true;
      }
  });
  EXPECT_EQ(std::ranges::count(seen, false), 0);
}

std::vector<LoadedConversion> thatRead(bool words) {
  std::vector<LoadedConversion> some = conversionsOfDomains();
  std::erase_if(some, [=](const LoadedConversion& c) {
    return words != (c.kind == Kind::Encode || c.has("_16u8u_"));
  });
  return some;
}

std::string nameOfConversion(const testing::TestParamInfo<LoadedConversion>& info) {
  return std::string(info.param.name);
}

INSTANTIATE_TEST_SUITE_P(, TripleStrips, testing::ValuesIn(thatRead(false)), nameOfConversion);
INSTANTIATE_TEST_SUITE_P(, WordStrips, testing::ValuesIn(thatRead(true)), nameOfConversion);

}  // namespace
