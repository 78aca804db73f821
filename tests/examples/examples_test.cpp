// SPDX-License-Identifier: MIT
// Holds the oracle, in every variant, and the library, in every variant that runs here, to the
// tables of literal calls.
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <set>
#include <string>

#include "catalogue/conversions.h"
#include "catalogue/variants.h"
#include "tests/examples/example.h"
#include "tests/oracle/oracle.h"
#include "tests/support/by_oracle.h"

namespace examples {
namespace {

// Bytes around an offset 0, untouched at first.
class Canvas {
 public:
  static constexpr int margin = 1024;
  static constexpr std::uint8_t untouchedByte = 0xA5;

  std::uint8_t* origin() { return bytes_.data() + margin; }

  void store(const std::vector<Stored>& all) {
    for (const Stored& stored : all) {
      const int end = stored.offset + static_cast<int>(stored.bytes.size());
      ASSERT_TRUE(stored.offset >= -margin && end <= 3 * margin) << "the example has no room";
      std::copy(stored.bytes.begin(), stored.bytes.end(), origin() + stored.offset);
    }
  }

  friend bool operator==(const Canvas&, const Canvas&) = default;
  friend void PrintTo(const Canvas& canvas, std::ostream* out) {
    for (std::size_t i = 0; i < canvas.bytes_.size(); ++i) {
      const int byte = canvas.bytes_[i];
      if (byte != untouchedByte) *out << " [" << static_cast<int>(i) - margin << "]=" << byte;
    }
  }

 private:
  Bytes bytes_ = Bytes(4 * margin, untouchedByte);
};

// An example's call in memory of its own. Planes are read from between bytes that no example spells
// out: some variants read on at odd sizes.
class Call {
 public:
  explicit Call(const Example& e) {
    arguments_.size = {e.width, e.height};
    for (std::size_t i = 0; i < e.src.size(); ++i) {
      sources_[i] = Bytes(2 * room, 0x99);
      sources_[i].insert(sources_[i].begin() + room, e.src[i].bytes.begin(), e.src[i].bytes.end());
      arguments_.src[i] = sources_[i].data() + room + e.src[i].first;
      arguments_.srcStep[i] = e.src[i].pitch;
    }
    for (std::size_t i = 0; i < e.dst.size(); ++i) {
      target[i].store(e.dst[i].before);
      arguments_.dst[i] = target[i].origin() + e.dst[i].first;
      arguments_.dstStep[i] = e.dst[i].pitch;
    }
    for (std::size_t i = 0; i < e.twist.size(); ++i) arguments_.twist[i / 4][i % 4] = e.twist[i];
  }
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  const CallArguments& arguments() const { return arguments_; }

  Canvas target[3];

 private:
  static constexpr int room = 64;

  CallArguments arguments_ = {};
  Bytes sources_[3];
};

// What the oracle returns, and stores.
int byOracle(const Conversion& conversion, int variant, const CallArguments& a) {
  const int step = a.dstStep[0];
  const int rejection = oracle::rejectionOf(conversion.name, {.nulls = {},
                                                              .width = a.size.width,
                                                              .height = a.size.height,
                                                              .srcStep = a.srcStep[0],
                                                              .dstStep = step,
                                                              .srcDstStep = step});
  return rejection != 0 ? rejection : convertByOracle(conversion, variant, a);
}

// The planes that an example comes to, after either implementation.
void expectResult(const Example& e, int variant, std::string_view name, const char* who,
                  const Call& call, int status) {
  EXPECT_EQ(status, e.status) << who << " " << name << " " << variantTags[variant];
  for (std::size_t i = 0; i < e.dst.size(); ++i) {
    Canvas wanted;
    wanted.store(e.dst[i].before);
    wanted.store(e.dst[i].after);
    EXPECT_EQ(call.target[i], wanted)
        << who << " " << name << " " << variantTags[variant] << ", plane " << i;
  }
}

void expectHolds(const Example& e) {
  const testing::ScopedTrace trace(__FILE__, __LINE__, e.claim);
  ASSERT_FALSE(e.names.empty());
  for (const std::string_view name : e.names) {
    const Conversion& conversion = conversionNamed(name);
    for (int variant = 0; variant < variantCount; ++variant) {
      if (!isIn(e.in, variant)) continue;
      Call call(e);
      const int status = byOracle(conversion, variant, call.arguments());
      expectResult(e, variant, name, "oracle", call, status);
    }
    for (const int variant : runnableVariants()) {
      if (!isIn(e.in, variant)) continue;
      const SelectedVariant selected(variant);
      Call call(e);
      const int status = conversion.call(call.arguments());
      expectResult(e, variant, name, "library", call, status);
    }
  }
}

struct Table {
  const char* name;
  std::vector<Example> (*examples)();

  friend void PrintTo(const Table& table, std::ostream* out) { *out << table.name; }
};

constexpr Table tables[] = {
    {"Decode411", decode411},
    {"Decode420", decode420},
    {"Decode422", decode422},
    {"Decode444", decode444},
    {"DecodeYuv420", decodeYuv420},
    {"Depth", depth},
    {"Encode411", encode411},
    {"Encode420", encode420},
    {"Encode422", encode422},
    {"EncodeYuv", encodeYuv},
    {"Twist", twist},
};

class Examples : public testing::TestWithParam<Table> {};

TEST_P(Examples, Hold) {
  const std::vector<Example> examples = GetParam().examples();
  ASSERT_FALSE(examples.empty());
  std::set<std::string> claims;
  for (const Example& e : examples) {
    expectHolds(e);
    EXPECT_TRUE(claims.insert(e.claim).second) << "two examples are named " << e.claim;
  }
}

INSTANTIATE_TEST_SUITE_P(, Examples, testing::ValuesIn(tables),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace examples
