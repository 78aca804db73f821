// SPDX-License-Identifier: MIT
#ifndef PXM_FRAME_EXPORT_H
#define PXM_FRAME_EXPORT_H

// Everything is hidden unless it says this. Windows exports by a list that is made from
// conversions.def, and nothing else.
#ifdef __ELF__
#define PXM_EXPORT [[gnu::visibility("default")]]
#else
#define PXM_EXPORT
#endif

#endif
