// SPDX-License-Identifier: MIT
// The road from an exported name before any variant is chosen: trampoline, start-up, stub, entry.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <thread>
#include <vector>

#include "catalogue/conversions.h"
#include "frame/dispatch.h"
#include "tests/support/meeting.h"

extern "C" void LazyStartThunk();

namespace {

// Grey 2x1 through a planar conversion: every argument must arrive for the words to be right.
// Y = 235 and 16 with neutral chroma are 254 and 0 in all components.
struct GreyPair {
  unsigned char y[2] = {235, 16};
  unsigned char neutral[2] = {128, 128};
  unsigned short pixels[4] = {0x5A5A, 0x5A5A, 0x5A5A, 0x5A5A};

  pxmStatus convert() {
    const unsigned char* planes[3] = {y, neutral, neutral};
    return legacy90pxmiYCbCrToBGR555_8u16u_P3C3R(planes, 2, pixels, 4, {2, 1});
  }
  bool isConverted() const {
    return pixels[0] == 0x7FFF && pixels[1] == 0 && pixels[2] == 0x5A5A && pixels[3] == 0x5A5A;
  }
};

// As it is in the image before anything has run.
void forgetStartUp() {
  VariantIndex = -1;
  pxm::SetEnabledFeatures(7);
  pxm::featureMaskCache = {0, 0};
}

TEST(Trampoline, FirstCallStartsTheLibraryAndArrives) {
  legacy90pxmccInit();
  const int chosen = VariantIndex;
  forgetStartUp();
  GreyPair grey;
  EXPECT_EQ(grey.convert(), pxmStatusOk);
  EXPECT_TRUE(grey.isConverted());
  EXPECT_EQ(VariantIndex, chosen);
}

TEST(Trampoline, EveryConversionAndTheVersionServiceHasOne) {
  for (const Conversion& conversion : conversions()) {
    forgetStartUp();
    CallArguments none = {};
    EXPECT_EQ(conversion.call(none), pxmStatusNullPointer) << conversion.name;
    EXPECT_GE(VariantIndex, 0) << conversion.name;
  }
  forgetStartUp();
  EXPECT_NE(legacy90pxmccGetLibVersion(), nullptr);
  EXPECT_GE(VariantIndex, 0);
}

TEST(Trampoline, RefusalsPassThroughIt) {
  forgetStartUp();
  EXPECT_EQ(legacy90pxmiYCbCrToBGR555_8u16u_C3R(nullptr, 0, nullptr, 0, {0, 0}), -8);
  EXPECT_GE(VariantIndex, 0);
}

// Calls the thunk as a trampoline does: the stack is aligned to 16 bytes where it is entered, once
// the caller's and the trampoline's return addresses stand there. rdi, rsi, rdx, rcx, r8, r9 are
// loaded from `registers` before and stored there after.
void callThunk(std::uint64_t (&registers)[6]) {
  asm volatile(
      "movq %%rsp, %%r12\n\t"
      "subq $128, %%rsp\n\t"  // past the red zone
      "andq $-16, %%rsp\n\t"
      "subq $8, %%rsp\n\t"
      "movq (%%rbx), %%rdi\n\t"
      "movq 8(%%rbx), %%rsi\n\t"
      "movq 16(%%rbx), %%rdx\n\t"
      "movq 24(%%rbx), %%rcx\n\t"
      "movq 32(%%rbx), %%r8\n\t"
      "movq 40(%%rbx), %%r9\n\t"
      "call LazyStartThunk\n\t"
      "movq %%rdi, (%%rbx)\n\t"
      "movq %%rsi, 8(%%rbx)\n\t"
      "movq %%rdx, 16(%%rbx)\n\t"
      "movq %%rcx, 24(%%rbx)\n\t"
      "movq %%r8, 32(%%rbx)\n\t"
      "movq %%r9, 40(%%rbx)\n\t"
      "movq %%r12, %%rsp"
      :
      : "b"(registers)
      : "rax", "rcx", "rdx", "rsi", "rdi", "r8", "r9", "r10", "r11", "r12", "memory", "cc", "xmm0",
        "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7", "xmm8", "xmm9", "xmm10", "xmm11",
        "xmm12", "xmm13", "xmm14", "xmm15");
}

TEST(Trampoline, TheThunkKeepsAllSixArgumentRegisters) {
  forgetStartUp();
  std::uint64_t registers[6];
  for (std::uint64_t i = 0; i < 6; ++i) registers[i] = (i + 1) * 0x1111111111111111;
  callThunk(registers);
  for (std::uint64_t i = 0; i < 6; ++i) EXPECT_EQ(registers[i], (i + 1) * 0x1111111111111111) << i;
  EXPECT_GE(VariantIndex, 0);
}

TEST(Trampoline, ManyThreadsMeetInIt) {
  constexpr int threadCount = 8, rounds = 200;
  legacy90pxmccInit();
  const int chosen = VariantIndex;
  Meeting together(threadCount, forgetStartUp);
  std::atomic<int> wrong = 0;
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < threadCount; ++i)
      threads.emplace_back([&] {
        for (int round = 0; round < rounds; ++round) {
          together.arriveAndWait();
          GreyPair grey;
          if (grey.convert() != pxmStatusOk || !grey.isConverted()) ++wrong;
          if (__atomic_load_n(&VariantIndex, __ATOMIC_RELAXED) != chosen) ++wrong;
        }
      });
  }
  EXPECT_EQ(wrong, 0);
}

}  // namespace
