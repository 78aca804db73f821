// SPDX-License-Identifier: MIT
// What the entries of a variant must know. They are compiled once for each variant, with the
// variant's tag and the levels that its row names, and share no name with those of another.
#ifndef PXM_FRAME_VARIANT_H
#define PXM_FRAME_VARIANT_H

#include "frame/inline.h"

#if !defined(PXM_VARIANT) || !defined(PXM_KERNELS) || !defined(PXM_DEPTH_KERNELS)
#error "only units that are compiled for one variant include this header"
#endif

#define PXM_SUFFIXED_TOKENS(name, tag) name##_##tag
#define PXM_SUFFIXED(name, tag) PXM_SUFFIXED_TOKENS(name, tag)

// The variant's entry of a conversion: its name without the prefix of exports, and the tag.
#define ENTRY(name) PXM_SUFFIXED(name, PXM_VARIANT)

#define PXM_VARIANT_BEGIN      \
  namespace pxm::PXM_VARIANT { \
  namespace {
#define PXM_VARIANT_END \
  }                     \
  }

#endif
