#include "inspect/lint/LintRules.h"

namespace host {
namespace {

constexpr LintRule kRules[] = {
#define LINT_RULE(name, severity, key, fault, hint, about, reported, sound) \
  {key, fault, hint, Severity::severity, about, reported, sound},
#include "inspect/lint/LintRules.def"
#undef LINT_RULE
};

}  // namespace

std::span<const LintRule> lintRules() { return kRules; }

}  // namespace host
