// SPDX-License-Identifier: MIT
#include <windows.h>

#include "tests/support/pages.h"

std::size_t pageSize() {
  SYSTEM_INFO info;
  GetSystemInfo(&info);
  return info.dwPageSize;
}

void* reservePages(std::size_t bytes) {
  return VirtualAlloc(nullptr, bytes, MEM_RESERVE, PAGE_NOACCESS);
}

void releasePages(void* pages, std::size_t) {
  VirtualFree(pages, 0, MEM_RELEASE);
}

bool setAccess(void* pages, std::size_t bytes, Access access) {
  const DWORD protection = access == Access::None   ? PAGE_NOACCESS
                           : access == Access::Read ? PAGE_READONLY
                                                    : PAGE_READWRITE;
  DWORD before;
  if (VirtualProtect(pages, bytes, protection, &before)) return true;
  return VirtualAlloc(pages, bytes, MEM_COMMIT, protection) != nullptr;
}

namespace {

constexpr std::size_t mostPages = 8;
char* watched;
std::size_t watchedCount, writtenCount;
std::size_t written[mostPages];
void* handler;

LONG CALLBACK onException(EXCEPTION_POINTERS* exception) {
  const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
  if (record.ExceptionCode != EXCEPTION_ACCESS_VIOLATION) return EXCEPTION_CONTINUE_SEARCH;
  const std::size_t page =
      (record.ExceptionInformation[1] - reinterpret_cast<ULONG_PTR>(watched)) / pageSize();
  if (page >= watchedCount || writtenCount == mostPages) return EXCEPTION_CONTINUE_SEARCH;
  written[writtenCount++] = page;
  setAccess(watched + page * pageSize(), pageSize(), Access::ReadWrite);
  return EXCEPTION_CONTINUE_EXECUTION;
}

}  // namespace

WatchedPages::WatchedPages(void* pages, std::size_t count) {
  watched = static_cast<char*>(pages);
  watchedCount = count;
  writtenCount = 0;
  handler = AddVectoredExceptionHandler(1, onException);
}

WatchedPages::~WatchedPages() {
  RemoveVectoredExceptionHandler(handler);
}

std::vector<std::size_t> WatchedPages::order() const {
  return {written, written + writtenCount};
}
