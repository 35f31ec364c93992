#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/explain/ValueSetting.h"
#include "post/listing/LengthUnit.h"
#include "post/listing/ListingReader.h"
#include "post/listing/RotaryChain.h"
#include "post/toolpath/ToolPath.h"

/// Exit statuses; for several files the highest is returned. Unconfirmed: what was asked for is
/// written, but a power failure may undo that, or its success could not be printed.
enum class ExitStatus {
  Done = 0,
  Refused = 1,
  Usage = 2,
  NotWritten = 3,
  Internal = 4,
  Unconfirmed = 5
};

/// Records: a line of JSON for each of many jobs.
enum class OutputFormat { ForPeople, ForPrograms, Records };

/// Arguments that a command cannot work with. A command raises it before it has done anything.
struct UsageError {
  std::string message;
};

/// Runs the command that the arguments ask for. A help text, the version or a mistake in the
/// arguments is written here.
[[nodiscard]] ExitStatus runCommandLine(int argc, const char* const* argv);

/// True when --format json or jsonl is among the arguments, whatever else is wrong with them.
[[nodiscard]] bool asksForJson(int argc, const char* const* argv);

/// The values of the options --strict and --allow, one for each time that they are given: keys
/// between commas, or kAllKinds for --strict alone.
struct StrictnessOptions {
  std::vector<std::string> refused;
  std::vector<std::string> allowed;
};

// What the option parser makes of an option without a value.
inline constexpr std::string_view kAllKinds = "true";

struct CheckOptions {
  /// Keys of kinds when they are to be explained.
  std::vector<std::string> tables;
  bool lint = false;
  /// What the reader of the texts takes: a shipped profile or a file; empty for none.
  std::string profile;
  bool explain = false;
  StrictnessOptions strictness;
  OutputFormat format = OutputFormat::ForPeople;
};

/// Reports for each table whether it passes, with its errors and warnings; or explains kinds of
/// findings, without a key all in a line each.
[[nodiscard]] ExitStatus checkTables(const CheckOptions& options);

/// A tool path and what its text is written with: what `post` and `explain` take alike.
struct ToolPathOptions {
  /// "-": the standard input.
  std::string job;
  /// Empty: the one that the job names, or none.
  std::string table;
  /// Empty: the one that the job names, or a new one.
  std::string document;
  /// For listings and NC programs only: the options that were named, without "--", as they were
  /// written, and what they mean.
  std::map<std::string, std::string> reading;
  std::optional<host::LengthUnit> units;
  std::optional<host::RotaryChain> rotary;
  double chord = host::kChordDeviation;
  bool helicesAsChords = false;
  bool convertsOrigins = false;
  host::ListedTexts comments = host::ListedTexts::Program;
  /// The files of tools and machine parameters; empty for none. Their unit.
  std::string tools;
  std::string machine;
  host::LengthUnit machineUnits = host::LengthUnit::Millimetre;
  bool unknownTools = false;
  std::chrono::seconds timeout{60};
};

struct ExplainOptions : ToolPathOptions {
  /// What is named by position: TABLE and INSTRUCTION, of which a single one is the instruction,
  /// unless the lines come from elsewhere.
  std::string firstName;
  std::string secondName;
  std::vector<std::string> syntax;
  /// Nothing: the first.
  std::optional<int> sequence;
  std::vector<host::ValueSetting> values;
  /// Of a tool path whose elements are explained; `job` is not used.
  std::optional<host::ElementPlace> place;
  /// The map of a text, of which the first name is a line; empty without one.
  std::string map;
  OutputFormat format = OutputFormat::ForPeople;
};

/// Shows what every pass does with the lines of an NC instruction, or with given lines.
[[nodiscard]] ExitStatus explainSyntax(const ExplainOptions& options);

struct ListOptions {
  /// With -t; empty when it is named by position.
  std::string table;
  /// TABLE and SECTION by their positions. A single name is the section of the default catalogue
  /// or of the table of -t when these are asked for.
  std::string firstName;
  std::string secondName;
  bool ofDefaultCatalogue = false;
  /// The NC instruction whose parameters are asked for; nothing for all.
  std::optional<std::string> instruction;
  OutputFormat format = OutputFormat::ForPeople;
};

/// Shows what a table or the default catalogue holds.
[[nodiscard]] ExitStatus listTable(const ListOptions& options);

