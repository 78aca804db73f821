// SPDX-License-Identifier: MIT
// Images of which nothing but the rows can be touched: each row ends at, or begins after, a page of
// no access, and sources cannot be written.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "catalogue/shapes.h"
#include "catalogue/variants.h"
#include "tests/support/by_oracle.h"
#include "tests/support/geometry.h"
#include "tests/support/least_size.h"
#include "tests/support/memory.h"
#include "tests/support/pages.h"
#include "tests/support/random.h"

namespace {

constexpr int mostRows = 5;

int pitch() {
  return static_cast<int>(2 * pageSize());
}

// A page for each row, and a page of no access on both sides of each.
class LonelyPages {
 public:
  LonelyPages(Access access, const char* what)
      : all_(static_cast<std::uint8_t*>(reservePages(size()))) {
    Random random(what);
    for (int row = 0; row < mostRows; ++row) {
      EXPECT_TRUE(setAccess(page(row), pageSize(), Access::ReadWrite));
      random.fill(page(row), pageSize());
      EXPECT_TRUE(setAccess(page(row), pageSize(), access));
    }
  }
  ~LonelyPages() { releasePages(all_, size()); }
  LonelyPages(const LonelyPages&) = delete;
  LonelyPages& operator=(const LonelyPages&) = delete;

  static std::size_t size() { return static_cast<std::size_t>(mostRows * pitch()) + pageSize(); }
  std::uint8_t* page(int row) const { return all_ + pageSize() + row * pitch(); }

  // The first byte of an image whose longest row touches the page before or after.
  std::uint8_t* place(const std::vector<RowSpan>& rows, Against side) const {
    std::ptrdiff_t before = 0, after = 0;
    for (std::size_t y = 0; y < rows.size(); ++y) {
      const std::ptrdiff_t offset = static_cast<std::ptrdiff_t>(y) * pitch();
      before = std::max(before, offset - rows[y].begin);
      after = std::max(after, rows[y].end - offset);
    }
    return side == Against::FirstPage ? page(0) + before : page(0) + pageSize() - after;
  }

 private:
  std::uint8_t* all_;
};

class LonelyRows : public testing::TestWithParam<Conversion> {
 protected:
  void expectLikeOracle(int variant, pxmSize size, Against side) {
    const Conversion& c = GetParam();
    const Shape shape = shapeOf(c, variant, size.width, size.height);
    CallArguments a = {};
    a.size = size;
    std::memcpy(a.twist, ordinaryTwist, sizeof a.twist);
    for (std::size_t i = 0; i < shape.src.size(); ++i) {
      a.src[i] = src_[i].place(sourceRows(c, shape.src[i], pitch()), side);
      a.srcStep[i] = pitch();
    }
    for (std::size_t i = 0; i < shape.dst.size(); ++i) {
      a.dst[i] =
          dst_[i].place(destinationRows(c, variant, size.width, shape.dst[i], pitch()), side);
      a.dstStep[i] = pitch();
    }
    keep(before_);
    const int status = convertByOracle(c, variant, a);
    keep(expected_);
    restore(before_);
    const SelectedVariant selected(variant);
    ASSERT_EQ(c.call(a), status);
    ASSERT_TRUE(isLike(expected_))
        << variantTags[variant] << " " << size.width << "x" << size.height;
  }

 private:
  // The pages of all destinations, one after the other.
  using Pages = std::vector<std::uint8_t>;

  template <class Visit>
  void forAllPages(Visit visit) const {
    std::size_t offset = 0;
    for (const LonelyPages& plane : dst_)
      for (int row = 0; row < mostRows; ++row, offset += pageSize()) visit(plane.page(row), offset);
  }
  void keep(Pages& pages) const {
    forAllPages([&](const std::uint8_t* page, std::size_t offset) {
      std::memcpy(pages.data() + offset, page, pageSize());
    });
  }
  void restore(const Pages& pages) {
    forAllPages([&](std::uint8_t* page, std::size_t offset) {
      std::memcpy(page, pages.data() + offset, pageSize());
    });
  }
  bool isLike(const Pages& pages) const {
    bool same = true;
    forAllPages([&](const std::uint8_t* page, std::size_t offset) {
      same = same && std::memcmp(page, pages.data() + offset, pageSize()) == 0;
    });
    return same;
  }

  LonelyPages src_[3] = {{Access::Read, "a"}, {Access::Read, "b"}, {Access::Read, "c"}};
  LonelyPages dst_[3] = {
      {Access::ReadWrite, "d"}, {Access::ReadWrite, "e"}, {Access::ReadWrite, "f"}};
  Pages before_ = Pages(3 * mostRows * pageSize()), expected_ = before_;
};

// Conversions that store three bytes at width 1 have rows elsewhere there.
TEST_P(LonelyRows, NothingElseIsTouched) {
  SCOPED_TRACE(seedMessage());
  const pxmSize least = leastSize(GetParam());
  for (const int variant : runnableVariants())
    for (const int width : {2, 3, 4, 5, 6, 8, 13, 16, 17, 31, 32, 37, 66})
      for (const int height : {1, 2, mostRows}) {
        if (width < least.width || height < least.height) continue;
        for (const Against side : {Against::FirstPage, Against::LastPage})
          ASSERT_NO_FATAL_FAILURE(expectLikeOracle(variant, {width, height}, side));
      }
}

INSTANTIATE_TEST_SUITE_P(, LonelyRows, testing::ValuesIn(conversions()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
