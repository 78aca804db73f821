// SPDX-License-Identifier: MIT
// What arrives at an entry: each slot of each stub is a callee that records its registers. A stub
// alone changes rax and r11 and nothing else. The road by trampoline and start-up keeps whatever
// carries arguments and whatever a callee keeps: general registers, and all bits of vector and mask
// registers, though no export has an argument in one. It may use r10.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/shared_library.h"
#include "catalogue/variants.h"
#include "frame/dispatch.h"
#include "tests/support/cases.h"
#include "tests/support/own_stack.h"
#include "tests/support/pages.h"

// The slot tables of the linked objects, from the entry for no variant on.
extern "C" {
#define DISPATCHED_SERVICE(name) extern void* name##_table[];
#define CONVERSION(name, family) extern void* name##_table[];
#include "frame/conversions.def"
}

namespace {

Cases& cases = casesOf("arrivals of all registers at an entry");

struct Stub {
  std::string name;
  const void* function;
  void** table;
};

std::vector<Stub> linkedStubs() {
  return {
#define DISPATCHED_SERVICE(name) \
  {#name, reinterpret_cast<const void*>(legacy90pxmcc##name), name##_table},
#define CONVERSION(name, family) \
  {#name, reinterpret_cast<const void*>(legacy90pxmi##name), name##_table},
#include "frame/conversions.def"
  };
}

// While it lives, all variants of a stub are recordArrival.
class RecordingSlots {
 public:
  explicit RecordingSlots(void** table) : table_(table) {
    std::memcpy(before_, table_, sizeof before_);
    setSlots(Access::ReadWrite);
    for (int variant = 0; variant < variantCount; ++variant)
      table_[variant] = reinterpret_cast<void*>(recordArrival);
  }
  ~RecordingSlots() {
    std::memcpy(table_, before_, sizeof before_);
    setSlots(Access::Read);
  }
  RecordingSlots(const RecordingSlots&) = delete;
  RecordingSlots& operator=(const RecordingSlots&) = delete;

 private:
  void setSlots(Access access) {
    const auto first = reinterpret_cast<std::uintptr_t>(table_) / pageSize() * pageSize();
    const auto end = reinterpret_cast<std::uintptr_t>(table_ + variantCount);
    setAccess(reinterpret_cast<void*>(first), end - first, access);
  }

  void** table_;
  void* before_[variantCount];
};

constexpr const char* generalNames[] = {"rdi", "rsi", "rdx", "rcx", "r8",  "r9",  "rax",
                                        "r10", "rbx", "rbp", "r12", "r13", "r14", "r15"};

std::string numbered(char kind, std::size_t number, const char* part) {
  return std::string{kind} + std::to_string(number) + part;
}

// The names of the registers that are different, with those of vectors as "v3 low", its first 16
// bytes, and "v3 high", what is above them.
std::vector<std::string> differences(const AllRegisters& want, const AllRegisters& got) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < std::size(generalNames); ++i)
    if (want.general[i] != got.general[i]) names.push_back(generalNames[i]);
  const bool hasMasks = bytesOfVectorRegisters == 64;
  for (std::size_t i = 0; hasMasks && i < 8; ++i)
    if (want.mask[i] != got.mask[i]) names.push_back(numbered('k', i, ""));
  const auto bytes = static_cast<std::size_t>(bytesOfVectorRegisters);
  for (std::size_t i = 0; i < (hasMasks ? 32 : 16); ++i) {
    if (std::memcmp(want.vector[i], got.vector[i], 16) != 0)
      names.push_back(numbered('v', i, " low"));
    if (std::memcmp(want.vector[i] + 16, got.vector[i] + 16, bytes - 16) != 0)
      names.push_back(numbered('v', i, " high"));
  }
  return names;
}

// What the road need not keep: neither carries an argument, nor has a callee to keep it.
bool mayBeLost(const std::string& name) {
  return name == "rax" || name == "r10";
}

struct Arrival {
  std::vector<std::string> changed;
  bool keepsStack;
};

Arrival arrivalBy(const void* function, OwnStack& stack, Random& random) {
  AllRegisters before;
  random.fill(&before, sizeof before);
  std::memset(&arrived, 0, sizeof arrived);
  stack.call(function, before);
  const auto returnAddress = reinterpret_cast<std::uintptr_t>(stack.top()) - 8;
  return {differences(before, arrived),
          arrived.general[rsp] == returnAddress && stack.isKeptAbove()};
}

void expectArrivals(const Stub& stub, std::int32_t& variantIndex, OwnStack& stack) {
  Random random(stub.name);
  const RecordingSlots recording(stub.table);
  const Arrival road = arrivalBy(stub.function, stack, random);
  EXPECT_TRUE(road.keepsStack) << stub.name;
  for (const std::string& name : road.changed)
    EXPECT_TRUE(mayBeLost(name)) << stub.name << " " << name;
  EXPECT_GE(variantIndex, 0) << stub.name;
  ++cases;
  for (variantIndex = 0; variantIndex < variantCount; ++variantIndex) {
    const Arrival direct = arrivalBy(stub.function, stack, random);
    EXPECT_TRUE(direct.keepsStack) << stub.name;
    EXPECT_EQ(direct.changed, std::vector<std::string>{"rax"}) << stub.name;
    ++cases;
  }
}

TEST(Road, RegistersArriveByTheLinkedObjects) {
  SCOPED_TRACE(seedMessage());
  legacy90pxmccInit();
  const std::int32_t chosen = VariantIndex;
  OwnStack stack;
  for (const Stub& stub : linkedStubs()) {
    VariantIndex = -1;
    pxm::SetEnabledFeatures(pxm::featuresOfEveryProcessor);
    pxm::featureMaskCache = {0, 0};
    expectArrivals(stub, VariantIndex, stack);
  }
  VariantIndex = chosen;
}

// The library is loaded anew for each stub, and made as it is before its constructor has run.
TEST(Road, RegistersArriveByTheSharedObject) {
  SCOPED_TRACE(seedMessage());
  OwnStack stack;
  for (const Stub& linked : linkedStubs()) {
    void* const library = openLibrary(PXM_LIBRARY);
    ASSERT_NE(library, nullptr) << openFailure();
    const std::map<std::string, void*> symbols = hiddenSymbols(library);
    auto& variantIndex = *static_cast<std::int32_t*>(symbols.at("VariantIndex"));
    variantIndex = -1;
    *static_cast<pxm::FeatureMaskCache*>(symbols.at("_ZN3pxm16featureMaskCacheE")) = {0, 0};
    const bool isService = linked.name == "GetLibVersion";
    const std::string symbol = (isService ? "legacy90pxmcc" : "legacy90pxmi") + linked.name;
    void* const function = exportedSymbol(library, symbol);
    ASSERT_NE(function, linked.function) << "the program's own must be another";
    expectArrivals({linked.name, function, static_cast<void**>(symbols.at(linked.name + "_table"))},
                   variantIndex, stack);
    closeLibrary(library);
  }
}

// One register after the other is changed on the way.
TEST(Road, EveryLossIsSeen) {
  OwnStack stack;
  Random random("loss");
  AllRegisters before;
  random.fill(&before, sizeof before);
  stack.call(reinterpret_cast<const void*>(recordArrival), before);
  ASSERT_EQ(differences(before, arrived), std::vector<std::string>{});
  std::size_t lost = 0;
  const auto expectOne = [&](std::uint8_t& byte) {
    byte ^= 1;
    EXPECT_EQ(differences(before, arrived).size(), 1u);
    byte ^= 1;
    ++lost;
  };
  for (std::size_t i = 0; i < std::size(generalNames); ++i)
    expectOne(reinterpret_cast<std::uint8_t&>(arrived.general[i]));
  const bool hasMasks = bytesOfVectorRegisters == 64;
  for (std::size_t i = 0; i < (hasMasks ? 32u : 16u); ++i)
    for (std::size_t byte = 0; byte < static_cast<std::size_t>(bytesOfVectorRegisters); byte += 8)
      expectOne(arrived.vector[i][byte]);
  EXPECT_GE(lost, std::size(generalNames) + 32);
}

}  // namespace
