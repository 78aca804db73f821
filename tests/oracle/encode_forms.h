// SPDX-License-Identifier: MIT
//
// The chroma of YUV before it is brought to a byte, for tests that look at its range.

#ifndef TESTS_ORACLE_ENCODE_FORMS_H_
#define TESTS_ORACLE_ENCODE_FORMS_H_

#include <cstdint>

namespace oracle {

// Chroma with its bias of 128, of any size and sign.
std::int64_t biasedU(int sumB, std::int64_t weightSum, int groupSize);
std::int64_t biasedV(int sumR, std::int64_t weightSum, int groupSize);

}  // namespace oracle

#endif  // TESTS_ORACLE_ENCODE_FORMS_H_
