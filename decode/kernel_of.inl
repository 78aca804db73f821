// SPDX-License-Identifier: MIT
// What a row of kernels.def is made into; a level may have a kernel of its own instead.
#ifndef PXM_DECODE_KERNEL_OF_INL
#define PXM_DECODE_KERNEL_OF_INL

#include "frame/level.h"

PXM_LEVEL_BEGIN

template <class Image, class Form, class Packer>
struct KernelOf {
  template <class Arguments>
  PXM_INLINE static void run(const Arguments& a, int dstPitch, int isBgr) {
    Image::template decode<Form, Packer>(a, dstPitch, isBgr);
  }
};

PXM_LEVEL_END

#endif
