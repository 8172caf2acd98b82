#include "interrupt.hpp"

#include <csignal>

#include "failure.hpp"

namespace tool {

static volatile std::sig_atomic_t interrupted = 0;

void catchSignals() {
  struct sigaction remember {};
  remember.sa_handler = [](int) { interrupted = 1; };
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &remember, nullptr);
  struct sigaction ignore {};
  ignore.sa_handler = SIG_IGN;
  for (const int signal : {SIGPIPE, SIGXFSZ}) sigaction(signal, &ignore, nullptr);
}

void stopIfInterrupted() {
  if (interrupted) throw Failure(Exit::interrupted, "interrupted; no output was left");
}

}  // namespace tool
