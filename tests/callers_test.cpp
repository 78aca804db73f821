// SPDX-License-Identifier: MIT
// Exports called from assembly: the size of a region is one 64-bit word among the arguments, and
// every register that the system's convention keeps is kept, in every variant.
#include <gtest/gtest.h>
#include <xmmintrin.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "catalogue/conversions.h"
#include "catalogue/variants.h"
#include "frame/dispatch.h"
#include "tests/support/cases.h"
#include "tests/support/exported_calls.h"
#include "tests/support/hand_written_call.h"
#include "tests/support/images.h"
#include "tests/support/pages.h"

namespace {

Cases& cases = casesOf("calls after which all kept registers are compared");

KeptRegisters patterns() {
  KeptRegisters registers = {};
  std::uint64_t n = 0;
  for (std::uint64_t& word : registers.general) word = ++n * 0x0101010101010101;
  for (auto& vector : registers.vector)
    for (std::uint64_t& word : vector) word = ++n * 0x0101010101010101;
  return registers;
}

constexpr std::uint32_t mxcsrFlags = 0x3F;  // what arithmetic raises, which no callee keeps

// What an idle function leaves, called right before the export, and what the export leaves.
struct Registers {
  KeptRegisters before, after;
};

testing::AssertionResult kept(const Registers& registers) {
  const auto& [before, after] = registers;
  ++cases;
  if (std::memcmp(after.general, before.general, sizeof before.general) != 0)
    return testing::AssertionFailure() << "a general register is lost";
  if (std::memcmp(after.vector, before.vector, sizeof before.vector) != 0)
    return testing::AssertionFailure() << "a vector register is lost";
  if (after.direction != 0) return testing::AssertionFailure() << "the direction flag is set";
  if ((after.mxcsr ^ before.mxcsr) & ~mxcsrFlags)
    return testing::AssertionFailure() << "MXCSR is " << after.mxcsr << ", not " << before.mxcsr;
  if (after.x87Control != before.x87Control)
    return testing::AssertionFailure() << "the x87 control word is " << after.x87Control;
  return testing::AssertionSuccess();
}

std::uint32_t callByHand(const void* function, const Words& words, Registers& registers) {
  const std::uint64_t nothing[6] = {};
  const auto idle = [] {};
  registers = {patterns(), patterns()};
  handWrittenCall(reinterpret_cast<const void*>(+idle), nothing, patterns(), registers.before);
  std::uint64_t six[6];
  std::copy(words.begin(), words.end(), six);
  return handWrittenCall(function, six, patterns(), registers.after);
}

std::uint32_t callByHand(const Export& e, const CallArguments& a, Registers& registers) {
  return callByHand(e.function, e.words(a), registers);
}

// Arguments on a page that cannot be written: arrays of planes and pitches, and the matrix, are the
// caller's.
class ReadOnlyArguments {
 public:
  ReadOnlyArguments() : page_(static_cast<CallArguments*>(reservePages(pageSize()))) {}
  ~ReadOnlyArguments() { releasePages(page_, pageSize()); }
  ReadOnlyArguments(const ReadOnlyArguments&) = delete;
  ReadOnlyArguments& operator=(const ReadOnlyArguments&) = delete;

  const CallArguments& hold(const CallArguments& a) {
    EXPECT_TRUE(setAccess(page_, pageSize(), Access::ReadWrite));
    *page_ = a;
    EXPECT_TRUE(setAccess(page_, pageSize(), Access::Read));
    return *page_;
  }

