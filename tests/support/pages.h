// SPDX-License-Identifier: MIT
// Pages of memory and what may be done with them, by the system's own means.
#ifndef TESTS_SUPPORT_PAGES_H_
#define TESTS_SUPPORT_PAGES_H_

#include <cstddef>
#include <vector>

enum class Access { None, Read, ReadWrite };

std::size_t pageSize();

// A range of addresses that nothing may touch and that takes no memory; null where there is none.
void* reservePages(std::size_t bytes);
void releasePages(void* pages, std::size_t bytes);

// Lets whole pages of a reservation, or of the program itself, be touched so. Those of a
// reservation are zero at first; what stands in a page stays when its access changes. False where
// the system rejects.
bool setAccess(void* pages, std::size_t bytes, Access access);

// While it lives, the first write to each of some pages is noted and let through. They are pages of
// a reservation, read-only when this is made. One at a time.
class WatchedPages {
 public:
  explicit WatchedPages(void* pages, std::size_t count);
  ~WatchedPages();
  WatchedPages(const WatchedPages&) = delete;
  WatchedPages& operator=(const WatchedPages&) = delete;

  // The numbers of the pages, in the order in which they were written.
  std::vector<std::size_t> order() const;
};

#endif
