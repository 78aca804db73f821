// SPDX-License-Identifier: MIT
// Calls leave no upper halves of registers and no x87 or MMX state behind.
#include <gtest/gtest.h>

#include <cstdint>

#include "tests/traces/calls.h"

namespace {

// Which parts of the extended state are in use: bit 2 where an upper half is not zero.
std::uint32_t stateInUse() {
  std::uint32_t low, high;
  asm volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(1));
  return low;
}

bool tellsStateInUse() {
  std::uint32_t eax, ebx, ecx = 1, edx;
  asm volatile("cpuid" : "=a"(eax), "=b"(ebx), "+c"(ecx), "=d"(edx) : "0"(0xD));
  return __builtin_cpu_supports("avx") && eax >> 2 & 1;
}

TEST(Traces, UpperHalvesAreClear) {
  if (!tellsStateInUse()) GTEST_SKIP() << "this processor does not say what is in use";
  asm volatile("vpcmpeqd %%xmm15, %%xmm15, %%xmm15\n\tvinsertf128 $1, %%xmm15, %%ymm15, %%ymm15"
               :
               :
               : "xmm15");
  EXPECT_NE(stateInUse() & 4, 0u) << "an upper half that is in use must be seen";
  forAllCalls([&](const Conversion& c, int variant, const CallArguments& a) {
    asm volatile("vzeroupper" : : : "memory");
    (void)c.call(a);
    ASSERT_EQ(stateInUse() & 4, 0u) << c.name << " " << variantTags[variant] << " " << a.size.width;
  });
}

// The environment of the x87 unit, whose registers are those of MMX: with none in use every tag
// is 3.
struct X87Environment {
  std::uint32_t control, status, tags, rest[4];
};

X87Environment x87() {
  X87Environment environment;
  asm volatile("fnstenv %0\n\tfldenv %0" : "=m"(environment));
  return environment;
}

TEST(Traces, X87AndMmxAreNotUsed) {
  asm volatile("fninit");
  ASSERT_EQ(x87().tags & 0xFFFF, 0xFFFFu);
  asm volatile("pxor %%mm0, %%mm0" : : : "mm0");
  EXPECT_NE(x87().tags & 0xFFFF, 0xFFFFu) << "a register that is in use must be seen";
  asm volatile("emms");
  forAllCalls([&](const Conversion& c, int variant, const CallArguments& a) {
    (void)c.call(a);
    const X87Environment after = x87();
    ASSERT_EQ(after.tags & 0xFFFF, 0xFFFFu) << c.name << " " << variantTags[variant];
    ASSERT_EQ(after.status & 0x3F, 0u) << c.name << " " << variantTags[variant];
  });
}

}  // namespace
