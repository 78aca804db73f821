// SPDX-License-Identifier: MIT
// Whoever stops a first call on its way, a debugger or a profiler, finds the caller: at each
// instruction of stub, trampoline, start-up and entry the unwinder comes to the address that the
// call returns to. The calls are stepped by the processor's trap flag.
#include <gtest/gtest.h>
#include <signal.h>
#include <ucontext.h>
#include <unwind.h>

#include <cstdint>
#include <iterator>
#include <set>

#include "frame/dispatch.h"
#include "include/pxmcc90lgc.h"

extern "C" void LazyStartThunk();

// Functions that push a register, and say so or not.
asm(R"(
        .text
        .type   pushesAndSaysSo, @function
pushesAndSaysSo:
        .cfi_startproc
        pushq   %rdi
        .cfi_adjust_cfa_offset 8
        popq    %rdi
        .cfi_adjust_cfa_offset -8
        ret
        .cfi_endproc
        .size   pushesAndSaysSo, . - pushesAndSaysSo
        .type   pushesInSilence, @function
pushesInSilence:
        .cfi_startproc
        pushq   %rdi
        popq    %rdi
        ret
        .cfi_endproc
        .size   pushesInSilence, . - pushesInSilence
)");
extern "C" void pushesAndSaysSo();
extern "C" void pushesInSilence();

namespace {

const void* const stubs[] = {
#define DISPATCHED_SERVICE(name) reinterpret_cast<const void*>(legacy90pxmcc##name),
#define CONVERSION(name, family) reinterpret_cast<const void*>(legacy90pxmi##name),
#include "frame/conversions.def"
};

// What the call that is stepped returns to, and what the unwinder found on the way.
std::uintptr_t returnAddress;
std::set<std::uintptr_t> stepped, lost;

_Unwind_Reason_Code stopAtCaller(_Unwind_Context* context, void* found) {
  *static_cast<bool*>(found) = _Unwind_GetIP(context) == returnAddress;
  return *static_cast<bool*>(found) ? _URC_NORMAL_STOP : _URC_NO_REASON;
}

void onStep(int, siginfo_t*, void* context) {
  const auto& registers = static_cast<ucontext_t*>(context)->uc_mcontext.gregs;
  const auto place = static_cast<std::uintptr_t>(registers[REG_RIP]);
  if (place - returnAddress < 32) return;  // the call is over
  bool found = false;
  _Unwind_Backtrace(stopAtCaller, &found);
  stepped.insert(place);
  if (!found) lost.insert(place);
}

// Calls a function with zeros as arguments, with the trap flag set from its first instruction on.
[[gnu::noinline]] void callInSteps(const void* function) {
  asm volatile(
      "movq %%rsp, %%rbx\n\t"
      "subq $128, %%rsp\n\t"
      "andq $-16, %%rsp\n\t"
      "pushq $0\n\tpushq $0\n\tpushq $0\n\tpushq $0\n\t"
      "leaq 1f(%%rip), %%rax\n\t"
      "movq %%rax, %[returnAddress]\n\t"
      "xorl %%edi, %%edi\n\txorl %%esi, %%esi\n\txorl %%edx, %%edx\n\t"
      "xorl %%ecx, %%ecx\n\txorl %%r8d, %%r8d\n\txorl %%r9d, %%r9d\n\t"
      "pushfq\n\torq $0x100, (%%rsp)\n\tpopfq\n\t"
      "call *%[function]\n"
      "1:\tpushfq\n\tandq $~0x100, (%%rsp)\n\tpopfq\n\t"
      "movq %%rbx, %%rsp"
      : [returnAddress] "=m"(returnAddress)
      : [function] "r"(function)
      : "rax", "rbx", "rcx", "rdx", "rsi", "rdi", "r8", "r9", "r10", "r11", "memory", "cc");
}

class SteppedCalls {
 public:
  SteppedCalls() {
    struct sigaction action = {};
    action.sa_sigaction = onStep;
    action.sa_flags = SA_SIGINFO;
    sigaction(SIGTRAP, &action, &before_);
    stepped.clear();
    lost.clear();
  }
  ~SteppedCalls() { sigaction(SIGTRAP, &before_, nullptr); }
  SteppedCalls(const SteppedCalls&) = delete;
  SteppedCalls& operator=(const SteppedCalls&) = delete;

 private:
  struct sigaction before_;
};

TEST(Unwinding, FindsTheCallerOfAFirstCallAtEveryInstruction) {
  legacy90pxmccInit();
  const std::int32_t chosen = VariantIndex;
  const SteppedCalls steps;
  for (const void* const stub : stubs) {
    VariantIndex = -1;
    pxm::SetEnabledFeatures(pxm::featuresOfEveryProcessor);
    pxm::featureMaskCache = {0, 0};
    callInSteps(stub);
    EXPECT_EQ(stepped.count(reinterpret_cast<std::uintptr_t>(stub)), 1u);
  }
  VariantIndex = chosen;
  // Six registers are kept around a call, and taken back.
  const auto thunk = reinterpret_cast<std::uintptr_t>(LazyStartThunk);
  EXPECT_GE(std::distance(stepped.lower_bound(thunk), stepped.lower_bound(thunk + 32)), 14);
  EXPECT_TRUE(lost.empty()) << lost.size() << " of " << stepped.size() << " instructions, one "
                            << *lost.begin() - thunk << " bytes behind LazyStartThunk";
}

TEST(Unwinding, ALossIsSeen) {
  const SteppedCalls steps;
  callInSteps(reinterpret_cast<const void*>(pushesAndSaysSo));
  EXPECT_EQ(stepped.size(), 3u);
  EXPECT_TRUE(lost.empty());
  callInSteps(reinterpret_cast<const void*>(pushesInSilence));
  EXPECT_EQ(stepped.size(), 6u);
  EXPECT_EQ(lost.size(), 1u);
}

}  // namespace
