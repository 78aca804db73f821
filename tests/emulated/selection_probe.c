/* SPDX-License-Identifier: MIT */
/* Expects the library to have chosen a variant: selection_probe TAG INIT_STATUS [LABEL]. The label
   is that of the variant's row if none is given. Plain C and little of it, so that it runs on the
   poorest processor, linked statically too. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "pxmcc90lgc.h"

static int expect(int holds, const char* what) {
  if (!holds) fprintf(stderr, "selection_probe: %s\n", what);
  return !holds;
}

static const char* labelOf(const char* tag) {
#define VARIANT(name, kernels, depth_kernels, needs, knows, label, plus) \
  if (strcmp(tag, #name) == 0) return label;
#include "frame/variants.def"
  return "of no variant";
}

int main(int argc, char** argv) {
  const pxmVersionRecord* record = legacy90pxmccGetLibVersion();
  static const unsigned char white[3] = {255, 128, 128};
  unsigned short pixel[2] = {0, 0x5A5A};
  pxmSize one = {1, 1};
  int status, wrong = 0;

  if (argc != 3 && argc != 4) return expect(0, "usage: selection_probe TAG INIT_STATUS [LABEL]");
  status = legacy90pxmccInit();
  printf("%s, %s, start-up status %d\n", record->variantTag, record->label, status);
  wrong += expect(strcmp(record->variantTag, argv[1]) == 0, "another variant was chosen");
  wrong += expect(strcmp(record->label, argc == 4 ? argv[3] : labelOf(argv[1])) == 0,
                  "the label is another");
  wrong += expect(status == atoi(argv[2]), "the start-up status is another");
  wrong += expect(record->versionMajor == 9 && record->versionMinor == 0 &&
                      record->versionPatch == 0 && record->buildNumber == -1,
                  "the version is another");
  wrong += expect(strcmp(record->releaseText, "9.0 Legacy (r48491) (-)") == 0 &&
                      strcmp(record->dateText, "Oct 14 2015") == 0,
                  "release or date is another");
  wrong += expect(legacy90pxmiYCbCrToBGR565_8u16u_C3R(white, 3, pixel, 2, one) == pxmStatusOk &&
                      pixel[0] == 0xFFFF && pixel[1] == 0x5A5A,
                  "a pixel is wrong");
  return wrong != 0;
}
