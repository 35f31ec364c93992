#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/Kinds.h"
#include "verify/Comparison.h"
#include "verify/Rules.h"
#include "verify/Words.h"

/// A finding as it is shown; `file` is the one that its place is in.
[[nodiscard]] host::Diagnostic diagnosticOf(const verify::Finding& finding,
                                            const std::string& file);
/// Both places of a difference between a text, of which so many lines were read, and an input.
[[nodiscard]] std::vector<host::Diagnostic> diagnosticsOf(const verify::Difference& difference,
                                                          const std::string& text, long lines,
                                                          const std::string& input);
/// For programs: name, count and firstLine of each.
[[nodiscard]] Json sightingsJson(const verify::Comparison::Sightings& sightings);

/// What was seen in a text, and what a reader of it would stumble over.
class VerifyReport {
 public:
  /// How many findings of a kind, and how many unknown words, are stored; the others are counted.
  static constexpr long kMostOfAKind = 10;
  static constexpr std::size_t kMostUnknownWords = 100;

  /// `file` names the text in messages.
  explicit VerifyReport(std::string file) : file_(std::move(file)) {}

  /// `file` is that of the text, or another one that the place is in.
  void add(const verify::Finding& finding, const std::string& file);
  void add(const verify::Finding& finding) { add(finding, file_); }
  void count(const verify::Statement& statement, verify::EventKind kind);
  /// What a comparison with an input, named so, found.
  void add(const verify::Comparison& comparison, const std::string& input);
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
  [[nodiscard]] std::string moreText() const;
  [[nodiscard]] std::string eventsText() const;
  [[nodiscard]] std::string verdictText(const Strictness& strictness) const;
  [[nodiscard]] Json countsJson() const;
  [[nodiscard]] Json unknownJson() const;
  [[nodiscard]] Json eventsJson() const;
  [[nodiscard]] std::string againstText() const;
  [[nodiscard]] Json againstJson() const;
  void add(const verify::Difference& difference, const std::string& input);
  void add(verify::Rule rule, const verify::Comparison::Sightings& sightings,
           const std::string& input);

  std::string file_;
  std::vector<host::Diagnostic> findings_;
  std::vector<long> counts_ = std::vector<long>(verify::rules().size());
  std::array<long, verify::kEventKinds> events_{};
  std::map<std::string, long, std::less<>> unknownWords_;
  long statements_ = 0;
  long lines_ = 0;
  bool hasSequenceNumbers_ = false;
  /// Of a comparison; nothing without one.
  struct Against {
    std::string input;
    bool agrees = true;
    long elements = 0, verified = 0, ownOfTable = 0;
    verify::Comparison::Sightings notVerified{}, leftOut{};
  };
  std::optional<Against> against_;
};
