// SPDX-License-Identifier: MIT
// Bytes that the library may not touch, or not make results from, in terms of the sanitizer that is
// compiled in. Without one nothing happens.
#ifndef TESTS_FUZZ_GUARD_H_
#define TESTS_FUZZ_GUARD_H_

#include <cstddef>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define PXM_FUZZ_ADDRESSES
#elif __has_feature(memory_sanitizer)
#define PXM_FUZZ_VALUES
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define PXM_FUZZ_ADDRESSES
#endif

#if defined(PXM_FUZZ_ADDRESSES)
#include <sanitizer/asan_interface.h>
#elif defined(PXM_FUZZ_VALUES)
#include <sanitizer/msan_interface.h>
#endif

namespace guard {

// Not to be touched (addresses), or without a value (values).
inline void forbid([[maybe_unused]] const void* bytes, [[maybe_unused]] std::size_t count) {
#if defined(PXM_FUZZ_ADDRESSES)
  __asan_poison_memory_region(bytes, count);
#elif defined(PXM_FUZZ_VALUES)
  __msan_poison(bytes, count);
#endif
}

inline void allow([[maybe_unused]] const void* bytes, [[maybe_unused]] std::size_t count) {
#if defined(PXM_FUZZ_ADDRESSES)
  __asan_unpoison_memory_region(bytes, count);
#elif defined(PXM_FUZZ_VALUES)
  __msan_unpoison(bytes, count);
#endif
}

// Ends the process if a byte has been made from one without a value.
inline void requireValues([[maybe_unused]] const void* bytes, [[maybe_unused]] std::size_t count) {
#if defined(PXM_FUZZ_VALUES)
  __msan_check_mem_is_initialized(bytes, count);
#endif
}

}  // namespace guard

#endif
