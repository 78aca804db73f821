// SPDX-License-Identifier: MIT
// Every conversion in every variant at widths to 40 by heights to 5, at tight, padded, odd and
// negative pitches and odd addresses, watched by a checker of memory: MemorySanitizer, where the
// program is built with it, or memcheck, where it runs under valgrind. Only what a call may read
// has a value, and what it must write has one afterwards. Usage: marked_calls [--faults] [--every
// N]   --faults: marks that are wrong by a byte, each of which must lead to a finding; --every N:
// only every N-th call
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>
#include <vector>

#include "catalogue/variants.h"
#include "tests/memory/marked_call.h"
#include "tests/memory/marks.h"
#include "tests/support/least_size.h"

namespace {

constexpr int mostWidth = 40, mostHeight = 5;

constexpr Place places[] = {
    {0, 0, false, false, 0}, {13, 1, false, false, 1}, {0, 37, false, false, 15},
    {1, 22, true, false, 1}, {0, 0, true, true, 0},    {37, 13, true, true, 31},
};

void print(const MarkedCall& call, const char* finding) {
  std::printf("%.*s %s, %dx%d, %d and %d more bytes a row, %s and %s, address %d: %s\n",
              static_cast<int>(call.conversion->name.size()), call.conversion->name.data(),
              variantTags[call.variant], call.size.width, call.size.height, call.place.srcPadding,
              call.place.dstPadding, call.place.srcUpwards ? "up" : "down",
              call.place.dstUpwards ? "up" : "down", call.place.address, finding);
}

struct Counts {
  long calls = 0, findings = 0, byChecker = 0;
};

const char* textOf(Finding finding) {
  switch (finding) {
    case Finding::Rejected:
      return "the call was rejected";
    case Finding::ByChecker:
      return "a byte was touched, read or left that should not be";
    default:
      return "a result depends on bytes that may not be read, or other bytes have changed";
  }
}

// Calls `visit` with every call that there is.
template <class Visit>
void forEachCall(Visit visit) {
  for (const int variant : runnableVariants())
    for (const Conversion& conversion : conversions()) {
      const pxmSize least = leastSize(conversion);
      for (int width = least.width; width <= mostWidth; ++width)
        for (int height = least.height; height <= mostHeight; ++height)
          for (const Place& place : places)
            if (conversion.kind != Kind::Twist || !place.srcUpwards)
              visit(MarkedCall{&conversion, variant, {width, height}, place});
    }
}

Counts makeAll(long every) {
  MarkedMemory memory(mostWidth, mostHeight);
  Counts counts;
  long turn = 0;
  forEachCall([&](const MarkedCall& call) {
    if (turn++ % every != 0) return;
    ++counts.calls;
    const Finding finding = memory.findingOf(call);
    if (finding == Finding::None) return;
    ++counts.findings;
    print(call, textOf(finding));
  });
  return counts;
}

// What children tell: a report may end the process that makes a call.
struct Told {
  static constexpr std::size_t most = 8192;
  std::size_t begun;  // calls
  Finding findings[most];
};

// A report leaves the finding as it is at first.
void findByChildren(const std::vector<MarkedCall>& calls, Told& told) {
  if (calls.size() > Told::most) throw std::length_error("more faults than there is room for");
  std::fill_n(told.findings, calls.size(), Finding::ByChecker);
  for (told.begun = 0; told.begun < calls.size();) {
    const pid_t child = fork();
    if (child == 0) {
      dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
      MarkedMemory memory(mostWidth, mostHeight);
      while (told.begun < calls.size()) {
        const std::size_t i = told.begun++;
        told.findings[i] = memory.findingOf(calls[i]);
      }
      _exit(0);
    }
    waitpid(child, nullptr, 0);
  }
}

std::vector<MarkedCall> faultyCalls() {
  std::vector<MarkedCall> calls;
  for (const int variant : runnableVariants())
    for (const Conversion& conversion : conversions())
      for (const int width : {32, 36})
        for (const Fault fault :
             {Fault::SourceEndsEarly, Fault::RegionEndsEarly, Fault::RegionEndsLate}) {
          MarkedCall call = {&conversion, variant, {width, 4}, places[0], fault};
          for (; call.faultyPlane < planesWithFault(call); ++call.faultyPlane)
            calls.push_back(call);
        }
  return calls;
}

// The findings are the faults that nobody found.
Counts plantFaults() {
  void* const shared =
      mmap(nullptr, sizeof(Told), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) throw std::bad_alloc();
  Told& told = *static_cast<Told*>(shared);
  const std::vector<MarkedCall> calls = faultyCalls();
  findByChildren(calls, told);
  Counts counts;
  for (std::size_t i = 0; i < calls.size(); ++i) {
    ++counts.calls;
    counts.byChecker += told.findings[i] == Finding::ByChecker;
    if (told.findings[i] == Finding::ByChecker || told.findings[i] == Finding::ByComparison)
      continue;
    ++counts.findings;
    print(calls[i], "a planted fault was not found");
  }
  return counts;
}

int end(const Counts& counts) {
  if (counts.findings == 0) return 0;
  std::printf("%ld findings\n", counts.findings);
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  bool faults = false;
  long every = 1;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--faults") == 0) {
      faults = true;
    } else if (std::strcmp(argv[i], "--every") == 0 && i + 1 < argc &&
               (every = std::atol(argv[++i])) > 0) {
      continue;
    } else {
      std::fprintf(stderr, "usage: marked_calls [--faults] [--every N]\n");
      return 2;
    }
  }
  if (marks::checker() == nullptr) {
    std::fprintf(stderr, "marked_calls: no checker watches this program\n");
    return 2;
  }
  if (faults) {
    const Counts counts = plantFaults();
    std::printf("%ld by %s, %ld more because two calls differ\n", counts.byChecker,
                marks::checker(), counts.calls - counts.byChecker - counts.findings);
    std::printf("cases: %ld planted faults of one byte\n", counts.calls);
    return end(counts);
  }
  const Counts counts = makeAll(every);
  std::printf("cases: %ld calls on marked memory, watched by %s\n", counts.calls, marks::checker());
  return end(counts);
}
