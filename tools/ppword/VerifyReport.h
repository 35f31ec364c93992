#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/Kinds.h"
#include "verify/Rules.h"
#include "verify/Words.h"

/// What was seen in a text, and what a reader of it would stumble over.
class VerifyReport {
 public:
  /// How many findings of a kind, and how many unknown words, are stored; the others are counted.
  static constexpr long kMostOfAKind = 10;
  static constexpr std::size_t kMostUnknownWords = 100;

  /// `file` names the text in messages.
  explicit VerifyReport(std::string file) : file_(std::move(file)) {}

  void add(const verify::Finding& finding);
  void count(const verify::Statement& statement, verify::EventKind kind);
  void finish(long lines, bool hasSequenceNumbers);

  [[nodiscard]] const std::vector<host::Diagnostic>& findings() const { return findings_; }
  [[nodiscard]] const std::string& file() const { return file_; }
  /// True when something was found that is refused.
  [[nodiscard]] bool isRefused(const Strictness& strictness) const;

  /// For people: what was seen, and a line with the verdict.
  [[nodiscard]] std::string text(const Strictness& strictness) const;
  [[nodiscard]] Json json(const Strictness& strictness) const;

 private:
  [[nodiscard]] long countOf(verify::Weight weight) const;
  [[nodiscard]] bool isOnlyStrict(const Strictness& strictness) const;
  [[nodiscard]] std::string unknownText() const;
  [[nodiscard]] std::string leftOutText() const;

  std::string file_;
  std::vector<host::Diagnostic> findings_;
  std::vector<long> counts_ = std::vector<long>(verify::rules().size());
  std::array<long, verify::kEventKinds> events_{};
  std::map<std::string, long, std::less<>> unknownWords_;
  long statements_ = 0;
  long lines_ = 0;
  bool hasSequenceNumbers_ = false;
};
