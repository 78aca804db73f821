// SPDX-License-Identifier: MIT
// Included in front of the library's start-up, it makes the stores there plain: what threads share
// is then written without a word to each other, which ThreadSanitizer has to report.
#ifndef TESTS_MEMORY_PLAIN_STORES_H_
#define TESTS_MEMORY_PLAIN_STORES_H_

#define __atomic_store_n(place, value, order) (void)(*(place) = (value))

#endif
