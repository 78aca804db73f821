// SPDX-License-Identifier: MIT
// Other libraries: every call that does the same kind of conversion and may be the fastest.
#ifndef BENCH_PEERS_H_
#define BENCH_PEERS_H_

#include <string>
#include <vector>

#include "bench/candidate.h"

// Each appends its calls for one conversion, and none if it has no such conversion. What they
// append may be used as long as `images` lives.
void addLibyuv(const Work& work, const Images& images, std::vector<Candidate>& candidates);
void addSwscale(const Work& work, const Images& images, std::vector<Candidate>& candidates);
void addSdl(const Work& work, const Images& images, std::vector<Candidate>& candidates);
void addPixman(const Work& work, const Images& images, std::vector<Candidate>& candidates);

// Name, version, and how it is held to a class.
std::string describeLibyuv();
std::string describeSwscale();
std::string describeSdl();
std::string describePixman();

#endif
