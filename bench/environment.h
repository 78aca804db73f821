// SPDX-License-Identifier: MIT
#ifndef BENCH_ENVIRONMENT_H_
#define BENCH_ENVIRONMENT_H_

#include <string>
#include <vector>

// Processor, compiler and its flags, this library and, if asked for, the others: one line each.
std::vector<std::string> describeEnvironment(bool withPeers);

#endif
