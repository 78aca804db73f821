// SPDX-License-Identifier: MIT
// The first calls of a process from 64 threads at once, thousands of times: the state of start-up
// is put back between rounds. Start-up is short, and few processors have 64 cores: in every other
// round the threads wait for each other in the middle of it before they call. Built with
// ThreadSanitizer, every access of the library's C++ to what threads share is watched. The stubs
// are assembly, which no sanitizer sees: their one load of VariantIndex is an aligned 32-bit word,
// which the processor loads whole. Usage: first_calls ROUNDS
#include "frame/dispatch.h"
#include "tests/memory/crowd.h"

namespace {

// As it is in the image before anything has run.
void forgetStartUp() {
  VariantIndex = -1;
  pxm::SetEnabledFeatures(pxm::featuresOfEveryProcessor);
  pxm::featureMaskCache = {0, 0};
}

Meeting inStartUp(crowdSize, [] {});

// This processor, asked for by 64 threads: nobody has an answer before all have asked.
const pxm::Processor crowdedProcessor = {[] {
                                           inStartUp.arriveAndWait();
                                           return pxm::thisProcessor.HasCpuId();
                                         },
                                         pxm::thisProcessor.ReadCpuId, pxm::thisProcessor.ReadXcr0};

// What each conversion leaves in the variant that start-up chooses.
std::vector<SmallCall> resultsOfOneThread() {
  legacy90pxmccInit();
  std::vector<SmallCall> results(conversions().size());
  for (std::size_t i = 0; i < results.size(); ++i) conversions()[i].call(results[i].arguments());
  return results;
}

}  // namespace

int main(int argc, char** argv) {
  const int rounds = roundsOf(argc == 2 ? argv[1] : "");
  const std::vector<SmallCall> expected = resultsOfOneThread();
  const pxmVersionRecord* const version = legacy90pxmccGetLibVersion();
  const std::int32_t chosen = VariantIndex;
  std::atomic<long> unstarted = 0;
  const CrowdCounts counts = meetInCrowd(
      rounds, [](int) { forgetStartUp(); },
      [&](int round, int thread) {
        const auto i = static_cast<std::size_t>(round + thread) % expected.size();
        SmallCall call;
        const bool isUnstarted = __atomic_load_n(&VariantIndex, __ATOMIC_RELAXED) < 0;
        if (round % 2 == 1) (void)pxm::startUp(crowdedProcessor, pxm::featureMaskCache);
        const pxmStatus status = conversions()[i].call(call.arguments());
        // The record depends on the mask of features too, which is stored after the index.
        const char* const tag = legacy90pxmccGetLibVersion()->variantTag;
        unstarted.fetch_add(isUnstarted, std::memory_order_relaxed);
        return status >= 0 && call == expected[i] && tag[0] == version->variantTag[0] &&
               tag[1] == version->variantTag[1] &&
               __atomic_load_n(&VariantIndex, __ATOMIC_RELAXED) == chosen;
      });
  std::printf("%ld of the threads found no variant chosen\n", unstarted.load());
  std::printf("cases: %ld first calls from %d threads in %d rounds\n", counts.calls, crowdSize,
              rounds);
  if (unstarted <= rounds) {
    std::printf("no two threads met\n");
    return 1;
  }
  if (counts.wrong == 0) return 0;
  std::printf("%ld went wrong\n", counts.wrong);
  return 1;
}
