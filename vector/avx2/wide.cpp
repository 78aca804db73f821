// SPDX-License-Identifier: MIT
#include "vector/avx2/wide.h"

#include "decode/drivers.inl"
#include "vector/avx2/wide.inl"

namespace pxm::l9 {
namespace {

// Runs a driver in the order BGR, and leaves the upper halves of the registers clean.
template <class Driver>
PXM_INLINE void convertToBgr(const typename Driver::Arguments& a, int dstPitch) {
  Driver::convert(a, dstPitch, 1);
  _mm256_zeroupper();
}

template <int depth>
using To420 = DecodePairs<WideRows420<PackPlain<depth>>,
                          Walked<PlanarRows<1, 1>, DecodeStaged, PackPlain<depth>>>;
template <int depth>
using To422C2 = DecodeRows<PackedImage<PackedRow422LastCr>, WideRow422<PackPlain<depth>>>;

}  // namespace

void wideYCbCr420ToBgr444(const PlanesToPixels& a, int dstPitch) {
  convertToBgr<To420<444>>(a, dstPitch);
}
void wideYCbCr420ToBgr555(const PlanesToPixels& a, int dstPitch) {
  convertToBgr<To420<555>>(a, dstPitch);
}
void wideYCbCr420ToBgr565(const PlanesToPixels& a, int dstPitch) {
  convertToBgr<To420<565>>(a, dstPitch);
}
void wideYCbCr422C2ToBgr555(const BytesToPixels& a, int dstPitch) {
  convertToBgr<To422C2<555>>(a, dstPitch);
}
void wideYCbCr422C2ToBgr565(const BytesToPixels& a, int dstPitch) {
  convertToBgr<To422C2<565>>(a, dstPitch);
}

}  // namespace pxm::l9
