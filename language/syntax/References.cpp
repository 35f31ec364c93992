#include "language/syntax/References.h"

namespace ppword {
namespace {

/// Reports what is cut off a name and comes back in no form; false when there is nothing.
bool reportDropped(const Reference& reference, ParameterSource& parameters) {
  const std::string_view name = reference.name;
  bool isDropped = false;
  const auto report = [&](std::string_view before, std::string_view text) {
    parameters.textDropped(before, text);
    isDropped = true;
  };
  if (!reference.beforeLineFeed.empty()) {
    const std::size_t size = name.size() + reference.dollar.size() + reference.parenthesis.size();
    report({name.data(), size}, reference.beforeLineFeed);
  }
  if (reference.parenthesis.find_first_not_of(')') != std::string_view::npos) {
    report(name, reference.parenthesis);
  }
  if (!reference.dollar.empty()) report(name, reference.dollar);
  return isDropped;
}

}  // namespace

void References::find(SyntaxLine& line, ParameterSource& parameters) {
  if (line.revision() == revision_) return;
  const bool isKnown = !isDropped_ && text_ == line.text();
  if (!isKnown) read(line, parameters);
  revision_ = isDropped_ ? SyntaxLine::kNoRevision : line.revision();
}

void References::read(SyntaxLine& line, ParameterSource& parameters) {
  text_ = line.text();
  found_.clear();
  isDropped_ = false;
  ReferenceCursor references(text_, prefix_, line.characters());
  while (const auto reference = references.next()) {
    isDropped_ = reportDropped(*reference, parameters) || isDropped_;
    found_.push_back({*reference});
  }
}

}  // namespace ppword
