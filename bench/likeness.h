// SPDX-License-Identifier: MIT
// Whether two results of a conversion are the same kind of picture.
#ifndef BENCH_LIKENESS_H_
#define BENCH_LIKENESS_H_

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "bench/images.h"
#include "bench/work.h"

// What stands in an image: red, green and blue, or Y, Cb and Cr, of some of its rows.
struct Components {
  struct Plane {
    int width = 0;
    std::vector<std::uint8_t> samples;
  };
  std::array<Plane, 3> planes;
};

Components destinationOf(const Work& work, const Images& images);

// Each component is fitted to the reference by a gain and an offset first, so that neither the
// range nor the gain of a colour difference counts, nor the bias of dropped bits. What is left is
// dither, rounding and other ways to weigh components: 30 dB and more for 5 bits, 27 for 4. A
// component in another's place, a row or column out of step or chroma left out gives less than 20.
struct Likeness {
  double psnr;         // of the worst component, after the fit
  double worstColumn;  // the PSNR of the worst column, which one left unwritten takes below 12
  double gain;         // the gain that is furthest from 1
  bool isSameKind() const;
};

Likeness likenessOf(const Components& reference, const Components& other);

#endif
