// SPDX-License-Identifier: MIT
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <memory>

#include "bench/environment.h"
#include "bench/likeness.h"
#include "bench/options.h"
#include "bench/peers.h"
#include "bench/report.h"
#include "bench/threads.h"

namespace {

constexpr Effort thorough = {0.7, 9, 151};
constexpr Effort quick = {0.3, 7, 51};

// On standard error: where the run is. A terminal shows one line.
void showProgress(std::size_t done, std::size_t all, const Size& size, const Conversion& c) {
  if (isatty(STDERR_FILENO))
    std::fprintf(stderr, "\r%zu/%zu %-9s %-40s", done, all, size.name().c_str(),
                 std::string(c.name).c_str());
  else if (done % 50 == 0)
    std::fprintf(stderr, "%zu of %zu\n", done, all);
}

// The calls of other libraries that do the same as ours, which have all been called once then.
std::vector<Candidate> likePeers(const Conversion& conversion, const Images& images,
                                 const Size& size, std::vector<double>& psnr, Run& run) {
  const Work work = workOf(conversion);
  if (work.kind == Kind::Twist) return {};
  std::vector<Candidate> peers, like;
  addLibyuv(work, images, peers);
  addSwscale(work, images, peers);
  addSdl(work, images, peers);
  addPixman(work, images, peers);

  const Candidate ours = ourCandidates(conversion, images, {run.variants.back()})[0];
  ours.select();
  images.clearDestination();
  ours.run();
  const Components reference = destinationOf(work, images);
  for (Candidate& peer : peers) {
    if (peer.select) peer.select();
    images.clearDestination();
    peer.run();
    const Likeness likeness = likenessOf(reference, destinationOf(work, images));
    if (likeness.isSameKind()) {
      psnr.push_back(likeness.psnr);
      like.push_back(std::move(peer));
    } else {
      run.leftOut.push_back({peer.maker, peer.call + " at " + nameOf(peer.peerClass),
                             std::string(conversion.name), size.name(), likeness.psnr,
                             likeness.worstColumn, likeness.gain});
    }
  }
  return like;
}

void append(std::vector<Candidate>& candidates, std::vector<Candidate> more) {
  candidates.insert(candidates.end(), more.begin(), more.end());
}

Result measure(const Conversion& conversion, const Size& size, const Options& options,
               LoadedLibrary* other, Run& run) {
  const Images images(conversion, Picture(size.width, size.height));
  std::vector<Candidate> candidates = ourCandidates(conversion, images, run.variants);
  if (other) append(candidates, otherBuildCandidates(*other, conversion, images, run.variants));
  append(candidates, copyCandidates(images));
  std::vector<double> psnr(candidates.size());
  if (options.peers) append(candidates, likePeers(conversion, images, size, psnr, run));

  const Timing timing = timeByTurns(candidates, options.quick ? quick : thorough);
  Result result = {&conversion, size, timing.nanosecondsPerCycle, timing.rounds, {}};
  for (std::size_t i = 0; i < candidates.size(); ++i)
    result.entries.push_back({candidates[i].maker, candidates[i].call, candidates[i].peerClass,
                              psnr[i], timing.figures[i]});
  return result;
}

void write(const std::filesystem::path& path, const std::string& content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path.string());
}

void benchmark(const Options& options, const std::filesystem::path& directory) {
  std::unique_ptr<LoadedLibrary> other;
  if (!options.against.empty()) other = std::make_unique<LoadedLibrary>(options.against);
  Run run = {
      describeEnvironment(options.peers), options.against, options.variants, options.sizes, {}, {}};
  const std::size_t all = options.sizes.size() * options.conversions.size();
  for (const Size& size : options.sizes)
    for (const Conversion* conversion : options.conversions) {
      showProgress(run.results.size() + 1, all, size, *conversion);
      run.results.push_back(measure(*conversion, size, options, other.get(), run));
    }
  if (isatty(STDERR_FILENO)) std::fprintf(stderr, "\n");

  const std::string table = tableOf(run);
  std::fputs(table.c_str(), stdout);
  write(directory / "table.txt", table);
  write(directory / "results.csv", csvOf(run));
  write(directory / "results.json", jsonOf(run));
  for (const Plot& plot : plotsOf(run)) write(directory / (plot.name + ".svg"), plot.svg);
}

void benchmarkThreads(const Options& options, const std::filesystem::path& directory) {
  std::string table;
  for (const std::string& line : describeEnvironment(false)) table += line + "\n";
  const ThreadReport report = timeThreads(options);
  table += "\n" + report.table;
  std::fputs(table.c_str(), stdout);
  write(directory / "threads.txt", table);
  write(directory / "threads.csv", report.csv);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const Options options = parseOptions(argc, argv);
    if (options.help) {
      std::fputs(usage().c_str(), stdout);
      return 0;
    }
    const std::filesystem::path directory = options.output;
    std::filesystem::create_directories(directory);
    if (options.threads)
      benchmarkThreads(options, directory);
    else
      benchmark(options, directory);
    std::printf("\nResults are in %s\n", std::filesystem::absolute(directory).c_str());
    return 0;
  } catch (const BadOption& bad) {
    std::fprintf(stderr, "bench: %s; --help lists the options\n", bad.what());
    return 2;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "bench: %s\n", failure.what());
    return 1;
  }
}
