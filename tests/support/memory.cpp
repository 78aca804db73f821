// SPDX-License-Identifier: MIT
#include "tests/support/memory.h"

#include <algorithm>
#include <cstring>
#include <ostream>
#include <sstream>

#include "catalogue/variants.h"
#include "tests/support/by_oracle.h"

namespace {

int pitchOf(int rowBytes, int padding, int plane, bool upwards) {
  const int pitch = rowBytes + padding + (padding > 0 ? 3 * plane : 0);
  return upwards ? -pitch : pitch;
}

// One character a byte around the first difference: '.' alike, 'x' different.
std::string differences(const std::uint8_t* got, const std::uint8_t* want, std::size_t size) {
  const auto first = static_cast<std::size_t>(std::mismatch(got, got + size, want).first - got);
  std::ostringstream text;
  const std::size_t from = first < 32 ? 0 : first - 32;
  text << "first at byte " << first << ": got " << int{got[first]} << ", want " << int{want[first]}
       << "\nbytes " << from << "...: ";
  for (std::size_t i = from; i < std::min(size, from + 128); ++i)
    text << (got[i] == want[i] ? '.' : 'x');
  return text.str();
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Layout& l) {
  return out << l.width << "x" << l.height << ", source " << (l.srcUpwards ? "up" : "down")
             << " with " << l.srcPadding << " more bytes a row, destination "
             << (l.dstUpwards ? "up" : "down") << " with " << l.dstPadding << ", " << l.distance
             << " from the " << (l.side == Against::FirstPage ? "first" : "last") << " guard page";
}

CallMemory::CallMemory(int mostWidth, int mostHeight, int mostPadding) {
  // Four bytes a pixel at most; 8 for what further planes' pitches add and for odd addresses.
  const auto bytes = static_cast<std::size_t>((4 * mostWidth + mostPadding + 8) * mostHeight + 8);
  for (int i = 0; i < 3; ++i) {
    src_.push_back(std::make_unique<GuardedBytes>(bytes));
    dst_.push_back(std::make_unique<GuardedBytes>(bytes));
    expected_.emplace_back(dst_.back()->size());
  }
  pool_.resize(src_[0]->size() + 65536);
  Random("pool").fill(pool_.data(), pool_.size());
}

const std::uint8_t* CallMemory::fill(std::uint8_t* bytes, std::size_t count, Random& random) const {
  const std::uint8_t* const some = pool_.data() + random.below(65536);
  std::memcpy(bytes, some, count);
  return some;
}

void CallMemory::placeSources(const Conversion& conversion, const Shape& shape,
                              const Layout& layout, CallArguments& a, Random& random) {
  for (std::size_t i = 0; i < shape.src.size(); ++i) {
    const PlaneShape& plane = shape.src[i];
    const int number = shape.onePitch ? 0 : static_cast<int>(i);
    a.srcStep[i] = pitchOf(plane.rowBytes, layout.srcPadding, number, layout.srcUpwards);
    filledWith_[i] = fill(src_[i]->begin(), src_[i]->size(), random);
    a.src[i] = placeImage(*src_[i], layout.side, layout.distance,
                          sourceRows(conversion, plane, a.srcStep[i]));
  }
}

void CallMemory::placeDestinations(const Conversion& conversion, int variant, const Shape& shape,
                                   const Layout& layout, CallArguments& a, Random& random) {
  for (std::size_t i = 0; i < shape.dst.size(); ++i) {
    const PlaneShape& plane = shape.dst[i];
    const int number = shape.onePitch ? 0 : static_cast<int>(i);
    a.dstStep[i] = pitchOf(plane.rowBytes, layout.dstPadding, number, layout.dstUpwards);
    fill(dst_[i]->begin(), dst_[i]->size(), random);
    std::copy(dst_[i]->begin(), dst_[i]->end(), expected_[i].begin());
    a.dst[i] = placeImage(*dst_[i], layout.side, layout.distance,
                          destinationRows(conversion, variant, layout.width, plane, a.dstStep[i]));
  }
}

bool CallMemory::sourcesAreAsBefore(const Shape& shape) const {
  for (std::size_t i = 0; i < shape.src.size(); ++i)
    if (std::memcmp(src_[i]->begin(), filledWith_[i], src_[i]->size()) != 0) return false;
  return true;
}

testing::AssertionResult CallMemory::sameBytes() const {
  for (std::size_t i = 0; i < dst_.size(); ++i)
    if (!std::equal(dst_[i]->begin(), dst_[i]->end(), expected_[i].begin()))
      return testing::AssertionFailure()
             << "destination " << i << " differs, "
             << differences(dst_[i]->begin(), expected_[i].data(), expected_[i].size());
  return testing::AssertionSuccess();
}

testing::AssertionResult CallMemory::matchesOracle(const Conversion& conversion, int variant,
                                                   const Layout& layout, Random& random) {
  const Shape shape = shapeOf(conversion, variant, layout.width, layout.height);
  CallArguments a = {};
  a.size = {layout.width, layout.height};
  std::memcpy(a.twist, ordinaryTwist, sizeof a.twist);
  placeSources(conversion, shape, layout, a, random);
  placeDestinations(conversion, variant, shape, layout, a, random);

  CallArguments byOracle = a;
  for (std::size_t i = 0; i < shape.dst.size(); ++i)
    byOracle.dst[i] = expected_[i].data() + (a.dst[i] - dst_[i]->begin());
  const int expectedStatus = convertByOracle(conversion, variant, byOracle);
  const SelectedVariant selected(variant);
  const pxmStatus status = conversion.call(a);

  testing::AssertionResult same = sameBytes();
  if (same && !sourcesAreAsBefore(shape))
    same = testing::AssertionFailure() << "the source is changed";
  if (status == expectedStatus && same) return same;
  return testing::AssertionFailure()
         << conversion.name << " " << variantTags[variant] << ", " << layout << ": status "
         << status << ", want " << expectedStatus << "; " << same.message();
}
