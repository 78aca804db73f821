// SPDX-License-Identifier: MIT
#include "decode/dither_matrix.h"

namespace pxm {

constinit const int32_t DitherMatrix444[4][4] = PXM_DITHER_MATRIX_444;
constinit const int32_t DitherMatrix555[4][4] = PXM_DITHER_MATRIX_555;

}  // namespace pxm
