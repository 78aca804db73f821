// SPDX-License-Identifier: MIT
// Prints which variant of the library this processor runs, and why.
#include <cstdio>
#include <string>

#include "command_line.h"
#include "failure.h"
#include "frame/features.h"
#include "pxmcc90lgc.h"

namespace {

constexpr const char* kHelp =
    "Usage: which_variant\n"
    "\n"
    "Prints the variant of pxmcc90lgc that this processor runs: its tag, its label, the\n"
    "release, what the processor can do as far as the library asks, which of that the\n"
    "variant needs, and what legacy90pxmccInit returns.\n"
    "\n"
    "  --help     print this text\n"
    "  --version  print the version\n";

struct Feature {
  pxm::FeatureMask bit;
  const char* name;
};

constexpr Feature kFeatures[] = {{pxm::featureMmx, "MMX"},
                                 {pxm::featureSse, "SSE"},
                                 {pxm::featureSse2, "SSE2"},
                                 {pxm::featureSse3, "SSE3"},
                                 {pxm::featureSsse3, "SSSE3"},
                                 {pxm::featureMovbe, "MOVBE"},
                                 {pxm::featureSse41, "SSE4.1"},
                                 {pxm::featureSse42, "SSE4.2"},
                                 {pxm::featureAvx, "AVX"},
                                 {pxm::featureAvxState, "AVX state saved"},
                                 {pxm::featureAes, "AES"},
                                 {pxm::featurePclmulqdq, "PCLMULQDQ"},
                                 {pxm::featureCoprocessor, "coprocessor"},
                                 {pxm::featureRdrand, "RDRAND"},
                                 {pxm::featureF16c, "F16C"},
                                 {pxm::featureAvx2Level, "AVX2 with FMA and BMI"},
                                 {pxm::featureAdx, "ADX"},
                                 {pxm::featureRdseed, "RDSEED"},
                                 {pxm::featurePrefetchw, "PREFETCHW"},
                                 {pxm::featureSha, "SHA"},
                                 {pxm::featureFamilyB1, "family B1"}};

std::string inWords(pxm::FeatureMask mask) {
  std::string words;
  for (const Feature& feature : kFeatures) {
    if ((mask & feature.bit) != 0) {
      words += words.empty() ? "" : ", ";
      words += feature.name;
    }
  }
  return words.empty() ? "nothing beyond SSE2" : words;
}

std::string inHex(pxm::FeatureMask mask) {
  char text[32];
  std::snprintf(text, sizeof text, "0x%llX", static_cast<unsigned long long>(mask));
  return text;
}

// What start-up asks of the processor for a variant.
pxm::FeatureMask needsOf(std::string_view tag) {
  using namespace pxm;
  struct Row {
    std::string_view tag;
    FeatureMask needs;
  };
  constexpr Row rows[] = {
#define VARIANT(tag, kernels, depth_kernels, needs, ...) {#tag, needs},
#include "frame/variants.def"
  };
  for (const Row& row : rows) {
    if (row.tag == tag) {
      return row.needs;
    }
  }
  return featureNone;
}

std::string processor() {
  pxm::FeatureMaskCache cache = {};
  pxm::FeatureMask mask = 0;
  if (pxm::DetectFeatures(pxm::thisProcessor, cache, &mask) == 0) {
    return "could not be asked";
  }
  return inHex(mask) + ", " + inWords(mask);
}

const char* meaning(pxmStatus status) {
  switch (status) {
    case pxmStatusOk:
      return "ok";
    case pxmStatusForeignCpu:
      return "ok: a warning that the processor is of another vendor than the library favours, as\n"
             "           on every processor of today; nothing else follows from it";
    case pxmStatusCpuUnsupported:
      return "ok: a warning that the processor could not be detected; scalar code serves it";
    default:
      return status < 0 ? "failed" : "ok, with a warning that is not known here";
  }
}

void run(int argc, char** argv) {
  if (!examples::readCommandLine({"which_variant", kHelp, {}, {}}, argc, argv)) {
    return;
  }
  const pxmStatus status = legacy90pxmccInit();
  const pxmVersionRecord* version = legacy90pxmccGetLibVersion();
  const std::string tag = version->variantTag;
  examples::printToStandardOutput(
      "variant    " + tag + "\nlabel      " + version->label + "\nneeds      " +
      inWords(needsOf(tag)) + "\nprocessor  " + processor() + "\nrelease    " +
      version->releaseText + "\ndate       " + version->dateText +
      " (release and date are fixed texts of the interface)\ninit       " + std::to_string(status) +
      ", " + meaning(status) + "\n");
  if (status < 0) {
    throw examples::Failure("legacy90pxmccInit failed with status " + std::to_string(status));
  }
}

}  // namespace

int main(int argc, char** argv) {
  return examples::runProgram("which_variant", run, argc, argv);
}
