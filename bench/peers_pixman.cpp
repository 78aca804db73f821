// SPDX-License-Identifier: MIT
// pixman: 16-bit to 24-bit pixels and back. It cannot be held to a class within a process, and uses
// no more than SSSE3.
#include <pixman.h>

#include <memory>

#include "bench/peers.h"

namespace {

using Image = std::shared_ptr<pixman_image_t>;

Image imageOf(const Plane& plane, pixman_format_code_t format, int width, int height) {
  return Image(pixman_image_create_bits(format, width, height,
                                        reinterpret_cast<std::uint32_t*>(plane.data), plane.pitch),
               [](pixman_image_t* image) {
                 if (image) pixman_image_unref(image);
               });
}

}  // namespace

void addPixman(const Work& work, const Images& images, std::vector<Candidate>& candidates) {
  if (work.kind != Kind::Depth) return;
  const int width = images.width(), height = images.height();
  const auto words = work.redLow ? PIXMAN_b5g6r5 : PIXMAN_r5g6b5;
  const auto bytes = work.redLow ? PIXMAN_b8g8r8 : PIXMAN_r8g8b8;
  const Image src = imageOf(images.src()[0], work.toBytes ? words : bytes, width, height);
  const Image dst = imageOf(images.dst()[0], work.toBytes ? bytes : words, width, height);
  // It rejects pitches that are no multiple of four bytes.
  if (!src || !dst) return;
  candidates.push_back({"pixman", "pixman_image_composite32(SRC)", PeerClass::Any, {}, [=] {
                          pixman_image_composite32(PIXMAN_OP_SRC, src.get(), nullptr, dst.get(), 0,
                                                   0, 0, 0, 0, 0, width, height);
                        }});
}

std::string describePixman() {
  return std::string("pixman ") + pixman_version_string() + ", not held to a class";
}
