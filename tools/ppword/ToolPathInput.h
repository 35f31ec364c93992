#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/modeler/Document.h"
#include "post/job/JobReader.h"
#include "post/job/JobSetup.h"
#include "post/listing/ListingReader.h"
#include "post/program/NcProgram.h"
#include "post/toolpath/ToolPath.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/PostTable.h"

class LoadedTables;
struct ReaderWords;

/// The tool path of a run, a job, a listing or an NC program, with the document and the table that
/// its text is written with.
class ToolPathInput {
 public:
  /// Opens the tool path, and reads the header of a job. Raises an InputError, or a UsageError for
  /// options that are for another kind of tool path. The options must outlive the object, and so
  /// must the tables of a run of many jobs; null for another run.
  explicit ToolPathInput(const ToolPathOptions& options, LoadedTables* tables = nullptr);

  /// The document file: that of the user, that of the job's header, or empty for none.
  [[nodiscard]] std::string documentFile() const;

  /// The file of the table that the job's header names; empty for none. Raises a Refusal.
  [[nodiscard]] std::string namedTable() const;

  /// Opens the document, loads the table and sets up both for the tool path; runs an NC program.
  /// Raises a Refusal, an InputError or a DocumentError. Before it there is no document and there
  /// are no events.
  void open();

  /// Runs an NC program, whose listing is then that of the program. A UsageError for another tool
  /// path.
  [[nodiscard]] host::ProgramListing list();

  [[nodiscard]] const KEPVar<host::Document>& document() const noexcept { return document_; }
  /// What its text is read back with.
  [[nodiscard]] std::shared_ptr<const ReaderWords> readerWords() const;
  [[nodiscard]] host::ToolPathReader& events();
  /// How much of the tool path was read, from 0 to 1; nothing when that is unknown.
  [[nodiscard]] std::optional<double> share() const { return reading_->share(); }
  [[nodiscard]] const PostTable& table() const noexcept { return table_; }
  /// Null for other tool paths than jobs.
  [[nodiscard]] const host::JobHeader* header() const { return job_ ? &job_->header() : nullptr; }
  /// Null for a job.
  [[nodiscard]] const host::ListingReader* listing() const {
    return listing_ ? &*listing_ : nullptr;
  }
  /// The words of an NC program that move in machine coordinates which are unknown, since no
  /// machine is named.
  [[nodiscard]] const std::vector<host::MachineWord>& machineWords() const { return machineWords_; }
  [[nodiscard]] bool isProgram() const noexcept { return kind_ == host::ToolPathKind::Program; }
  /// The words of the table that texts follow.
  [[nodiscard]] std::vector<std::string> textWords() const;
  /// What messages and reports call the tool path.
  [[nodiscard]] std::string name() const;

 private:
  void openDocument();
  void setUp(host::TableWords words);
  void refuseOptions() const;
  [[nodiscard]] std::filesystem::path folder() const;

  const ToolPathOptions& options_;
  LoadedTables* tables_;
  host::ToolPathKind kind_ = host::ToolPathKind::Job;
  std::vector<host::MachineWord> machineWords_;
  std::unique_ptr<host::LineReader> lines_;
  /// Whoever has the lines.
  const host::LineReader* reading_;
  KEPVar<host::Document> document_;
  PostTable table_;
  std::optional<host::ListingReader> listing_;
  std::optional<host::JobReader> job_;
  std::optional<host::JobSetup> setup_;
};
