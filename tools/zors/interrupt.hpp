// Signals that end the work: it stops at the next block, and what is half-written goes.
#pragma once

namespace tool {

/// SIGINT, SIGTERM and SIGHUP are remembered; a closed pipe and a full disk are errors of the write, not signals.
void catchSignals();
/// Throws Failure where such a signal came.
void stopIfInterrupted();

}  // namespace tool
