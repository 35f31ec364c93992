#include "post/program/NcProgram.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>
#include <utility>

#include "host/system/EndingSignals.h"
#include "host/system/SystemReason.h"
#include "post/output/OutputFile.h"
#include "post/program/ChildProcess.h"
#include "post/program/InterpreterError.h"

namespace host {
namespace {

constexpr std::size_t kMostListing = std::size_t{1} << 30U;

void writeText(const std::filesystem::path& path, std::string_view text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) throw OutputError(path.string(), systemReason(errno));
}

/// A run of rs274 over a program.
class Run {
 public:
  Run(LineReader& program, const ProgramOptions& options)
      : options_(options),
        name_(program.name()),
        interpreter_(findProgram("rs274")),
        deadline_(std::chrono::steady_clock::now() + options.timeout) {
    if (interpreter_.empty()) {
      refuse(
          "an NC program is run through rs274, which is not installed; install the Debian "
          "package linuxcnc-uspace");
    }
    const auto& folder = scratch_.path();
    std::filesystem::create_directory(folder / "files");
    copy_.emplace(program, folder / "program.ngc", options.folder, folder / "files");
    if (options.tools) tools_ = *options.tools;
    if (options.takesUnknownTools) {
      for (const int tool : copy_->tools()) addTool(tool);
    }
    if (!options.machine.empty()) {
      writeText(folder / "machine.var", machineFileText(options.machine, options.machineUnit));
    }
  }

  ProgramListing list() {
    while (!isListed()) {
    }
    const std::string listing = (scratch_.path() / "listing").string();
    if (!std::filesystem::exists(listing)) refuse("rs274 wrote no listing");
    return {std::make_unique<LineReader>(listing), copy_->places(), copy_->machineWords()};
  }

 private:
  [[noreturn]] void refuse(const std::string& message) const {
    throw InputError(name_, 0, 0, message);
  }

  // False when a tool was added, with which the program is run again.
  bool isListed() {
    const ChildOutcome outcome = runChild(command());
    requireEnd(outcome);
    if (outcome.code == 0) return true;
    const InterpreterError error = readInterpreterError(outcome.errors);
    if (error.tool && options_.takesUnknownTools && addTool(*error.tool)) return false;
    refuseProgram(error, outcome.code);
  }

  ChildCommand command() const {
    const std::filesystem::path& folder = scratch_.path();
    ChildCommand command;
    command.program = interpreter_;
    // Without a table rs274 has three tools of its own.
    writeText(folder / "tools.tbl", toolTableText(tools_));
    command.arguments = {"-g", "-t", (folder / "tools.tbl").string()};
    if (!options_.machine.empty()) {
      command.arguments.insert(command.arguments.end(), {"-v", (folder / "machine.var").string()});
    }
    command.arguments.push_back((folder / "program.ngc").string());
    command.arguments.push_back((folder / "listing").string());
    command.folder = (folder / "files").string();
    const char* const path = std::getenv("PATH");
    command.environment = {"HOME=" + folder.string(), "LC_ALL=C",
                           "PATH=" + std::string(path == nullptr ? "" : path)};
    command.mostFileBytes = kMostListing;
    command.deadline = deadline_;
    command.signals = hold_.before();
    command.endingSignals = hold_.held();
    return command;
  }

  void requireEnd(const ChildOutcome& outcome) const {
    using enum ChildOutcome::Ending;
    switch (outcome.ending) {
      case Exited:
        return;
      case Interrupted:
        throw ProgramInterrupted{};
      case TimedOut:
        refuse("rs274 did not end within " + std::to_string(options_.timeout.count()) +
               " seconds; it may be an endless loop, or --timeout SECONDS may be too short");
      case NotStarted:
        refuse("rs274 cannot be started: " + systemReason(outcome.code));
      case Killed:
        if (outcome.code == SIGXFSZ) refuse("the listing is longer than 1 GiB (1073741824 bytes)");
        refuse("rs274 was ended by the signal " + std::to_string(outcome.code) + " (" +
               ::sigdescr_np(outcome.code) + ')');
    }
  }

  // False for one that is there already, or that finds no place.
  bool addTool(int number) {
    if (tools_.tools.size() >= kMostTools) return false;
    TableTool tool;
    std::set<int> taken;
    for (const auto& [known, row] : tools_.tools) taken.insert(row.pocket);
    tool.pocket = 1;
    while (taken.contains(tool.pocket)) ++tool.pocket;
    return tools_.tools.emplace(number, tool).second;
  }

  [[noreturn]] void refuseProgram(const InterpreterError& error, int status) const {
    const LinePlace place = placeOfError(error, *copy_);
    if (error.tool) {
      const std::string table = options_.tools ? options_.tools->file : "the tool table";
      place.refuse(0, "tool " + std::to_string(*error.tool) + " is not in " + table +
                          (options_.tools ? "; add it" : "; name a table with --tools FILE") +
                          ", or take it with length and diameter 0 with --unknown-tools");
    }
    if (!error.called.empty()) {
      place.refuse(0, "o<" + error.called + "> is neither in the program nor in a file " +
                          error.called + ".ngc of its folder, or its end is missing");
    }
    if (error.message.empty()) {
      refuse("rs274 ended with the status " + std::to_string(status) + " and without a message");
    }
    place.refuse(0, error.message);
  }

  const ProgramOptions& options_;
  std::string name_;
  std::string interpreter_;
  std::chrono::steady_clock::time_point deadline_;
  // Outlives the folder: a signal is delivered when the folder is removed.
  SignalHold hold_;
  ScratchFolder scratch_;
  std::optional<ProgramCopy> copy_;
  ToolTable tools_{{}, {}, LengthUnit::Inch};
};

}  // namespace

ProgramListing listProgram(LineReader& program, const ProgramOptions& options) {
  return Run(program, options).list();
}

}  // namespace host
