// SPDX-License-Identifier: MIT
#include "bench/result.h"

#include "catalogue/variants.h"

const char* const peerNames[4] = {"libyuv", "swscale", "SDL", "pixman"};

namespace {

bool isFaster(const Entry& entry, const Entry* than) {
  return !than || entry.figure.median < than->figure.median;
}

bool isPeer(const Entry& entry) {
  for (const char* name : peerNames)
    if (entry.maker == name) return true;
  return false;
}

}  // namespace

const Entry* Result::variant(int variant) const {
  return madeBy(variantTags[variant]);
}

const Entry* Result::madeBy(const std::string& maker) const {
  for (const Entry& entry : entries)
    if (entry.maker == maker) return &entry;
  return nullptr;
}

const Entry& Result::copy() const {
  const Entry* fastest = nullptr;
  for (const Entry& entry : entries)
    if (entry.maker == "copy" && isFaster(entry, fastest)) fastest = &entry;
  return *fastest;
}

const Entry* Result::peer(PeerClass peerClass, const std::string& maker) const {
  const Entry* fastest = nullptr;
  for (const Entry& entry : entries)
    if (isPeer(entry) && (maker.empty() || entry.maker == maker) &&
        isComparable(peerClass, entry.peerClass) && isFaster(entry, fastest))
      fastest = &entry;
  return fastest;
}

const Entry* Result::peerOf(const Entry& entry) const {
  return isPeer(entry) || entry.maker == "copy" ? nullptr : peer(entry.peerClass);
}

const Entry* Result::otherBuildOf(const Entry& entry) const {
  return madeBy(otherBuildMaker(entry.maker));
}

double ratio(const Entry& ours, const Entry& peer) {
  return peer.figure.median / ours.figure.median;
}
