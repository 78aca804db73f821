// SPDX-License-Identifier: MIT
// Calls ask nothing of the system, in a process that may ask nothing, and write none of the
// library's own data once a variant is chosen, on pages that cannot be written.
#include <gtest/gtest.h>
#include <link.h>
#include <linux/seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <functional>
#include <vector>

#include "catalogue/loaded_library.h"
#include "include/pxmcc90lgc.h"
#include "tests/traces/calls.h"

namespace {

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

// So no call allocates either, or maps memory: there is no other way to ask for any, because the
// library has no undefined symbol, as audit.no-dependency shows.
TEST(Traces, NoCallAsksTheSystem) {
  const auto nothingBefore = [] {};
  const int asking = endOfChild(nothingBefore, [] { (void)getppid(); });
  if (WIFEXITED(asking) && WEXITSTATUS(asking) == 77)
    GTEST_SKIP() << "there is no strict mode here";
  ASSERT_TRUE(WIFSIGNALED(asking)) << "a system call must be seen";
  const std::vector<int> variants = runnableVariants();
  Random random("traces");
  Images images(random);
  const auto allCalls = [&] {
    for (const int variant : variants) {
      const SelectedVariant selected(variant);
      for (const Conversion& c : conversions())
        for (const pxmSize size : tracedSizes) (void)c.call(images.arguments(size));
      (void)legacy90pxmccGetLibVersion();
    }
    int threads = 0;
    (void)legacy90pxmccGetNumThreads(&threads);
    (void)legacy90pxmccSetNumThreads(4);
    (void)legacy90pxmccInit();
  };
  const int status = endOfChild([] { (void)conversions(); }, allCalls);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0)
      << "ended by signal " << (WIFSIGNALED(status) ? WTERMSIG(status) : 0);
}

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
  Random random("traces");
  Images images(random);
  for (const int variant : runnableVariants()) {
    library.select(variant);
    const std::vector<Pages> pages = writablePages();
    ASSERT_FALSE(pages.empty());
    for (const Pages& p : pages) ASSERT_EQ(mprotect(p.first, p.bytes, PROT_READ), 0);
    for (const LoadedConversion& c : library.conversions())
      for (const pxmSize size : tracedSizes) (void)c.call(images.arguments(size));
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
