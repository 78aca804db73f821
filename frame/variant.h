// SPDX-License-Identifier: MIT
// What the units of a variant must know. They are compiled once per variant, with PXM_VARIANT as
// its tag, and nothing that they compile may carry a name that another variant uses too: the linker
// would keep one copy, and an old processor could meet instructions that it lacks.
#ifndef PXM_FRAME_VARIANT_H
#define PXM_FRAME_VARIANT_H

#ifndef PXM_VARIANT
#error "only units that are compiled for one variant include this header"
#endif

#define PXM_JOIN_TOKENS(a, b) a##b
#define PXM_JOIN(a, b) PXM_JOIN_TOKENS(a, b)
#define PXM_SUFFIXED_TOKENS(name, tag) name##_##tag
#define PXM_SUFFIXED(name, tag) PXM_SUFFIXED_TOKENS(name, tag)

// The variant's entry of a conversion: its name without the prefix of exports, and the tag.
#define ENTRY(name) PXM_SUFFIXED(name, PXM_VARIANT)

// The named namespace tells variants apart in debuggers and profiles, the unnamed one inside it
// keeps their code out of the linker's sight.
#define PXM_TEXT_BEGIN         \
  namespace pxm::PXM_VARIANT { \
  namespace {
#define PXM_TEXT_END \
  }                  \
  }

#define PXM_INLINE [[gnu::always_inline]] inline

// A kernel serves both colour orders of a conversion, so it is one symbol: never inlined, never
// cloned for one of them.
#ifdef __clang__
#define PXM_KERNEL [[gnu::noinline]]
#else
#define PXM_KERNEL [[gnu::noinline, gnu::noclone]]
#endif

PXM_TEXT_BEGIN
// Some oddities of odd sizes belong to the variants that work in blocks.
#ifdef PXM_VARIANT_TEXT
constexpr bool hasBlocks = true;
#else
constexpr bool hasBlocks = false;
#endif

// Whether blocks are worked on in 256-bit registers as far as they go. No byte depends on it.
#ifdef PXM_WIDE_LANES
constexpr bool hasWideLanes = true;
#else
constexpr bool hasWideLanes = false;
#endif
PXM_TEXT_END

#endif
