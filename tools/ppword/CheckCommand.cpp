#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>

#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/InputDiagnostic.h"
#include "inspect/diagnostics/TableFile.h"
#include "inspect/diagnostics/TableWarnings.h"
#include "inspect/lint/Lint.h"
#include "post/consumer/ConsumerProfile.h"
#include "post/text/FoldedLines.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/Kinds.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"

namespace {

constexpr std::size_t kKeyColumns = 26;
constexpr std::size_t kKindColumns = 76;

struct Verdict {
  bool passes = true;
  std::vector<host::Diagnostic> findings;
};

Verdict verdictOf(const std::string& path, bool lint, const host::Consumer* consumer) try {
  auto refusal = tableRefusal(path);
  // A file that cannot be read has no place to look at.
  if (lint && !(refusal && refusal->line == 0)) {
    return {!refusal, host::lintTable(path, host::kMostOfAKind, consumer)};
  }
  if (refusal) return {false, {std::move(*refusal)}};
  return {true, host::tableWarnings(path)};
} catch (const host::UnreadableTable& unreadable) {
  return {false, {unreadable.diagnostic}};
}

bool isRefused(const Verdict& verdict, const Strictness& strictness) {
  const auto refuses = [&](const host::Diagnostic& finding) {
    return strictness.refuses(finding.key, finding.severity == host::Severity::Note);
  };
  return !verdict.passes || std::any_of(verdict.findings.begin(), verdict.findings.end(), refuses);
}

std::string countText(const Verdict& verdict, host::Severity severity, std::string_view noun) {
  const auto count =
      std::count_if(verdict.findings.begin(), verdict.findings.end(),
                    [&](const auto& finding) { return finding.severity == severity; });
  if (count == 0) return {};
  return ", " + std::to_string(count) + ' ' + std::string(noun) + (count > 1 ? "s" : "");
}

std::string verdictText(const std::string& path, const Verdict& verdict, bool refused) {
  std::string text = host::terminalSafe(path) + (verdict.passes ? ": passes" : ": refused");
  if (verdict.findings.size() > 1) text += countText(verdict, host::Severity::Error, "error");
  text += countText(verdict, host::Severity::Warning, "warning");
  text += countText(verdict, host::Severity::Note, "note");
  return text + (verdict.passes && refused ? "; refused by --strict\n" : "\n");
}

Json verdictJson(const std::string& path, const Verdict& verdict) {
  Json json{{"file", textJson(path)}, {"passes", verdict.passes}, {"diagnostics", Json::array()}};
  for (const host::Diagnostic& finding : verdict.findings) {
    json["diagnostics"].push_back(diagnosticJson(finding));
  }
  return json;
}

std::string indented(std::string_view text) {
  std::string all = "    ";
  for (const char c : text) all += c == '\n' ? "\n    " : std::string(1, c);
  return all + '\n';
}

std::string kindText(const Kind& kind) {
  std::string text(kind.key);
  ((((text += " (") += kind.severity) += " of ppword ") += kind.command) += ")\n";
  const std::string says = (std::string(kind.fault) += "; ") += kind.hint;
  for (const std::string_view part : {std::string_view(says), kind.about}) {
    for (const std::string& line : host::foldedLines(part, kKindColumns, kKindColumns)) {
      ((text += "  ") += line) += '\n';
    }
    text += part == kind.about ? "" : "\n";
  }
  if (kind.reported.empty()) return text;
  text += "\n  Reported:\n" + indented(kind.reported);
  return text + "  Not reported:\n" + indented(kind.sound);
}

std::string kindLine(const Kind& kind) {
  const std::string key(kind.key);
  return key + std::string(kKeyColumns - key.size(), ' ') + std::string(kind.fault) + '\n';
}

Json kindJson(const Kind& kind) {
  Json json{{"key", kind.key},     {"command", kind.command}, {"severity", kind.severity},
            {"fault", kind.fault}, {"hint", kind.hint},       {"about", kind.about}};
  if (kind.reported.empty()) return json;
  json["reported"] = kind.reported;
  json["notReported"] = kind.sound;
  return json;
}

// Each kind that is named at length; without a key a line for each of all.
ExitStatus explainKinds(const CheckOptions& options) {
  std::string text;
  Json document{{"kinds", Json::array()}};
  for (const std::string& key : options.tables) {
    const Kind& kind = kindOf(key);
    document["kinds"].push_back(kindJson(kind));
    text += (text.empty() ? "" : "\n") + kindText(kind);
  }
  if (options.tables.empty()) {
    for (const Kind& kind : allKinds()) {
      document["kinds"].push_back(kindJson(kind));
      text += kindLine(kind);
    }
  }
  writeOutput(options.format == OutputFormat::ForPrograms ? documentText(document) : text);
  return ExitStatus::Done;
}

std::optional<host::Consumer> consumerOf(const CheckOptions& options) {
  if (options.profile.empty()) return std::nullopt;
  if (!options.lint) throw UsageError{"--profile needs --lint"};
  return host::readProfile(options.profile).consumer;
}

}  // namespace

ExitStatus checkTables(const CheckOptions& options) {
  if (options.explain) return explainKinds(options);
  if (options.tables.empty()) throw UsageError{"TABLE is required"};
  const Strictness strictness(options.strictness);
  if (const auto key = strictness.lintKey(); !options.lint && !key.empty()) {
    throw UsageError{"'" + std::string(key) + "' is found only with --lint"};
  }
  std::optional<host::Consumer> consumer;
  try {
    consumer = consumerOf(options);
  } catch (const host::InputError& error) {
    return refuseTable(host::inputDiagnostic(error), options.format);
  }
  ExitStatus status = ExitStatus::Done;
  Json document{{"tables", Json::array()}};
  for (const std::string& path : options.tables) {
    const Verdict verdict = verdictOf(path, options.lint, consumer ? &*consumer : nullptr);
    const bool refused = isRefused(verdict, strictness);
    if (refused) status = ExitStatus::Refused;
    if (options.format == OutputFormat::ForPrograms) {
      document["tables"].push_back(verdictJson(path, verdict));
      continue;
    }
    for (const host::Diagnostic& finding : verdict.findings) reportDiagnostic(finding);
    writeOutput(verdictText(path, verdict, refused));
  }
  if (options.format == OutputFormat::ForPrograms) writeOutput(documentText(document));
  return status;
}
