// SPDX-License-Identifier: MIT
// Statuses of the library.
#ifndef PXM_EXAMPLES_STATUS_H
#define PXM_EXAMPLES_STATUS_H

#include <string>

#include "failure.h"
#include "pxmcc90lgc.h"

namespace examples {

/// Throws a Failure if a conversion is rejected. Positive values are warnings with the work done.
inline void requireDone(pxmStatus status) {
  if (status < 0) {
    throw Failure("the conversion is rejected with status " + std::to_string(status));
  }
}

}  // namespace examples

#endif
