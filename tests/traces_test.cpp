// SPDX-License-Identifier: MIT
// What calls leave behind: nothing. No deep stack, no upper halves of registers, no x87 or MMX
// state, no system call, and no write to the library's own data once a variant is chosen.
#include <gtest/gtest.h>
#include <link.h>
#include <linux/seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "catalogue/conversions.h"
#include "catalogue/loaded_library.h"
#include "catalogue/variants.h"
#include "include/pxmcc90lgc.h"

namespace {

// Images with room for any conversion of 100 by 8 pixels, and rows above and below.
struct Images {
  static constexpr int pitch = 512, rows = 16, firstRow = 4;
  std::array<std::array<std::uint8_t, pitch * rows>, 3> src, dst;

  Images() {
    for (auto& plane : src)
      for (std::size_t i = 0; i < plane.size(); ++i) plane[i] = static_cast<std::uint8_t>(i * i);
    for (auto& plane : dst) plane.fill(0);
  }

  CallArguments arguments(pxmSize size) {
    CallArguments a = {};
    for (std::size_t i = 0; i < 3; ++i) {
      a.src[i] = src[i].data() + firstRow * pitch;
      a.dst[i] = dst[i].data() + firstRow * pitch;
      a.srcStep[i] = a.dstStep[i] = pitch;
    }
    a.size = size;
    const float matrix[3][4] = {{0.9f, 0.1f, -0.2f, 3}, {0.3f, -1.1f, 0.5f, -4}, {1, 1, -1, 0.5f}};
    std::memcpy(a.twist, matrix, sizeof matrix);
    return a;
  }
};

// Blocks of every size and what is left of them; odd and even; rejected.
constexpr pxmSize sizes[] = {{0, 0},  {1, 1},  {2, 2},  {4, 1},  {7, 3},
                             {15, 3}, {32, 2}, {37, 5}, {64, 4}, {95, 3}};

// Calls `visit` with every conversion in every variant that runs here, at every size.
template <typename Visit>
void forAllCalls(Visit visit) {
  static Images images;
  for (const int variant : runnableVariants()) {
    const SelectedVariant selected(variant);
    for (const Conversion& c : conversions())
      for (const pxmSize size : sizes) visit(c, variant, images.arguments(size));
  }
}

// ---- Registers ---------------------------------------------------------------------------------

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

// ---- System calls ------------------------------------------------------------------------------

// How a child process ended that may do nothing but write and exit from the middle of it on.
int endOfChild(const std::function<void()>& before, const std::function<void()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    before();
    if (prctl(PR_SET_SECCOMP, SECCOMP_MODE_STRICT) != 0) _exit(77);
    work();
    syscall(SYS_exit, 0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

TEST(Traces, NoCallAsksTheSystem) {
  const auto nothingBefore = [] {};
  const int asking = endOfChild(nothingBefore, [] { (void)getppid(); });
  if (WIFEXITED(asking) && WEXITSTATUS(asking) == 77)
    GTEST_SKIP() << "there is no strict mode here";
  ASSERT_TRUE(WIFSIGNALED(asking)) << "a system call must be seen";
  const int status = endOfChild([] { (void)conversions(); },
                                [] {
                                  static Images images;
                                  for (const Conversion& c : conversions())
                                    for (const pxmSize size : sizes)
                                      (void)c.call(images.arguments(size));
                                  int threads = 0;
                                  (void)legacy90pxmccGetNumThreads(&threads);
                                  (void)legacy90pxmccSetNumThreads(4);
                                  (void)legacy90pxmccGetLibVersion();
                                  (void)legacy90pxmccInit();
                                });
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0)
      << "ended by signal " << (WIFSIGNALED(status) ? WTERMSIG(status) : 0);
}

// ---- The library's own data --------------------------------------------------------------------

struct Pages {
  void* first;
  std::size_t bytes;
};

// The pages of the shared library that can be written.
std::vector<Pages> writablePages() {
  std::vector<Pages> found;
  dl_iterate_phdr(
      [](dl_phdr_info* info, std::size_t, void* result) {
        if (std::strstr(info->dlpi_name, "libpxmcc90lgc") == nullptr) return 0;
        std::uintptr_t relroEnd = 0;
        for (int i = 0; i < info->dlpi_phnum; ++i) {
          const auto& segment = info->dlpi_phdr[i];
          if (segment.p_type == PT_GNU_RELRO)
            relroEnd = info->dlpi_addr + segment.p_vaddr + segment.p_memsz;
        }
        for (int i = 0; i < info->dlpi_phnum; ++i) {
          const auto& segment = info->dlpi_phdr[i];
          if (segment.p_type != PT_LOAD || (segment.p_flags & PF_W) == 0) continue;
          const std::uintptr_t page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
          const std::uintptr_t end = info->dlpi_addr + segment.p_vaddr + segment.p_memsz;
          const std::uintptr_t first =
              std::max<std::uintptr_t>(info->dlpi_addr + segment.p_vaddr, relroEnd) / page * page;
          static_cast<std::vector<Pages>*>(result)->push_back(
              {reinterpret_cast<void*>(first), (end - first + page - 1) / page * page});
        }
        return 0;
      },
      &found);
  return found;
}

TEST(Traces, NoCallWritesToTheLibrary) {
  LoadedLibrary library(PXM_LIBRARY);
  static Images images;
  for (const int variant : runnableVariants()) {
    library.select(variant);
    const std::vector<Pages> pages = writablePages();
    ASSERT_FALSE(pages.empty());
    for (const Pages& p : pages) ASSERT_EQ(mprotect(p.first, p.bytes, PROT_READ), 0);
    for (const LoadedConversion& c : library.conversions())
      for (const pxmSize size : sizes) (void)c.call(images.arguments(size));
    for (const Pages& p : pages) ASSERT_EQ(mprotect(p.first, p.bytes, PROT_READ | PROT_WRITE), 0);
  }
}

TEST(TracesDeathTest, AWriteToTheLibraryWouldBeSeen) {
  LoadedLibrary library(PXM_LIBRARY);
  EXPECT_DEATH(
      {
        for (const Pages& p : writablePages()) mprotect(p.first, p.bytes, PROT_READ);
        library.select(0);
      },
      "");
}

}  // namespace
