// How a command ends.
#pragma once

#include <stdexcept>
#include <string>

namespace tool {

/// Exit statuses, documented in zors.1.
enum class Exit {
  well = 0,
  differs = 1,       // check, bench --compare: a result or a speed differs
  usage = 2,         // an option or argument is wrong
  input = 3,         // an input cannot be read, or not be used
  output = 4,        // an output cannot be written
  unsupported = 5,   // the processor lacks AVX2 or FMA
  resources = 6,     // memory is exhausted
  interrupted = 130  // SIGINT, SIGTERM, SIGHUP
};

/// One line for the user and a status; nothing half-written is left.
class Failure : public std::runtime_error {
 public:
  Failure(Exit exit, const std::string& what) : std::runtime_error(what), exit_(exit) {}
  Exit exit() const noexcept { return exit_; }

 private:
  Exit exit_;
};

}  // namespace tool
