// zors: the library at the command line.
#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>

#include "command.hpp"
#include "failure.hpp"
#include "interrupt.hpp"
#include "version.hpp"
#include "zors.hpp"

namespace tool {

CLI::Validator between(double low, double high) {
  return CLI::Validator(
      [low, high](std::string& text) {
        double value = 0;
        if (!CLI::detail::lexical_cast(text, value) || !(value >= low && value <= high)) {
          return fmt::format("{} is no number from {:g} to {:g}", text, low, high);
        }
        return std::string();
      },
      "");
}
void addJobs(CLI::App* command, int& jobs) {
  command->add_option("-j,--jobs", jobs, "Threads, at most one a channel or file (default 1)")->check(between(1, 256));
}
void addPartial(CLI::App* command, bool& partial) {
  command->add_flag("--partial", partial, "Take a truncated file as far as it goes");
}

namespace {

constexpr const char* footer = R"(Example:
  zors resample speech.wav speech16.wav --rate 16000

IN or OUT may be -, the standard input or output; sound leaves there as an AU stream.
Exit status: 0 well, 1 a check or comparison differs, 2 usage, 3 input, 4 output, 5 processor, 6 memory, 130 interrupted.
zors COMMAND --help tells a command's options; man zors has them all.)";

int end(Exit exit, const std::string& why) {
  fmt::print(stderr, "zors: {}\n", why);
  return int(exit);
}
// A parser's words in one line.
std::string oneLine(std::string text) {
  while (!text.empty() && text.back() == '\n') text.pop_back();
  for (char& c : text) c = c == '\n' ? ' ' : c;
  return text;
}

int runTool(int argc, char** argv) {
  if (const auto missing = missingFeatures(); !missing.empty()) {
    return end(Exit::unsupported,
               "this processor, or its operating system, lacks " + missing + ", which the library needs");
  }
  catchSignals();
  CLI::App app("Signal processing at the command line, by the library zorsl9.", "zors");
  Run run;
  app.footer(footer);
  app.require_subcommand(1);
  app.get_formatter()->column_width(34);
  app.set_version_flag("--version", versionText, "Print versions and processor features");
  addInfo(app, run);
  addFilter(app, run);
  addResample(app, run);
  addConvert(app, run);
  addSpectrogram(app, run);
  addSpectrum(app, run);
  addDtmf(app, run);
  addSignals(app, run);
  addDesign(app, run);
  addBench(app, run);
  addCheck(app, run);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);  // --help, --version
    return end(Exit::usage, oneLine(error.what()) + " (see --help)");
  }
  run();
  // What stdio still holds may meet a full disk or a closed pipe.
  if (std::fflush(stdout) != 0 || std::ferror(stdout)) return end(Exit::output, "standard output: cannot be written");
  return int(Exit::well);
}

}  // namespace
}  // namespace tool

int main(int argc, char** argv) try { return tool::runTool(argc, argv); } catch (const tool::Failure& failure) {
  std::fflush(stdout);
  return tool::end(failure.exit(), failure.what());
} catch (const std::bad_alloc&) {
  return tool::end(tool::Exit::resources, "memory is exhausted");
} catch (const zors::Error& error) {
  return tool::end(error.status() == zorStatusNoMemory ? tool::Exit::resources : tool::Exit::usage, error.what());
} catch (const std::exception& error) {
  return tool::end(tool::Exit::output, error.what());
}
