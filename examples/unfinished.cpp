// SPDX-License-Identifier: MIT
#include "unfinished.h"

#include <unistd.h>

#include <csignal>
#include <cstring>

namespace examples {

namespace {

constexpr size_t kLongestName = 4096;

// What a handler may touch. The name changes only while the signals are held back.
char noted[kLongestName];
volatile std::sig_atomic_t isNoted = 0;

void removeNoted() {
  if (isNoted != 0) {
    unlink(noted);
  }
}

#ifdef _WIN32

constexpr int kSignals[] = {SIGINT, SIGTERM};

// Runs in a thread of its own. A file that is open cannot be deleted.
void onSignal(int number) {
  for (int descriptor = 3; descriptor < 64; ++descriptor) {
    close(descriptor);
  }
  removeNoted();
  _exit(128 + number);
}

void handle(int number) {
  std::signal(number, onSignal);
}

#else

constexpr int kSignals[] = {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGTERM, SIGXCPU, SIGXFSZ};

// The signal comes again when this returns, and ends the program as if it had no handler.
void onSignal(int number) {
  removeNoted();
  raise(number);
}

// What the caller ignores, as nohup does, stays ignored.
void handle(int number) {
  struct sigaction action = {};
  if (sigaction(number, nullptr, &action) == 0 && action.sa_handler == SIG_DFL) {
    action.sa_handler = onSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(number, &action, nullptr);
  }
}

void maskSignals(int how) {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int number : kSignals) {
    sigaddset(&signals, number);
  }
  sigprocmask(how, &signals, nullptr);
}

#endif

}  // namespace

void noteUnfinished(const std::string& path) {
  isNoted = 0;
  if (path.empty() || path.size() >= kLongestName) {
    return;
  }
  std::memcpy(noted, path.c_str(), path.size() + 1);
  isNoted = 1;
  for (const int number : kSignals) {
    handle(number);
  }
}

#ifdef _WIN32
HeldSignals::HeldSignals() {}
HeldSignals::~HeldSignals() {}
#else
HeldSignals::HeldSignals() {
  maskSignals(SIG_BLOCK);
}
HeldSignals::~HeldSignals() {
  maskSignals(SIG_UNBLOCK);
}
#endif

}  // namespace examples
