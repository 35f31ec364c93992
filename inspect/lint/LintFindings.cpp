#include "inspect/lint/LintFindings.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>
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

std::vector<Diagnostic> LintFindings::take() {
  std::unordered_map<long, std::string> refused;
  for (const Diagnostic& finding : findings_) {
    if (finding.severity == Severity::Error) refused.emplace(finding.line, finding.key);
  }
  // A keyword line that the check refuses has its name told there; a line that is meant as one is
  // no syntax.
  const std::string_view unread = ruleOf(LintKey::UnreadName).key;
  std::erase_if(findings_, [&](const Diagnostic& finding) {
    const auto error = refused.find(finding.line);
    if (finding.severity == Severity::Error || error == refused.end()) return false;
    return finding.key == unread || error->second == kNoKeyword;
  });
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