 private:
  CallArguments* page_;
};

class Callers : public testing::TestWithParam<int> {};

// One iteration, several, and what is left of a row; both parities.
constexpr pxmSize sizes[] = {{1, 1}, {2, 2}, {4, 1}, {15, 3}, {32, 2}, {37, 5}, {64, 4}, {95, 3}};

TEST_P(Callers, SizeIsOneWordAndRegistersAreKept) {
  SCOPED_TRACE(seedMessage());
  const Export& e = allExports()[static_cast<std::size_t>(GetParam())];
  Random random{std::string(e.conversion.name)};
  ReadOnlyArguments arguments;
  for (const int variant : runnableVariants()) {
    const SelectedVariant selected(variant);
    for (const pxmSize size : sizes) {
      Images byHand(random);
      Images byCompiler = byHand;
      Registers registers;
      const std::uint32_t status = callByHand(e, arguments.hold(byHand.arguments(size)), registers);
      ASSERT_TRUE(kept(registers))
          << variantTags[variant] << " " << size.width << "x" << size.height;
      ASSERT_EQ(static_cast<pxmStatus>(status), e.conversion.call(byCompiler.arguments(size)));
      ASSERT_TRUE(byHand.dst == byCompiler.dst) << variantTags[variant] << " " << size.width;
    }
  }
}

// A first call comes by the trampoline.
TEST_P(Callers, RegistersAreKeptByTheFirstCall) {
  SCOPED_TRACE(seedMessage());
  const Export& e = allExports()[static_cast<std::size_t>(GetParam())];
  Random random{std::string(e.conversion.name)};
  Images byHand(random);
  Images byCompiler = byHand;
  legacy90pxmccInit();
  const std::int32_t chosen = VariantIndex;
  VariantIndex = -1;
  Registers registers;
  const std::uint32_t status = callByHand(e, byHand.arguments({37, 5}), registers);
  ASSERT_TRUE(kept(registers));
  EXPECT_EQ(VariantIndex, chosen);
  EXPECT_EQ(static_cast<pxmStatus>(status), e.conversion.call(byCompiler.arguments({37, 5})));
  EXPECT_TRUE(byHand.dst == byCompiler.dst);
}

// The four exports that convert nothing. Each may be the first that a program calls.
TEST(CallersOfServices, RegistersAreKept) {
  legacy90pxmccInit();
  const std::int32_t chosen = VariantIndex;
  int threads = 0;
  for (const ServiceCall& service : serviceCalls(&threads))
    for (const int variant : {-1, 0, 1, 2, 3, 4, 5, 6}) {
      VariantIndex = variant;
      Registers registers;
      const std::uint32_t result = callByHand(service.function, service.words, registers);
      EXPECT_TRUE(kept(registers)) << service.name << " " << variant;
      EXPECT_EQ(service.hasStatus && static_cast<std::int32_t>(result) < 0, false) << service.name;
    }
  EXPECT_EQ(threads, 1);
  VariantIndex = chosen;
}

// Callees that keep everything but one thing.
using Callee = void (*)();
constexpr struct {
  const char* what;
  Callee callee;
} careless[] = {
    {"rbx", [] { asm volatile("notq %rbx"); }},
    {"r12", [] { asm volatile("notq %r12"); }},
    {"r13", [] { asm volatile("notq %r13"); }},
    {"r14", [] { asm volatile("notq %r14"); }},
    {"r15", [] { asm volatile("notq %r15"); }},
    {"direction flag", [] { asm volatile("std"); }},
    {"rounding mode of MXCSR", [] { _mm_setcsr(_mm_getcsr() ^ _MM_ROUND_UP); }},
    {"control word of the x87 unit",
     [] {
       const std::uint16_t singlePrecision = 0x7F;
       asm volatile("fldcw %0" : : "m"(singlePrecision));
     }},
};

TEST(CallersOfOthers, EachLossIsSeen) {
  for (const auto& [what, callee] : careless) {
    const unsigned mxcsr = _mm_getcsr();
    std::uint16_t x87Control;
    asm volatile("fnstcw %0" : "=m"(x87Control));
    Registers registers;
    callByHand(reinterpret_cast<const void*>(callee), Words{}, registers);
    _mm_setcsr(mxcsr);
    asm volatile("fldcw %0" : : "m"(x87Control));
    EXPECT_FALSE(kept(registers)) << what;
  }
}

#ifdef _WIN32
// Whatever a call raises finds the handler of its caller, by the unwind information of stub, entry
// and kernel, and finds there the registers that the caller had.
TEST_P(Callers, AnExceptionFindsItsHandler) {
  SCOPED_TRACE(seedMessage());
  const Export& e = allExports()[static_cast<std::size_t>(GetParam())];
  Random random{std::string(e.conversion.name)};
  constexpr std::size_t bytes = 1 << 20;
  auto* const unreadable = static_cast<std::uint8_t*>(reservePages(bytes));
  ASSERT_NE(unreadable, nullptr);
  for (const int variant : runnableVariants()) {
    const SelectedVariant selected(variant);
    for (const pxmSize size : {pxmSize{4, 2}, pxmSize{95, 3}})
      for (const bool isSource : {true, false}) {
        Images images(random);
        CallArguments a = images.arguments(size);
        for (std::size_t i = 0; i < 3; ++i) {
          if (isSource) a.src[i] = unreadable + bytes / 2;
          if (!isSource) a.dst[i] = unreadable + bytes / 2;
        }
        const bool inPlace = e.conversion.has("IR") || e.conversion.has("IP3R");
        if (isSource && inPlace) continue;
        Registers registers;
        const unsigned mxcsr = _mm_getcsr();
        const std::uint32_t status = callByHand(e, a, registers);
        // In the twist the rounding mode is another for a while; a handler finds what it was then.
        _mm_setcsr(mxcsr);
        if (e.conversion.kind == Kind::Twist) registers.after.mxcsr = mxcsr;
        ASSERT_EQ(status, caughtException) << variantTags[variant];
        ASSERT_TRUE(kept(registers)) << variantTags[variant] << " " << size.width;
      }
  }
  releasePages(unreadable, bytes);
}

// The same for what happens in start-up, below trampoline and thunk: it cannot store the index.
TEST_P(Callers, AnExceptionOfStartUpFindsItsHandler) {
  const Export& e = allExports()[static_cast<std::size_t>(GetParam())];
  Random random{std::string(e.conversion.name)};
  Images images(random);
  legacy90pxmccInit();
  const std::int32_t chosen = VariantIndex;
  VariantIndex = -1;
  auto* const page = reinterpret_cast<char*>(&VariantIndex) -
                     reinterpret_cast<std::uintptr_t>(&VariantIndex) % pageSize();
  const CallArguments a = images.arguments({37, 5});
  Registers registers;
  ASSERT_TRUE(setAccess(page, pageSize(), Access::Read));
  const std::uint32_t status = callByHand(e, a, registers);
  ASSERT_TRUE(setAccess(page, pageSize(), Access::ReadWrite));
  EXPECT_EQ(status, caughtException);
  EXPECT_TRUE(kept(registers));
  EXPECT_EQ(VariantIndex, -1);
  EXPECT_EQ(static_cast<pxmStatus>(callByHand(e, a, registers)), e.conversion.call(a));
  EXPECT_EQ(VariantIndex, chosen);
}
#endif

INSTANTIATE_TEST_SUITE_P(, Callers, testing::Range(0, static_cast<int>(conversions().size())),
                         [](const auto& info) {
                           return std::string(
                               allExports()[static_cast<std::size_t>(info.param)].conversion.name);
                         });

}  // namespace
