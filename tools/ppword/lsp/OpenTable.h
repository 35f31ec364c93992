#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/lint/TableBlocks.h"

namespace lsp {

/// A table that an editor has open: its text, and what was read from it.
class OpenTable {
 public:
  OpenTable(std::string text, std::int64_t version) : text_(std::move(text)), version_(version) {}

  [[nodiscard]] const std::string& text() const noexcept { return text_; }
  [[nodiscard]] std::int64_t version() const noexcept { return version_; }
  void setVersion(std::int64_t version) noexcept { version_ = version; }

  void replace(std::string text);
  /// Replaces the bytes from `begin` to before `end`.
  void edit(std::size_t begin, std::size_t end, std::string_view text);

  /// True when findings were not published since the last change.
  [[nodiscard]] bool isUnpublished() const noexcept { return isUnpublished_; }
  void setPublished() noexcept { isUnpublished_ = false; }
  void setUnpublished() noexcept { isUnpublished_ = true; }

  // What is read from the text, at the first question after a change.
  [[nodiscard]] const host::TableBlocks& blocks();
  [[nodiscard]] const std::vector<host::Diagnostic>& findings();
  /// Where a finding begins.
  [[nodiscard]] std::size_t offsetOf(const host::Diagnostic& finding);

 private:
  void forget();
  [[nodiscard]] const host::TableBytes& bytes();

  std::string text_;
  std::int64_t version_;
  bool isUnpublished_ = true;
  std::unique_ptr<host::TableBytes> bytes_;
  std::optional<host::TableBlocks> blocks_;
  std::optional<std::vector<host::Diagnostic>> findings_;
};

}  // namespace lsp
