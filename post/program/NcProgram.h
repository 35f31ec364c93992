#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "post/listing/BlockPlaces.h"
#include "post/listing/ToolTable.h"
#include "post/program/ProgramCopy.h"
#include "post/toolpath/LineReader.h"

namespace host {

/// What an NC program is run with.
struct ProgramOptions {
  /// The folder of the files that it calls.
  std::string folder;
  /// The tool table; null for none.
  std::shared_ptr<const ToolTable> tools{};
  /// The machine's parameters; empty for none.
  std::string machine;
  /// The unit of the lengths in them.
  LengthUnit machineUnit = LengthUnit::Millimetre;
  /// True to take a tool that is in no table, with length and diameter 0.
  bool takesUnknownTools = false;
  std::chrono::seconds timeout{60};
};

/// The listing of an NC program, with what was seen in the program.
struct ProgramListing {
  std::unique_ptr<LineReader> lines;
  std::shared_ptr<const BlockPlaces> places;
  std::vector<MachineWord> machineWords;
};

/// The run of a program was ended by a signal, which is pending: it is delivered when the run's
/// scratch folder is removed.
struct ProgramInterrupted {};

/// Runs an NC program through the installed rs274, in a scratch folder that is removed before the
/// function returns. Raises an InputError: for a program that is refused, with the place of the
/// block; when rs274 is missing, takes longer than the limit, or ends otherwise than with a
/// listing. An OutputError reports what cannot be written to the scratch folder.
[[nodiscard]] ProgramListing listProgram(LineReader& program, const ProgramOptions& options);

/// The text of a file of machine parameters, as LinuxCNC stores them, with the lengths of offsets
/// and of reference points in inches, which is the unit of rs274. An InputError for a file that
/// cannot be read, and where rs274 would skip a line without a message.
[[nodiscard]] std::string machineFileText(const std::string& path, LengthUnit unit);

}  // namespace host
