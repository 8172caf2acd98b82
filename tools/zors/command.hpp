// The commands, and what their options have in common.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>

namespace tool {

/// What the chosen command does; set by its options' parser.
using Run = std::function<void()>;

void addInfo(CLI::App& app, Run& run);
void addFilter(CLI::App& app, Run& run);
void addResample(CLI::App& app, Run& run);
void addConvert(CLI::App& app, Run& run);
void addSpectrogram(CLI::App& app, Run& run);
void addSpectrum(CLI::App& app, Run& run);
void addDtmf(CLI::App& app, Run& run);
void addSignals(CLI::App& app, Run& run);  // tone, noise, sweep
void addDesign(CLI::App& app, Run& run);
void addBench(CLI::App& app, Run& run);
void addCheck(CLI::App& app, Run& run);

/// A command whose options fill an Options that lives as long as the parser; work gets it.
template <class Options>
CLI::App* addCommand(CLI::App& app, Run& run, const std::string& name, const std::string& does,
                     std::shared_ptr<Options>& options, void (*work)(const Options&)) {
  options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand(name, does);
  command->callback([&run, options, work] { run = [options, work] { work(*options); }; });
  return command;
}
/// Numbers inside [low, high]; NaN is outside.
CLI::Validator between(double low, double high);
/// Common options.
void addJobs(CLI::App* command, int& jobs);
void addPartial(CLI::App* command, bool& partial);

}  // namespace tool
