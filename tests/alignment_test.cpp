// SPDX-License-Identifier: MIT
// Every pointer of a call at each of 64 addresses in a row, the others at multiples of 64: results,
// status and everything around the images are those of the call with all of them at multiples of
// 64, and that call is as the oracle has it. Then all pointers at random addresses at once. Rows
// are 192 bytes apart, so that each stands on its 64 bytes as its pointer does.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "catalogue/shapes.h"
#include "catalogue/variants.h"
#include "tests/support/by_oracle.h"
#include "tests/support/cases.h"
#include "tests/support/least_size.h"
#include "tests/support/placed_arrays.h"
#include "tests/support/stride.h"

namespace {

Cases& cases = casesOf("calls with pointers at each of 64 addresses");

constexpr int pitch = 192, height = 3, mostWidth = 40, addresses = 64;
constexpr int atRandom = 16;  // calls with all pointers at random addresses

// What stands around a pointer, from `before` bytes below it on.
constexpr std::size_t before = 128;
using Window = std::array<std::uint8_t, before + pitch * height + 128>;

// One image, one plane or the matrix, and memory where it may stand.
class Movable {
 public:
  explicit Movable(Random& random) { random.fill(content.data(), content.size()); }

  Window content, expected;  // before the call and after it
  int offset = 0;

  std::uint8_t* pointer() { return memory_ + offset + before; }
  void place() { std::memcpy(memory_ + offset, content.data(), content.size()); }
  bool isExpected() const {
    return std::memcmp(memory_ + offset, expected.data(), expected.size()) == 0;
  }
  void read(Window& window) const { std::memcpy(window.data(), memory_ + offset, window.size()); }

 private:
  alignas(addresses) std::uint8_t memory_[sizeof(Window) + addresses];
};

class MovableCall {
 public:
  MovableCall(const Export& e, int variant, int width, Random& random)
      : export_(e), shape_(shapeOf(e.conversion, variant, width, height)) {
    arguments_.size = {width, height};
    const std::size_t matrices = e.conversion.kind == Kind::Twist ? 1 : 0;
    for (std::size_t i = 0; i < shape_.src.size() + shape_.dst.size() + matrices; ++i)
      all_.emplace_back(random);
    if (matrices > 0)
      std::memcpy(all_.back().content.data() + before, ordinaryTwist, sizeof ordinaryTwist);
    std::memcpy(arguments_.twist, ordinaryTwist, sizeof ordinaryTwist);
    for (int i = 0; i < 3; ++i) arguments_.srcStep[i] = arguments_.dstStep[i] = pitch;
  }

  // With every pointer at a multiple of 64: what is expected from now on.
  testing::AssertionResult matchesOracle(int variant) {
    call();
    for (Movable& each : all_) each.read(each.expected);
    status_ = got_;
    for (Movable& each : all_) each.place();
    const int wanted = convertByOracle(export_.conversion, variant, arguments_);
    for (Movable& each : all_)
      if (!each.isExpected()) return testing::AssertionFailure() << "not as the oracle has it";
    if (status_ != wanted) return testing::AssertionFailure() << "status " << status_;
    return testing::AssertionSuccess();
  }

  testing::AssertionResult isSameAtEveryAddress(Random& random) {
    for (std::size_t i = 0; i < all_.size(); ++i) {
      const bool isMatrix = export_.conversion.kind == Kind::Twist && i + 1 == all_.size();
      const int step = isMatrix ? PXM_MATRIX_ALIGNMENT : 1;
      for (all_[i].offset = 0; all_[i].offset < addresses; all_[i].offset += step)
        if (!isSame()) return failure();
      all_[i].offset = 0;
    }
    for (int n = 0; n < atRandom; ++n) {
      for (Movable& each : all_) each.offset = random.below(addresses);
      if (export_.conversion.kind == Kind::Twist)
        all_.back().offset -= all_.back().offset % PXM_MATRIX_ALIGNMENT;
      if (!isSame()) return failure();
    }
    return testing::AssertionSuccess();
  }

 private:
  void call() {
    for (std::size_t i = 0; i < shape_.src.size(); ++i) arguments_.src[i] = all_[i].pointer();
    for (std::size_t i = 0; i < shape_.dst.size(); ++i)
      arguments_.dst[i] = all_[shape_.src.size() + i].pointer();
    for (Movable& each : all_) each.place();
    Words words = export_.words(arguments_);
    for (const TakenArray& array : takenArrays(export_, arguments_))
      if (array.isMatrix)
        words[array.word] = reinterpret_cast<std::uintptr_t>(all_.back().pointer());
    got_ = callWithWords(export_, words);
  }

  bool isSame() {
    call();
    ++cases;
    for (const Movable& each : all_)
      if (!each.isExpected()) return false;
    return got_ == status_;
  }

  testing::AssertionResult failure() const {
    testing::AssertionResult result = testing::AssertionFailure();
    result << "another result or status at";
    for (const Movable& each : all_) result << " " << each.offset;
    return result;
  }

  const Export& export_;
  const Shape shape_;
  std::vector<Movable> all_;  // sources, destinations, matrix
  CallArguments arguments_ = {};
  pxmStatus got_ = 0, status_ = 0;
};

class Alignment : public testing::TestWithParam<int> {};

TEST_P(Alignment, ResultsAreTheSameAtEveryAddress) {
  SCOPED_TRACE(seedMessage());
  const Export& e = allExports()[static_cast<std::size_t>(GetParam())];
  Random random{std::string(e.conversion.name)};
  int turn = GetParam();
  for (const int variant : runnableVariants()) {
    const SelectedVariant selected(variant);
    for (int width = leastSize(e.conversion).width; width <= mostWidth; ++width) {
      if (turn++ % testStride() != 0) continue;
      MovableCall call(e, variant, width, random);
      ASSERT_TRUE(call.matchesOracle(variant)) << variantTags[variant] << " " << width;
      ASSERT_TRUE(call.isSameAtEveryAddress(random)) << variantTags[variant] << " " << width;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, Alignment, testing::Range(0, static_cast<int>(conversions().size())),
                         [](const auto& info) {
                           return std::string(
                               allExports()[static_cast<std::size_t>(info.param)].conversion.name);
                         });

// ---- Conversions that misbehave ----------------------------------------------------------------

// Where the destination is 37 above a multiple of 64: a byte behind the image, or another result.
template <int offset>
pxmStatus wrongAt37(const unsigned char* src, int srcStep, unsigned short* dst, int dstStep,
                    pxmSize size) {
  const pxmStatus status = legacy90pxmiYCbCrToBGR565_8u16u_C3R(src, srcStep, dst, dstStep, size);
  auto* const bytes = reinterpret_cast<std::uint8_t*>(dst);
  if (reinterpret_cast<std::uintptr_t>(dst) % addresses == 37) bytes[offset] ^= 1;
  return status;
}

TEST(AlignmentOfOthers, OneWrongByteAtOneAddressIsSeen) {
  const Export& e = exportNamed("YCbCrToBGR565_8u16u_C3R");
  Random random("others");
  for (auto* const function : {wrongAt37<20>, wrongAt37<0>}) {
    const Export other = {e.conversion, reinterpret_cast<const void*>(function), e.words};
    const SelectedVariant selected(0);
    MovableCall call(other, 0, 10, random);
    ASSERT_TRUE(call.matchesOracle(0));
    EXPECT_FALSE(call.isSameAtEveryAddress(random));
  }
}

}  // namespace
