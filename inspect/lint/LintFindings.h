#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/TableBytes.h"
#include "inspect/lint/LintRules.h"
#include "language/table/TableCursor.h"

namespace host {

/// Gathers the findings of one table.
class LintFindings {
 public:
  LintFindings(std::string file, const TableBytes& bytes) : file_(std::move(file)), bytes_(bytes) {}

  [[nodiscard]] const std::string& file() const noexcept { return file_; }

  /// Warns of the `width` bytes at `offset`; `subject` is what the warning is about. `meant` is
  /// what these bytes are probably meant to be.
  void warn(LintKey key, std::size_t offset, std::size_t width, std::string_view subject,
            std::string_view meant = {});
  void warn(LintKey key, const ppword::Token& token) {
    warn(key, token.offset, token.text.size(), token.text);
  }
  void add(Diagnostic finding) { findings_.push_back(std::move(finding)); }

  /// All findings in the order of the file, each with its source line.
  [[nodiscard]] std::vector<Diagnostic> take();

 private:
  std::string file_;
  const TableBytes& bytes_;
  std::vector<Diagnostic> findings_;
};

}  // namespace host
