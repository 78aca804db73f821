// SPDX-License-Identifier: MIT
#include "tests/memory/marked_call.h"

#include <algorithm>
#include <cstring>

#include "catalogue/variants.h"
#include "tests/memory/marks.h"

namespace {

using Use = MarkedMemory::Use;

constexpr std::size_t margin = 64;  // forbidden bytes on either side, more than a register has

int pitchOf(int rowBytes, int padding, std::size_t plane, bool upwards) {
  const int pitch = rowBytes + padding + (padding > 0 ? 3 * static_cast<int>(plane) : 0);
  return upwards ? -pitch : pitch;
}

bool isInPlace(const Shape& shape) {
  return shape.src.empty();
}

Shape shapeOf(const MarkedCall& call) {
  return ::shapeOf(*call.conversion, call.variant, call.size.width, call.size.height);
}

std::uint8_t pattern(std::size_t i) {
  return static_cast<std::uint8_t>(i * 167 + i / 256);
}

bool isReadable(Use use) {
  return use == Use::Read || use == Use::ReadAndWrite;
}

bool isWritten(Use use) {
  return use == Use::Write || use == Use::ReadAndWrite;
}

// Leaves bytes where the next call has its stack: what it does not set there differs as well.
[[gnu::noinline]] void fillStack(std::uint8_t byte) {
  volatile std::uint8_t stack[4096];
  for (volatile std::uint8_t& place : stack) place = byte;
}

// Calls `visit` with the begin and the end of each run of equal values.
template <class Values, class Visit>
void forEachRun(const Values& values, Visit visit) {
  for (std::size_t begin = 0, end; begin < values.size(); begin = end) {
    end = begin + 1;
    while (end < values.size() && values[end] == values[begin]) ++end;
    visit(begin, end);
  }
}

}  // namespace

std::size_t planesWithFault(const MarkedCall& call) {
  const Shape shape = shapeOf(call);
  if (call.fault == Fault::SourceEndsEarly && !isInPlace(shape)) return shape.src.size();
  return shape.dst.size();
}

MarkedMemory::MarkedMemory(int mostWidth, int mostHeight) {
  // Four bytes a pixel at most; 16 for what further planes' pitches add and shapes reach beyond.
  const auto most = static_cast<std::size_t>((4 * mostWidth + mostPadding + 16) * mostHeight);
  for (auto* planes : {&src_, &dst_})
    for (Plane& plane : *planes) plane.bytes.resize(most + 2 * margin + 128);
}

void MarkedMemory::place(Plane& plane, const std::vector<RowSpan>& rows, Use use, int address) {
  std::ptrdiff_t begin = 0, end = 0;
  if (!rows.empty()) {
    begin = std::ranges::min(rows, {}, &RowSpan::begin).begin;
    end = std::ranges::max(rows, {}, &RowSpan::end).end;
  }
  const auto misaligned = reinterpret_cast<std::uintptr_t>(plane.bytes.data() + margin) % 64;
  const std::size_t at = margin + 64 - misaligned + static_cast<std::size_t>(address);
  plane.first = at - static_cast<std::size_t>(begin);
  plane.end = at + static_cast<std::size_t>(end - begin);
  plane.uses.assign(plane.end + margin, Use::Nothing);
  for (const RowSpan& row : rows)
    std::fill_n(plane.uses.begin() + static_cast<std::ptrdiff_t>(plane.first) + row.begin,
                row.end - row.begin, use);
}

void MarkedMemory::placeAll(const MarkedCall& call, CallArguments& a) {
  const Conversion& c = *call.conversion;
  const Shape shape = shapeOf(call);
  const Place& at = call.place;
  planes_.clear();
  for (std::size_t i = 0; i < shape.src.size(); ++i) {
    const PlaneShape& plane = shape.src[i];
    a.srcStep[i] = pitchOf(plane.rowBytes, at.srcPadding, shape.onePitch ? 0 : i, at.srcUpwards);
    place(src_[i], sourceRows(c, plane, a.srcStep[i]), Use::Read, at.address);
    if (c.has("AC4")) passFourthBytes(src_[i], call.size, a.srcStep[i]);
    a.src[i] = src_[i].bytes.data() + src_[i].first;
    planes_.push_back(&src_[i]);
  }
  const Use use = isInPlace(shape) ? Use::ReadAndWrite : Use::Write;
  for (std::size_t i = 0; i < shape.dst.size(); ++i) {
    const PlaneShape& plane = shape.dst[i];
    a.dstStep[i] = pitchOf(plane.rowBytes, at.dstPadding, shape.onePitch ? 0 : i, at.dstUpwards);
    place(dst_[i], destinationRows(c, call.variant, call.size.width, plane, a.dstStep[i]), use,
          at.address);
    if (c.has("AC4")) passFourthBytes(dst_[i], call.size, a.dstStep[i]);
    // The chroma of four columns beside four others, from sums of neighbours.
    const bool hasSums = call.variant > 0 && i > 0 && c.has("ToYCbCr411");
    dst_[i].isFollowed = marks::followsProductSums() || !hasSums;
    a.dst[i] = dst_[i].bytes.data() + dst_[i].first;
    planes_.push_back(&dst_[i]);
  }
}

