// SPDX-License-Identifier: MIT
#ifndef PXM_FRAME_INLINE_H
#define PXM_FRAME_INLINE_H

#define PXM_INLINE [[gnu::always_inline]] inline
#define PXM_INLINE_LAMBDA __attribute__((always_inline))

#endif
