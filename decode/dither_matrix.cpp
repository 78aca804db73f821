// SPDX-License-Identifier: MIT
#include "decode/dither_matrix.h"

namespace pxm {

// 289 times the classic 4x4 index matrix, 0 to 15.
constinit const int32_t DitherMatrix444[4][4] = {
    {0, 2312, 578, 2890},
    {3468, 1156, 4046, 1734},
    {867, 3179, 289, 2601},
    {4335, 2023, 3757, 1445},
};

// 839 / 6 times the index matrix, rounded down.
constinit const int32_t DitherMatrix555[4][4] = {
    {0, 1118, 279, 1398},
    {1678, 559, 1957, 839},
    {419, 1538, 139, 1258},
    {2097, 978, 1817, 699},
};

}  // namespace pxm
