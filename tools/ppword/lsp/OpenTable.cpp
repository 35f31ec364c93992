#include "tools/ppword/lsp/OpenTable.h"

#include <algorithm>

#include "inspect/lint/Lint.h"

namespace lsp {

void OpenTable::replace(std::string text) {
  text_ = std::move(text);
  forget();
}

void OpenTable::edit(std::size_t begin, std::size_t end, std::string_view text) {
  text_.replace(begin, std::max(begin, end) - begin, text);
  forget();
}

void OpenTable::forget() {
  isUnpublished_ = true;
  findings_.reset();
  blocks_.reset();
  bytes_.reset();
}

const host::TableBytes& OpenTable::bytes() {
  if (!bytes_) bytes_ = std::make_unique<host::TableBytes>(text_);
  return *bytes_;
}

const host::TableBlocks& OpenTable::blocks() {
  if (!blocks_) blocks_ = host::readBlocks(bytes());
  return *blocks_;
}

const std::vector<host::Diagnostic>& OpenTable::findings() {
  if (!findings_) findings_ = host::lintTable(bytes(), "");
  return *findings_;
}

std::size_t OpenTable::offsetOf(const host::Diagnostic& finding) {
  if (finding.line == 0) return 0;
  const std::size_t offset = bytes().offsetOf({finding.line, finding.column});
  // What is missing at the end of a line is after it.
  const bool isAfterLine =
      finding.column > 1 && offset > 0 && offset <= text_.size() && text_[offset - 1] == '\n';
  return std::min(isAfterLine ? offset - 1 : offset, text_.size());
}

}  // namespace lsp
