/* SPDX-License-Identifier: MIT */
/* The public header, and nothing else, as plain C. */
#include <pxmcc90lgc.h>

int headerIsPlainC(void);
int headerIsPlainC(void) {
  return (int)sizeof(pxmVersionRecord);
}
