// SPDX-License-Identifier: MIT
// The checks of an entry: their order is part of the interface, because the first that fails
// decides the status. What no family names here is not checked: pitch arrays, pitches outside the
// twist, overlap, alignment, room.
#ifndef PXM_FRAME_CHECKS_INL
#define PXM_FRAME_CHECKS_INL

#include "frame/signatures.h"
#include "frame/variant.h"

PXM_VARIANT_BEGIN

enum class Check {
  Src,
  Dst,
  SrcDst,
  SrcPlanes,
  DstPlanes,
  SrcDstPlanes,
  Twist,
  Width,
  Height,
  SrcStep,
  DstStep,
  SrcDstStep,
};

// The least width and height of a region, in pixels.
struct Minimum {
  int width, height;
};

template <class Planes>
PXM_INLINE bool anyNull(const Planes& planes) {
  return planes[0] == nullptr || planes[1] == nullptr || planes[2] == nullptr;
}

// One check; only the members that a family's arguments have are named.
template <Check check, Minimum minimum, class A>
PXM_INLINE pxmStatus test(const A& a) {
  if constexpr (check == Check::Src) return a.src ? pxmStatusOk : pxmStatusNullPointer;
  if constexpr (check == Check::Dst) return a.dst ? pxmStatusOk : pxmStatusNullPointer;
  if constexpr (check == Check::SrcDst) return a.srcDst ? pxmStatusOk : pxmStatusNullPointer;
  if constexpr (check == Check::Twist) return a.twist ? pxmStatusOk : pxmStatusNullPointer;
  if constexpr (check == Check::SrcPlanes)
    return anyNull(a.src) ? pxmStatusNullPointer : pxmStatusOk;
  if constexpr (check == Check::DstPlanes)
    return anyNull(a.dst) ? pxmStatusNullPointer : pxmStatusOk;
  if constexpr (check == Check::SrcDstPlanes)
    return anyNull(a.srcDst) ? pxmStatusNullPointer : pxmStatusOk;
  if constexpr (check == Check::Width)
    return a.width < minimum.width ? pxmStatusBadSize : pxmStatusOk;
  if constexpr (check == Check::Height)
    return a.height < minimum.height ? pxmStatusBadSize : pxmStatusOk;
  if constexpr (check == Check::SrcStep) return a.srcStep < 1 ? pxmStatusBadStep : pxmStatusOk;
  if constexpr (check == Check::DstStep) return a.dstStep < 1 ? pxmStatusBadStep : pxmStatusOk;
  if constexpr (check == Check::SrcDstStep)
    return a.srcDstStep < 1 ? pxmStatusBadStep : pxmStatusOk;
}

// Makes the checks in the order written and returns the first status that rejects.
template <Minimum minimum, Check... order>
struct Checks {
  template <class A>
  PXM_INLINE static pxmStatus first(const A& a) {
    pxmStatus status = pxmStatusOk;
    (void)((status = test<order, minimum>(a), status != pxmStatusOk) || ...);
    return status;
  }
};

PXM_VARIANT_END

#endif
