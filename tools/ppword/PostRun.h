#pragma once

#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "tools/ppword/Commands.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/PostOutput.h"

class LoadReport;
class LoadedTables;
class PostMap;
class ToolPathInput;
struct PostReport;
namespace host {
class TableOrigins;
struct Summary;
}  // namespace host

/// What became of a tool path, and what is said of it.
// NOLINTNEXTLINE(bugprone-exception-escape): to move a report does not raise anything.
struct PostOutcome {
  ExitStatus status = ExitStatus::Done;
  long elements = 0;
  long lines = 0;
  /// For people: lines.
  std::string text;
  /// For programs.
  Json report;

  /// Notes that a file is written, but perhaps not for good.
  void addDoubt(const host::OutputFile& file);
};

/// The outcome of `run`, or that of a tool path, document or table which it refuses.
[[nodiscard]] PostOutcome outcomeOf(const std::string& job,
                                    const std::function<PostOutcome()>& run);

/// Puts the text of a run in its place, then its map, which is null if there is none; notes doubts
/// in the outcome. A text that is refused gets no place.
using Placing = std::function<void(std::unique_ptr<PostOutput> text, PostMap* map, PostOutcome&)>;

/// Posts the tool path of the options. Input that is refused is an outcome; a UsageError or an
/// OutputError is raised. `tables`: those of a run of many jobs; null for another run.
[[nodiscard]] PostOutcome postToolPath(const PostOptions& options, LoadedTables* tables,
                                       const Placing& place);

/// Opens the tool path with its document and its table; what became of the table goes to the
/// listeners. Raises what ToolPathInput::open raises, and the UsageError of requireOther.
void openToolPath(const PostOptions& options, ToolPathInput& input, LoadReport& load,
                  host::TableOrigins& origins);

/// What a run made, without a reading back and without a profile. The input, the summary and the
/// load must outlive it.
[[nodiscard]] PostReport reportOf(const PostOptions& options, const ToolPathInput& input,
                                  const LoadReport& load, const host::Summary& summary);

/// Raises a UsageError when the output or the map would replace a file that the run reads; the
/// second one asks for all files that the options name.
void requireOther(const PostOptions& options, const std::string& input);
void requireOthers(const PostOptions& options);
