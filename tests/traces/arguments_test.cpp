// SPDX-License-Identifier: MIT
// What the system's convention leaves to chance: upper halves of 32-bit arguments, every register
// that carries none, and what the caller has on the stack. All six arguments travel in registers
// here, so every byte above the return address is the caller's, and none may be written. (Where
// arguments travel on the stack, on Windows, those slots belong to the callee.)
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/cases.h"
#include "tests/support/exported_calls.h"
#include "tests/support/own_stack.h"
#include "tests/traces/calls.h"

namespace {

Cases& cases = casesOf("calls with garbage around their arguments");

// What upper halves are filled with: as sign extension has it, and otherwise.
constexpr std::uint32_t poisons[] = {0, 0xFFFFFFFF, 0x80000000, 0x7FFFFFFF, 0xDEADBEEF};

// How many arguments an export has: the last is a size or the address of a matrix.
std::size_t argumentCount(const Export& e) {
  CallArguments a = {};
  a.size = {1, 1};
  const Words words = e.words(a);
  return static_cast<std::size_t>(words.rend() - std::find_if(words.rbegin(), words.rend(),
                                                              [](auto word) { return word != 0; }));
}

// Random registers, with the arguments of a call among them.
AllRegisters garbageAround(const Export& e, const CallArguments& a, std::uint32_t poison,
                           Random& random) {
  AllRegisters registers;
  random.fill(&registers, sizeof registers);
  const Words words = withUpperHalves(e.words(a), poison);
  std::copy_n(words.begin(), argumentCount(e), registers.general);
  return registers;
}

// Every export, in every variant; rows downwards and, but for the twist, upwards.
class Arguments : public testing::TestWithParam<int> {
 protected:
  template <typename Visit>
  void forAllCalls(Visit visit) const {
    const Export& e = allExports()[static_cast<std::size_t>(GetParam())];
    for (const int variant : runnableVariants()) {
      const SelectedVariant selected(variant);
      for (const pxmSize size : tracedSizes)
        for (const bool upwards : {false, true})
          if (!(upwards && e.conversion.kind == Kind::Twist)) visit(e, size, upwards);
    }
  }
};

TEST_P(Arguments, NothingElseDecidesWhatACallDoes) {
  SCOPED_TRACE(seedMessage());
  OwnStack stack;
  forAllCalls([&](const Export& e, pxmSize size, bool upwards) {
    Random random{std::string(e.conversion.name)};
    const Images before(random);
    Images byCompiler = before;
    const pxmStatus want = e.conversion.call(byCompiler.arguments(size, upwards));
    for (const std::uint32_t poison : poisons) {
      Images images = before;
      const CallArguments a = images.arguments(size, upwards);
      const auto status =
          static_cast<pxmStatus>(stack.call(e.function, garbageAround(e, a, poison, random)));
      ASSERT_EQ(status, want) << size.width << "x" << size.height;
      ASSERT_TRUE(images.dst == byCompiler.dst)
          << std::hex << poison << ", " << std::dec << size.width << (upwards ? " up" : " down");
      ASSERT_TRUE(images.src == before.src);
      ASSERT_TRUE(stack.isKeptAbove());
      ++cases;
    }
  });
}

INSTANTIATE_TEST_SUITE_P(, Arguments, testing::Range(0, static_cast<int>(conversions().size())),
                         [](const auto& info) {
                           return std::string(
                               allExports()[static_cast<std::size_t>(info.param)].conversion.name);
                         });

// ---- Callees that misbehave --------------------------------------------------------------------

pxmStatus trustsUpperHalves(const unsigned char*, long srcStep, unsigned short*, int, pxmSize) {
  return srcStep == static_cast<int>(srcStep) ? pxmStatusOk : pxmStatusBadStep;
}

pxmStatus trustsAFreeRegister(const unsigned char*, int, unsigned short*, int, pxmSize,
                              long sixth) {
  return sixth == 0 ? pxmStatusOk : pxmStatusBadStep;
}

TEST(ArgumentsOfOthers, GarbageIsSeen) {
  Random random("others");
  Images images(random);
  OwnStack stack;
  const Export& e = exportNamed("YCbCrToBGR565_8u16u_C3R");
  const auto status = [&](auto* function, std::uint32_t poison, bool upwards) {
    const CallArguments a = images.arguments({4, 4}, upwards);
    return static_cast<pxmStatus>(
        stack.call(reinterpret_cast<const void*>(function), garbageAround(e, a, poison, random)));
  };
  for (const std::uint32_t poison : poisons) {
    EXPECT_EQ(status(trustsUpperHalves, poison, false) == pxmStatusOk, poison == 0);
    EXPECT_EQ(status(trustsUpperHalves, poison, true) == pxmStatusOk, poison == 0xFFFFFFFF);
    EXPECT_NE(status(trustsAFreeRegister, poison, false), pxmStatusOk);
  }
}

TEST(ArgumentsOfOthers, AWriteToTheFrameOfTheCallerIsSeen) {
  OwnStack stack;
  const AllRegisters nothing = {};
  stack.call(reinterpret_cast<const void*>(recordArrival), nothing);
  EXPECT_TRUE(stack.isKeptAbove());
  stack.call(reinterpret_cast<const void*>(writeAboveReturnAddress), nothing);
  EXPECT_FALSE(stack.isKeptAbove());
}

}  // namespace
