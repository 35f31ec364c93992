#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <nlohmann/json.hpp>
#include <optional>

#include "host/system/SystemReason.h"
#include "inspect/diagnostics/InputDiagnostic.h"
#include "post/consumer/ConsumerProfile.h"
#include "post/consumer/ConsumerText.h"
#include "post/toolpath/LineReader.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Kinds.h"
#include "tools/ppword/Progress.h"
#include "tools/ppword/ReadBack.h"
#include "tools/ppword/ReaderWords.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/ToolPathInput.h"
#include "tools/ppword/VerifyReport.h"
#include "verify/Comparison.h"
#include "verify/StatementReader.h"

namespace {

/// A file that is read byte by byte in order; "-" is the standard input.
class TextFile {
 public:
  /// Raises an InputError when it cannot be opened.
  explicit TextFile(const std::string& path)
      : name_(path == "-" ? "standard input" : path),
        descriptor_(path == "-" ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (descriptor_ < 0) raise("cannot be opened: ");
  }
  TextFile(const TextFile&) = delete;
  TextFile& operator=(const TextFile&) = delete;
  ~TextFile() {
    if (descriptor_ != STDIN_FILENO) ::close(descriptor_);
  }

  /// Returns how many bytes were read; 0 at the end. Raises an InputError when they cannot be.
  [[nodiscard]] std::size_t read(char* to, std::size_t most) const {
    for (;;) {
      const ssize_t count = ::read(descriptor_, to, most);
      if (count >= 0) return static_cast<std::size_t>(count);
      if (errno != EINTR) raise("cannot be read: ");
    }
  }
  [[nodiscard]] std::optional<double> share() const { return host::shareRead(descriptor_, 0); }
  /// What messages call the file.
  [[nodiscard]] const std::string& name() const noexcept { return name_; }

 private:
  [[noreturn]] void raise(std::string_view what) const {
    throw host::InputError(name_, 0, 0, std::string(what) + host::systemReason(errno));
  }

  std::string name_;
  int descriptor_;
};

/// What a text is read with: the words that a reader knows, with those of the profile and of the
/// table, if any.
struct Reading {
  Reading(const VerifyOptions& options, const std::string& table) {
    if (!options.profile.empty()) profile = host::readProfile(options.profile);
    if (profile) addMeanings(*profile, words);
    if (table.empty()) return;
    addTextWords(table, words);
    textWords = textWordsOf(table);
  }

  std::optional<host::ConsumerProfile> profile;
  verify::Words words;
  std::vector<std::string> textWords;
};

verify::Cards cardsOf(const Reading& reading) {
  if (!reading.profile) return verify::Cards::Recognised;
  return reading.profile->consumer.sequenceStep > 0 ? verify::Cards::Always : verify::Cards::Never;
}

/// A text that is read, and counted into a report.
class ReadText {
 public:
  ReadText(const std::string& path, const Reading& reading)
      : file_(path),
        report_(file_.name()),
        reader_([this](char* to, std::size_t most) { return read(to, most); }, reading.words,
                [this](const verify::Finding& finding) { add(finding); }, cardsOf(reading)),
        events_(reading.words) {
    if (!reading.profile) return;
    consumer_.emplace(reading.profile->consumer, reading.textWords,
                      [this](const host::ConsumerText::Unfit& unfit) {
                        report_.add({verify::Rule::UnfitLine,
                                     {unfit.line, unfit.column},
                                     unfit.width,
                                     unfit.what,
                                     unfit.text});
                      });
  }

  [[nodiscard]] bool next(verify::Statement& statement) {
    if (!reader_.next(statement)) return false;
    report_.count(statement, events_.next(statement));
    return true;
  }

  /// Reads the rest of the text.
  VerifyReport& finish(bool showsProgress) {
    constexpr long kBetweenLooks = 1000;
    Progress progress(
        "statements", kBetweenLooks, [this] { return file_.share(); }, showsProgress);
    verify::Statement statement;
    while (next(statement)) progress.add(1);
    if (consumer_) consumer_->finish();
    report_.finish(reader_.lines(), reader_.hasSequenceNumbers());
    return report_;
  }

