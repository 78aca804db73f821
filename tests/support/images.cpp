// SPDX-License-Identifier: MIT
#include "tests/support/images.h"

#include <algorithm>
#include <cstring>
#include <ostream>
#include <sstream>

#include "tests/oracle/oracle.h"

namespace {

std::size_t bytesFor(int rowBytes, int height, int padding) {
  return static_cast<std::size_t>((rowBytes + padding) * height + 2);
}

std::uint8_t* shifted(std::uint8_t* image, const Layout& layout) {
  return layout.side == Against::FirstPage ? image + layout.distance : image - layout.distance;
}

// One character a byte for the memory around the first difference: '.' alike, 'x' different.
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

DecodeMemory::DecodeMemory(int mostWidth, int mostHeight, int mostPadding)
    : src_{GuardedBytes(bytesFor(3 * mostWidth, mostHeight, mostPadding)),
           GuardedBytes(bytesFor(mostWidth, mostHeight, mostPadding)),
           GuardedBytes(bytesFor(mostWidth, mostHeight, mostPadding))},
      dst_(bytesFor(2 * mostWidth, mostHeight, mostPadding)),
      expected_(dst_.size()) {}

const std::uint8_t* DecodeMemory::placeSource(int plane, const Layout& layout, int rowBytes,
                                              int pitch, Random& random) {
  random.fill(src_[plane].begin(), src_[plane].size());
  return shifted(placeImage(src_[plane], layout.side, pitch, rowBytes, layout.height), layout);
}

testing::AssertionResult DecodeMemory::matchesOracle(const Decoder& decoder, int variant,
                                                     const Layout& layout, Random& random) {
  const int srcRow = decoder.planar ? layout.width : 3 * layout.width;
  const int srcPitch = layout.srcUpwards ? -srcRow - layout.srcPadding : srcRow + layout.srcPadding;
  const int dstRow = 2 * layout.width;
  const int dstPitch = layout.dstUpwards ? -dstRow - layout.dstPadding : dstRow + layout.dstPadding;
  const int evenDstPitch = dstPitch - (dstPitch & 1);

  random.fill(dst_.begin(), dst_.size());
  std::copy(dst_.begin(), dst_.end(), expected_.begin());
  std::uint8_t* dst =
      shifted(placeImage(dst_, layout.side, evenDstPitch, dstRow, layout.height), layout);

  oracle::DecodeCall told = {{},
                             {srcPitch, srcPitch, srcPitch},
                             expected_.data() + (dst - dst_.begin()),
                             dstPitch,
                             layout.width,
                             layout.height};
  for (int i = 0; i < (decoder.planar ? 3 : 1); ++i)
    told.src[i] = placeSource(i, layout, srcRow, srcPitch, random);
  const int expectedStatus = oracle::decode(decoder.name, oracle::Variant{variant}, told);

  const SelectedVariant selected(variant);
  const pxmStatus status = decoder.call({{told.src[0], told.src[1], told.src[2]},
                                         {srcPitch, srcPitch, srcPitch},
                                         reinterpret_cast<unsigned short*>(dst),
                                         dstPitch,
                                         {layout.width, layout.height}});
  if (status == expectedStatus && std::equal(dst_.begin(), dst_.end(), expected_.begin()))
    return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << decoder.name << " " << variantTags[variant] << ", " << layout << ": status " << status
         << ", want " << expectedStatus << "; "
         << differences(dst_.begin(), expected_.data(), dst_.size());
}
