#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <nlohmann/json.hpp>

#include "host/system/FilePlace.h"
#include "inspect/diagnostics/InputDiagnostic.h"
#include "post/toolpath/LineReader.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Kinds.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/VerifyReport.h"
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
  /// What messages call the file.
  [[nodiscard]] const std::string& name() const noexcept { return name_; }

 private:
  [[noreturn]] void raise(std::string_view what) const {
    throw host::InputError(name_, 0, 0, std::string(what) + host::systemReason(errno));
  }

  std::string name_;
  int descriptor_;
};

VerifyReport reportOf(const VerifyOptions& options) {
  TextFile file(options.text);
  VerifyReport report(file.name());
  const verify::Words words;
  verify::StatementReader reader([&](char* to, std::size_t most) { return file.read(to, most); },
                                 words, [&](const auto& finding) { report.add(finding); });
  verify::EventReader events(words);
  verify::Statement statement;
  while (reader.next(statement)) report.count(statement, events.next(statement));
  report.finish(reader.lines(), reader.hasSequenceNumbers());
  return report;
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

}  // namespace

ExitStatus verifyText(const VerifyOptions& options) {
  const Strictness strictness(options.strictness);
  try {
    const VerifyReport report = reportOf(options);
    if (options.format == OutputFormat::ForPrograms) {
      writeOutput(documentText(report.json(strictness)));
    } else {
      for (const host::Diagnostic& finding : report.findings()) reportDiagnostic(finding);
      writeOutput(report.text(strictness));
    }
    return report.isRefused(strictness) ? ExitStatus::Refused : ExitStatus::Done;
  } catch (const host::InputError& error) {
    return reportRefusal(options, host::inputDiagnostic(error));
  }
}