 private:
  std::size_t read(char* to, std::size_t most) {
    const std::size_t count = file_.read(to, most);
    if (consumer_) consumer_->add({to, count});
    return count;
  }
  // What a profile says is not found twice.
  void add(const verify::Finding& finding) {
    using enum verify::Rule;
    const bool isOfConsumer = finding.rule == WideLine || finding.rule == LongWord ||
                              finding.rule == CharacterInText || finding.rule == TabInLine;
    if (!consumer_ || !isOfConsumer) report_.add(finding);
  }

  TextFile file_;
  VerifyReport report_;
  /// Nothing without a profile.
  std::optional<host::ConsumerText> consumer_;
  verify::StatementReader reader_;
  verify::EventReader events_;
};

// Calls of a listing of which the text has nothing, or only a part.
void noteCalls(const host::ListingReader& listing, verify::Comparison& comparison) {
  noteCoolant(listing, comparison);
  for (const host::CallCount& call : listing.calls().all()) {
    using enum host::CallFate;
    const bool isLost =
        call.fate == Dropped || call.fate == UnsupportedMove || call.fate == Unknown;
    if (isLost) comparison.noteLeftOut(call.name, {call.count, {call.firstLine, call.firstFile}});
  }
}

// Compares until the input ends, or at the first difference.
void compare(ToolPathInput& input, bool showsProgress, verify::Comparison& comparison) {
  CountedEvents events(input, showsProgress);
  host::ToolPathEvent event;
  try {
    while (events.next(event) && comparison.put(event)) {
    }
  } catch (const verify::UnknownInstruction& unknown) {
    refuseInstruction(unknown, input.name());
  }
  comparison.finish();
  if (input.listing() != nullptr) noteCalls(*input.listing(), comparison);
}

VerifyReport compared(const VerifyOptions& options) {
  ToolPathInput input(options);
  input.open();
  const verify::DocumentWords document = documentWords(*input.document());
  const Reading reading(options, input.table().path);
  ReadText text(options.text, reading);
  verify::Comparison comparison(
      document, reading.words, [&](verify::Statement& statement) { return text.next(statement); },
      currentGeneration());
  if (reading.profile) comparison.setConsumer(reading.profile->consumer);
  compare(input, showsProgress(options.format), comparison);
  VerifyReport& report = text.finish(showsProgress(options.format));
  report.add(comparison, input.name());
  return report;
}

VerifyReport reportOf(const VerifyOptions& options) {
  if (!options.job.empty()) return compared(options);
  const Reading reading(options, "");
  return ReadText(options.text, reading).finish(showsProgress(options.format));
}

void requireInput(const VerifyOptions& options) {
  const bool isAboutInput =
      !options.table.empty() || !options.document.empty() || !options.reading.empty();
  if (options.job.empty() && isAboutInput) {
    throw UsageError{"-t, -d and the options of listings and NC programs need --against"};
  }
  const std::string* const files[] = {&options.text, &options.job, &options.profile};
  if (std::ranges::count_if(files, [](const auto* file) { return *file == "-"; }) > 1) {
    throw UsageError{"only one of the files can be the standard input"};
  }
}

ExitStatus reportRefusal(const VerifyOptions& options, const host::Diagnostic& diagnostic) {
  if (options.format == OutputFormat::ForPrograms) {
    writeOutput(documentText({{"file", textJson(options.text)},
                              {"passes", false},
                              {"diagnostics", Json::array({diagnosticJson(diagnostic)})}}));
  } else {
    reportDiagnostic(diagnostic);
  }
  return ExitStatus::Refused;
}

void writeReport(const VerifyOptions& options, const VerifyReport& report,
                 const Strictness& strictness) {
  if (options.format == OutputFormat::ForPrograms) {
    writeOutput(documentText(report.json(strictness)));
    return;
  }
  for (const host::Diagnostic& finding : report.findings()) reportDiagnostic(finding);
  writeOutput(report.text(strictness));
}

}  // namespace

ExitStatus verifyText(const VerifyOptions& options) {
  const Strictness strictness(options.strictness);
  requireInput(options);
  try {
    const VerifyReport report = reportOf(options);
    writeReport(options, report, strictness);
    return report.isRefused(strictness) ? ExitStatus::Refused : ExitStatus::Done;
  } catch (const Refusal& refusal) {
    return reportRefusal(options, refusal.diagnostic);
  } catch (const host::InputError& error) {
    return reportRefusal(options, host::inputDiagnostic(error));
  } catch (const host::DocumentError& error) {
    return reportRefusal(options, documentDiagnostic(error));
  }
}