// The fourth byte of a pixel is loaded with the others, has no part in any result, and stays.
void MarkedMemory::passFourthBytes(Plane& plane, pxmSize size, int pitch) {
  for (int y = 0; y < size.height; ++y)
    for (int x = 0; x + 1 < size.width; ++x) {
      Use& use = plane.uses[plane.first + static_cast<std::size_t>(y * pitch + 4 * x + 3)];
      use = use == Use::Write ? Use::Nothing : Use::Load;
    }
}

void MarkedMemory::makeWrong(const MarkedCall& call) {
  const bool inSource = call.fault == Fault::SourceEndsEarly && !isInPlace(shapeOf(call));
  Plane& plane = (inSource ? src_ : dst_)[call.faultyPlane];
  Use& last = plane.uses[plane.end - 1];
  if (call.fault == Fault::SourceEndsEarly) last = inSource ? Use::Nothing : Use::Write;
  if (call.fault == Fault::RegionEndsEarly) last = Use::Nothing;
  if (call.fault == Fault::RegionEndsLate) plane.uses[plane.end] = Use::Write;
}

void MarkedMemory::fill(Plane& plane, std::uint8_t other) {
  for (std::size_t i = 0; i < plane.uses.size(); ++i)
    plane.bytes[i] = isReadable(plane.uses[i]) ? pattern(i) : other;
}

void MarkedMemory::mark(const Plane& plane) {
  forEachRun(plane.uses, [&](std::size_t begin, std::size_t end) {
    const Use use = plane.uses[begin];
    const std::uint8_t* const bytes = plane.bytes.data() + begin;
    if (use == Use::Nothing) marks::forbid(bytes, end - begin);
    if (use == Use::Load || use == Use::Write) marks::undefine(bytes, end - begin);
  });
}

// Afterwards every byte has a value again.
bool MarkedMemory::marksAreKept(const Plane& plane) {
  bool kept = true;
  forEachRun(plane.uses, [&](std::size_t begin, std::size_t end) {
    const Use use = plane.uses[begin];
    const std::uint8_t* const bytes = plane.bytes.data() + begin;
    if (isWritten(use) && plane.isFollowed && !marks::hasValue(bytes, end - begin)) kept = false;
    if (use == Use::Nothing && !marks::isWithoutValue(bytes, end - begin)) kept = false;
    marks::define(bytes, end - begin);
  });
  return kept;
}

// Whether bytes that are not written are what they were.
bool MarkedMemory::othersStayed(const Plane& plane, std::uint8_t other) {
  for (std::size_t i = 0; i < plane.uses.size(); ++i)
    if (!isWritten(plane.uses[i]) &&
        plane.bytes[i] != (isReadable(plane.uses[i]) ? pattern(i) : other))
      return false;
  return true;
}

pxmStatus MarkedMemory::makeCall(const MarkedCall& call, const CallArguments& a,
                                 std::uint8_t stack) {
  fillStack(stack);
  const SelectedVariant selected(call.variant);
  return call.conversion->call(a);
}

Finding MarkedMemory::findingOf(const MarkedCall& call) {
  CallArguments a = {};
  a.size = call.size;
  const float twist[3][4] = {{0.9f, 0.1f, -0.2f, 3}, {0.3f, -1.1f, 0.5f, -4}, {1, 1, -1, 0.5f}};
  std::memcpy(a.twist, twist, sizeof twist);
  placeAll(call, a);
  if (call.fault != Fault::None) makeWrong(call);

  // Far from each other as bytes with a sign and without one, and in every bit.
  constexpr std::uint8_t first = 0x2A, second = 0xD5;
  for (Plane* plane : planes_) fill(*plane, first);
  for (const Plane* plane : planes_) mark(*plane);
  const unsigned reports = marks::reports();
  if (makeCall(call, a, first) < 0) return Finding::Rejected;
  bool kept = marks::reports() == reports;
  for (const Plane* plane : planes_) kept &= marksAreKept(*plane);
  if (!kept) return Finding::ByChecker;

  for (const Plane* plane : planes_)
    if (!othersStayed(*plane, first)) return Finding::ByComparison;
  for (Plane* plane : planes_) {
    plane->results = plane->bytes;
    fill(*plane, second);
  }
  (void)makeCall(call, a, second);
  for (const Plane* plane : planes_) marks::define(plane->bytes.data(), plane->bytes.size());
  for (const Plane* plane : planes_) {
    if (!othersStayed(*plane, second)) return Finding::ByComparison;
    for (std::size_t i = 0; i < plane->uses.size(); ++i)
      if (isWritten(plane->uses[i]) && plane->bytes[i] != plane->results[i])
        return Finding::ByComparison;
  }
  return Finding::None;
}
