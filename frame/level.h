// SPDX-License-Identifier: MIT
// What the code of kernels must know. It is compiled once for each level, with PXM_LEVEL as the
// level's name, and nothing of it may carry a name that another level uses too: the linker would
// keep one copy, and an old processor could meet instructions that it lacks.
#ifndef PXM_FRAME_LEVEL_H
#define PXM_FRAME_LEVEL_H

#include "frame/inline.h"

#ifdef __AVX2__
#include <immintrin.h>
#endif

#ifndef PXM_LEVEL
#error "only units that are compiled for one level include this header"
#endif

// The named namespace tells levels apart in debuggers and profiles, the unnamed one inside it keeps
// their code out of the linker's sight.
#define PXM_LEVEL_BEGIN      \
  namespace pxm::PXM_LEVEL { \
  namespace {
#define PXM_LEVEL_END \
  }                   \
  }

// Several kernels may call it: neither inlined nor copied for one of them.
#ifdef __clang__
#define PXM_SHARED [[gnu::noinline]]
#else
#define PXM_SHARED [[gnu::noinline, gnu::noclone]]
#endif

PXM_LEVEL_BEGIN
// Some oddities of odd sizes belong to the kernels that work in blocks.
#ifdef PXM_SIMD
constexpr bool isSimd = true;
#else
constexpr bool isSimd = false;
#endif

// The end of a kernel. Required: 256-bit registers leave their upper halves clean. Compilers see to
// it themselves, but not where a call that spares the registers comes last.
PXM_INLINE void clearWideRegisters() {
#ifdef __AVX2__
  _mm256_zeroupper();
#endif
}

// Whether the level asks for the smaller of two ways.
#ifdef PXM_SMALL
constexpr bool isSmall = true;
#else
constexpr bool isSmall = false;
#endif
PXM_LEVEL_END

#endif
