// SPDX-License-Identifier: MIT
#include "bench/report.h"

// No field has a comma or a quote in it.
std::string csvOf(const Run& run) {
  std::string lines =
      "conversion,width,height,maker,call,peer_class,rounds,best_ns,median_ns,lower_quartile_ns,"
      "upper_quartile_ns,ns_per_pixel,cycles_per_pixel,share_of_copy,peer,peer_call,ratio,equal,"
      "psnr,other_build_median_ns,other_build_ratio\n";
  for (const Result& result : run.results)
    for (const Entry& entry : result.entries) {
      const Figure& f = entry.figure;
      lines += text("%s,%d,%d,%s,%s,%s,%d,%.1f,%.1f,%.1f,%.1f,%.5f,%.4f,%.4f,",
                    std::string(result.conversion->name).c_str(), result.size.width,
                    result.size.height, entry.maker.c_str(), entry.call.c_str(),
                    nameOf(entry.peerClass), result.rounds, f.best, f.median, f.lowerQuartile,
                    f.upperQuartile, result.nanosecondsPerPixel(entry),
                    result.cyclesPerPixel(entry), result.copy().figure.median / f.median);
      if (const Entry* peer = result.peerOf(entry))
        lines += text("%s,%s,%.4f,%d,", peer->maker.c_str(), peer->call.c_str(),
                      ratio(entry, *peer), areEqual(f, peer->figure));
      else
        lines += ",,,,";
      lines += entry.psnr > 0 ? text("%.1f,", entry.psnr) : ",";
      if (const Entry* other = result.otherBuildOf(entry))
        lines += text("%.1f,%.4f\n", other->figure.median, ratio(entry, *other));
      else
        lines += ",\n";
    }
  return lines;
}
