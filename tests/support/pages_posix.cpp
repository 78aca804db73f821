// SPDX-License-Identifier: MIT
#include <signal.h>
#include <sys/mman.h>
#include <unistd.h>

#include "tests/support/pages.h"

std::size_t pageSize() {
  static const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  return size;
}

void* reservePages(std::size_t bytes) {
  void* const pages =
      mmap(nullptr, bytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  return pages == MAP_FAILED ? nullptr : pages;
}

void releasePages(void* pages, std::size_t bytes) {
  munmap(pages, bytes);
}

bool setAccess(void* pages, std::size_t bytes, Access access) {
  const int protection = access == Access::None   ? PROT_NONE
                         : access == Access::Read ? PROT_READ
                                                  : PROT_READ | PROT_WRITE;
  return mprotect(pages, bytes, protection) == 0;
}

namespace {

constexpr std::size_t mostPages = 8;
char* watched;
std::size_t watchedCount, writtenCount;
std::size_t written[mostPages];
struct sigaction before;

void onFault(int, siginfo_t* info, void*) {
  const auto page =
      static_cast<std::size_t>(static_cast<char*>(info->si_addr) - watched) / pageSize();
  if (page >= watchedCount || writtenCount == mostPages) _exit(3);
  written[writtenCount++] = page;
  setAccess(watched + page * pageSize(), pageSize(), Access::ReadWrite);
}

}  // namespace

WatchedPages::WatchedPages(void* pages, std::size_t count) {
  watched = static_cast<char*>(pages);
  watchedCount = count;
  writtenCount = 0;
  struct sigaction action = {};
  action.sa_sigaction = onFault;
  action.sa_flags = SA_SIGINFO;
  sigaction(SIGSEGV, &action, &before);
}

WatchedPages::~WatchedPages() {
  sigaction(SIGSEGV, &before, nullptr);
}

std::vector<std::size_t> WatchedPages::order() const {
  return {written, written + writtenCount};
}
