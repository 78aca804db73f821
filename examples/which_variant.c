/* SPDX-License-Identifier: MIT */
/* Prints which variant of the library this processor runs. C89. */
#include <stdio.h>

#include "pxmcc90lgc.h"

static const char* statusInWords(pxmStatus status) {
  switch (status) {
    case pxmStatusOk:
      return "ok";
    case pxmStatusForeignCpu:
      return "ok, a processor of another vendor; everything works all the same";
    case pxmStatusCpuUnsupported:
      return "the processor could not be detected; scalar code serves it";
    default:
      return status < 0 ? "failed" : "ok, with a warning that is not known here";
  }
}

int main(void) {
  const pxmStatus status = legacy90pxmccInit();
  const pxmVersionRecord* version = legacy90pxmccGetLibVersion();
  printf("variant  %.8s\n", version->variantTag);
  printf("label    %s\n", version->label);
  printf("release  %s\n", version->releaseText);
  printf("date     %s\n", version->dateText);
  printf("init     %d, %s\n", status, statusInWords(status));
  if (fflush(stdout) != 0 || ferror(stdout)) {
    fprintf(stderr, "which_variant: cannot write to standard output\n");
    return 1;
  }
  return status < 0 ? 1 : 0;
}
