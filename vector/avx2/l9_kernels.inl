// SPDX-License-Identifier: MIT
// Which colour order of which conversions takes a wide kernel.
#ifndef PXM_VECTOR_AVX2_L9_KERNELS_INL
#define PXM_VECTOR_AVX2_L9_KERNELS_INL

#include "decode/kernels.inl"
#include "vector/avx2/wide.h"

PXM_TEXT_BEGIN

template <auto wideKernel>
struct Wide {
  template <class Arguments>
  PXM_INLINE static void run(const Arguments& a, int dstPitch) {
    wideKernel(a, dstPitch);
  }
};

template <>
struct KernelOf<YCbCr420To444, Order::Bgr> : Wide<wideYCbCr420ToBgr444> {};
template <>
struct KernelOf<YCbCr420To555, Order::Bgr> : Wide<wideYCbCr420ToBgr555> {};
template <>
struct KernelOf<YCbCr420To565, Order::Bgr> : Wide<wideYCbCr420ToBgr565> {};
template <>
struct KernelOf<YCbCr422C2To555, Order::Bgr> : Wide<wideYCbCr422C2ToBgr555> {};
template <>
struct KernelOf<YCbCr422C2To565, Order::Bgr> : Wide<wideYCbCr422C2ToBgr565> {};

PXM_TEXT_END

#endif
