#include "inspect/lint/LintFindings.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "post/text/Utf8.h"

namespace host {
namespace {

constexpr std::size_t kLongestSubject = 40;

/// The error of a line that begins with "*" and has no keyword.
constexpr std::string_view kNoKeyword = "ERR_5001";

std::string shortened(std::string_view text) {
  if (text.size() <= kLongestSubject) return std::string(text);
  std::size_t end = 0;
  while (end < kLongestSubject) end += std::max<std::size_t>(utf8Length(text, end), 1);
  return std::string(text.substr(0, end)) + "...";
}

}  // namespace

void LintFindings::warn(LintKey key, std::size_t offset, std::size_t width,
                        std::string_view subject, std::string_view meant) {
  const LintRule& rule = ruleOf(key);
  const auto [line, column] = bytes_.placeOf(offset);
  std::string message = shortened(subject);
  (((message += ": ") += rule.fault) += "; ") += rule.hint;
  add({rule.severity,
       file_,
       line,
       column,
       static_cast<long>(std::max<std::size_t>(width, 1)),
       std::string(rule.key),
       std::move(message),
       {},
       std::string(meant)});
}

void LintFindings::add(Diagnostic finding) {
  if (finding.severity == Severity::Error) {
    refused_.emplace(finding.line, finding.key == kNoKeyword);
  }
  Kind& kind = kinds_[finding.key];
  if (++kind.count <= most_) {
    findings_.push_back(std::move(finding));
  } else if (kind.count == most_ + 1) {
    kind.severity = finding.severity;
    kind.line = finding.line;
    kind.column = finding.column;
  }
}

bool LintFindings::isShown(LintKey key) const {
  const auto kind = kinds_.find(ruleOf(key).key);
  return kind == kinds_.end() || kind->second.count < most_;
}

/// A keyword line that the check refuses has its name reported there; a line that is meant as one
/// is not a syntax.
void LintFindings::removeWhatErrorsSay() {
  const std::string_view unread = ruleOf(LintKey::UnreadName).key;
  std::erase_if(findings_, [&](const Diagnostic& finding) {
    const auto error = refused_.find(finding.line);
    if (finding.severity == Severity::Error || error == refused_.end()) return false;
    return finding.key == unread || error->second;
  });
}

void LintFindings::addRests() {
  for (const auto& [key, kind] : kinds_) {
    const long rest = kind.count - most_;
    if (rest <= 0) continue;
    findings_.push_back({kind.severity,
                         file_,
                         kind.line,
                         kind.column,
                         1,
                         key,
                         "this is the first of " + std::to_string(rest) +
                             " more of this kind, which are not shown; mend those that are",
                         {},
                         {}});
  }
}

std::vector<Diagnostic> LintFindings::take() {
  removeWhatErrorsSay();
  addRests();
  std::stable_sort(findings_.begin(), findings_.end(), [](const auto& left, const auto& right) {
    return std::tie(left.line, left.column) < std::tie(right.line, right.column);
  });
  for (Diagnostic& finding : findings_) {
    if (finding.line == 0) continue;
    finding.source = bytes_.excerptAt(finding.line, finding.column);
  }
  return std::move(findings_);
}

}  // namespace host
