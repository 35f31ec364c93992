#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/TableBytes.h"
#include "inspect/lint/LintRules.h"
#include "language/table/TableCursor.h"

namespace host {

/// Gathers the findings of one table: of each kind the first ones, and how many more there are.
class LintFindings {
 public:
  /// Of each kind `most` findings are shown.
  LintFindings(std::string file, const TableBytes& bytes, long most)
      : file_(std::move(file)), bytes_(bytes), most_(most) {}

  [[nodiscard]] const std::string& file() const noexcept { return file_; }

  /// Warns of the `width` bytes at `offset`; `subject` is what the warning is about. `meant` is
  /// what these bytes are probably meant to be.
  void warn(LintKey key, std::size_t offset, std::size_t width, std::string_view subject,
            std::string_view meant = {});
  void warn(LintKey key, const ppword::Token& token) {
    warn(key, token.offset, token.text.size(), token.text);
  }
  void add(Diagnostic finding);
  /// False when a further finding of the kind would only be counted.
  [[nodiscard]] bool isShown(LintKey key) const;

  /// All findings in the order of the file, each with its source line.
  [[nodiscard]] std::vector<Diagnostic> take();

 private:
  struct Kind {
    long count = 0;
    /// The first one that is only counted.
    Severity severity = Severity::Note;
    long line = 0;
    long column = 0;
  };

  void removeWhatErrorsSay();
  void addRests();

  std::string file_;
  const TableBytes& bytes_;
  long most_;
  std::vector<Diagnostic> findings_;
  std::map<std::string, Kind, std::less<>> kinds_;
  /// The lines that the check refuses, and whether for want of a keyword.
  std::unordered_map<long, bool> refused_;
};

}  // namespace host