struct DocumentOptions {
  std::string action;
  std::string file;
  std::vector<std::string> arguments;
  /// A file with the names of PP commands to add, "-" for the standard input; empty without one.
  std::string names;
  OutputFormat format = OutputFormat::ForPeople;
};

/// Creates, changes or shows a document file, each in one transaction.
[[nodiscard]] ExitStatus runDocument(const DocumentOptions& options);

/// What the help says of the actions, and of one of them; empty for an unknown one.
[[nodiscard]] std::string documentHelp();
[[nodiscard]] std::string documentHelp(std::string_view action);

struct PostOptions : ToolPathOptions {
  /// As they are named; `job` is the one of the run.
  std::vector<std::string> jobs;
  /// Where the texts of many jobs go; empty for a run of one.
  std::string outputFolder;
  int processes = 1;
  /// True to report nothing of what succeeded.
  bool quiet = false;
  /// Empty: the standard output.
  std::string output;
  /// Where the lines come from; empty for no map.
  std::string map;
  /// What the reader of the text takes: a shipped profile or a file; empty for none.
  std::string profile;
  /// True to write the listing of an NC program instead of the text.
  bool listing = false;
  /// True to read the text back and compare it with its tool path.
  bool verifies = true;
  /// True to replace a write-protected output or map.
  bool force = false;
  StrictnessOptions strictness;
  bool verbose = false;
  OutputFormat format = OutputFormat::ForPeople;
};

/// Writes the APT text of a tool path, and a report to the standard error.
[[nodiscard]] ExitStatus postJob(const PostOptions& options);

/// Posts every job into its file of the output folder, each with a document of its own, in one or
/// several processes. Reports each job as it ends, then the totals. Returns the highest status.
/// What is wrong with the options is raised before anything is written.
[[nodiscard]] ExitStatus postManyJobs(const PostOptions& options);

struct VerifyOptions : ToolPathOptions {
  /// "-": the standard input. `job` is the input that it is compared with; empty for none.
  std::string text;
  /// Words that mean the same as words of the reader; empty for none.
  std::string profile;
  StrictnessOptions strictness;
  OutputFormat format = OutputFormat::ForPeople;
};

/// Reads an APT text back; reports what it has and what a reader would stumble over, and where it
/// is not what an input says.
[[nodiscard]] ExitStatus verifyText(const VerifyOptions& options);

struct ViewOptions : ToolPathOptions {
  /// The page; "-" is the standard output. Empty: the user named none.
  std::string output;
  /// True to replace a write-protected page.
  bool force = false;
  OutputFormat format = OutputFormat::ForPeople;
};

/// Writes a page that shows a tool path beside its text, and a report to the standard error.
[[nodiscard]] ExitStatus viewToolPath(const ViewOptions& options);

struct DiffOptions {
  std::string before;
  std::string after;
  OutputFormat format = OutputFormat::ForPeople;
};

/// Shows what two tables mean differently: Done when nothing, Refused when something. A table that
/// is refused cannot be compared: its errors are reported, and Usage is returned, as diff does.
[[nodiscard]] ExitStatus diffTables(const DiffOptions& options);

struct LspOptions {
  /// Editors name the streams that are used anyway.
  bool standardStreams = true;
};

/// Answers the questions of an editor on the standard streams until the editor ends it.
[[nodiscard]] ExitStatus serveEditors(const LspOptions& options);

struct WordsOptions {
  /// With -t, and by position.
  std::string table;
  std::string firstName;
  OutputFormat format = OutputFormat::ForPeople;
};

/// Shows the PP words of a table with their kinds and codes.
[[nodiscard]] ExitStatus showWords(const WordsOptions& options);

/// A table, with -t or by position, and names after it.
struct TableAndNames {
  std::string table;
  /// The first name is the table unless that is given with -t.
  std::string firstName;
  std::vector<std::string> names;
};

struct CodeOptions : TableAndNames {
  OutputFormat format = OutputFormat::ForPeople;
};

/// Shows the codes of words. Each word that the table does not have is an error.
[[nodiscard]] ExitStatus showCodes(const CodeOptions& options);

struct WordOptions : TableAndNames {
  OutputFormat format = OutputFormat::ForPeople;
};

/// Shows the words of codes. Each code that the table does not have is an error.
[[nodiscard]] ExitStatus showWordsOfCodes(const WordOptions& options);

struct TablesOptions {
  OutputFormat format = OutputFormat::ForPeople;
};

/// Shows what the PPTables folders hold and which files are hidden by files of the same name.
[[nodiscard]] ExitStatus showTables(const TablesOptions& options);
