#include "host/diagnostics/lint/LintFindings.h"

#include <algorithm>
#include <tuple>
#include <unordered_set>
#include <utility>

#include "host/diagnostics/Utf8.h"

namespace host {
namespace {

constexpr std::size_t kLongestSubject = 40;

std::string shortened(std::string_view text) {
  if (text.size() <= kLongestSubject) return std::string(text);
  std::size_t end = 0;
  while (end < kLongestSubject) end += std::max<std::size_t>(utf8Length(text, end), 1);
  return std::string(text.substr(0, end)) + "...";
}

}  // namespace

void LintFindings::warn(LintKey key, std::size_t offset, std::size_t width,
                        std::string_view subject) {
  const LintRule& rule = ruleOf(key);
  const auto [line, column] = bytes_.placeOf(offset);
  std::string message = shortened(subject);
  (((message += ": ") += rule.fault) += "; ") += rule.hint;
  add({Severity::Warning,
       file_,
       line,
       column,
       static_cast<long>(std::max<std::size_t>(width, 1)),
       std::string(rule.key),
       std::move(message),
       {}});
}

std::vector<Diagnostic> LintFindings::take() {
  std::unordered_set<long> refused;
  for (const Diagnostic& finding : findings_) {
    if (finding.severity == Severity::Error) refused.insert(finding.line);
  }
  // A keyword line that the check refuses has its name told there.
  const std::string_view unread = ruleOf(LintKey::UnreadName).key;
  std::erase_if(findings_, [&](const Diagnostic& finding) {
    return finding.key == unread && refused.contains(finding.line);
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
