#include "tools/ppword/lsp/Answers.h"

#include <algorithm>
#include <span>

#include "tools/ppword/lsp/Features.h"

namespace lsp {
namespace {

constexpr std::size_t kMostPlaces = 10'000;
// A range of more bytes is shown as one of so many.
constexpr std::size_t kWidest = 4096;

/// Converts ranges whose beginnings are in order without going back far.
class Ranges {
 public:
  Ranges(const OpenTable& table, Encoding encoding) : positions_(table.text(), encoding) {}

  Json of(std::size_t begin, std::size_t end) {
    const Position first = positions_.at(begin);
    const Position last = positions_.at(std::max(begin, end));
    return {{"start", jsonOf(first)}, {"end", jsonOf(last)}};
  }
  std::size_t offsetOf(const Json& position) { return positions_.offsetOf(positionOf(position)); }

 private:
  static Json jsonOf(Position position) {
    return {{"line", position.line}, {"character", position.character}};
  }

  TextPositions positions_;
};

std::optional<Name> nameAsked(const Question& question, Ranges& ranges) {
  return nameAt(question.table.text(), ranges.offsetOf(question.params.at("position")));
}

Json placesJson(const Question& question, Ranges& ranges, bool ofDefinitions, bool ofUses) {
  Json places = Json::array();
  const auto name = nameAsked(question, ranges);
  if (!name) return places;
  for (const auto& [offset, size, isDefinition] : placesOf(question.table, *name)) {
    if (!(isDefinition ? ofDefinitions : ofUses)) continue;
    if (places.size() == kMostPlaces) break;
    places.push_back({{"uri", question.uri}, {"range", ranges.of(offset, offset + size)}});
  }
  return places;
}

int severityNumber(host::Severity severity) { return static_cast<int>(severity) + 1; }

struct FoundRange {
  std::size_t begin;
  std::size_t end;
};

FoundRange rangeOf(OpenTable& table, const host::Diagnostic& finding) {
  const std::size_t begin = table.offsetOf(finding);
  const std::string_view rest = std::string_view(table.text()).substr(begin, 1);
  if (finding.line == 0 || rest.find_first_of("\r\n") == 0) return {begin, begin};
  return {begin, begin + std::min(static_cast<std::size_t>(finding.width), kWidest)};
}

Json findingJson(const host::Diagnostic& finding, Json range) {
  return {{"range", std::move(range)},
          {"severity", severityNumber(finding.severity)},
          {"code", finding.key},
          {"source", "ppword"},
          {"message", finding.message}};
}

// The numbers of the protocol for the kinds of names and of symbols.
int completionKind(NameKind kind) {
  constexpr int kVariable = 6;
  constexpr int kFunction = 3;
  constexpr int kValue = 12;
  constexpr int kKeyword = 14;
  constexpr int kKinds[] = {kVariable, kFunction, kValue, kKeyword};
  return kKinds[static_cast<std::size_t>(kind)];
}

int symbolKind(Symbol::Kind kind) {
  constexpr int kNamespace = 3;
  constexpr int kFunction = 12;
  constexpr int kConstant = 14;
  constexpr int kEnum = 10;
  constexpr int kKinds[] = {kNamespace, kFunction, kConstant, kEnum};
  return kKinds[static_cast<std::size_t>(kind)];
}

Json symbolJson(const Question& question, const Symbol& symbol, Ranges& whole, Ranges& names) {
  Json json{{"name", symbol.name}, {"kind", symbolKind(symbol.kind)}};
  Json range = whole.of(symbol.begin, symbol.end);
  if (!question.showsHierarchy) {
    json["location"] = {{"uri", question.uri}, {"range", std::move(range)}};
    return json;
  }
  if (!symbol.detail.empty()) json["detail"] = symbol.detail;
  json["range"] = std::move(range);
  json["selectionRange"] = names.of(symbol.nameBegin, symbol.nameEnd);
  return json;
}

Json proposalJson(const Proposal& proposal, const Json& range) {
  Json item{{"label", proposal.text},
            {"kind", completionKind(proposal.kind)},
            {"textEdit", {{"range", range}, {"newText", proposal.text}}}};
  if (!proposal.detail.empty()) item["detail"] = proposal.detail;
  return item;
}

/// False when the client asks for other actions only.
bool wantsFixes(const Json& params) {
  const auto context = params.find("context");
  if (context == params.end() || !context->contains("only")) return true;
  const Json& only = context->at("only");
  return std::any_of(only.begin(), only.end(), [](const Json& kind) {
    return kind == "quickfix" || kind == Json(std::string());
  });
}

Json actionJson(const Question& question, const host::Diagnostic& finding, const Json& range) {
  return {{"title", "Change to " + finding.meant},
          {"kind", "quickfix"},
          {"isPreferred", true},
          {"diagnostics", Json::array({findingJson(finding, range)})},
          {"edit",
           {{"changes",
             {{question.uri, Json::array({{{"range", range}, {"newText", finding.meant}}})}}}}}};
}

}  // namespace

Position positionOf(const Json& position) {
  const auto number = [&](const char* member) {
    const Json& value = position.at(member);
    if (!value.is_number_unsigned()) throw InvalidParameters{"a position is not a whole number"};
    return value.get<std::size_t>();
  };
  return {number("line"), number("character")};
}

Json answerCompletion(const Question& question) {
  Ranges ranges(question.table, question.encoding);
  const std::size_t offset = ranges.offsetOf(question.params.at("position"));
  const Completion completion = completionAt(question.table, offset);
  const Json range = ranges.of(completion.begin, offset);
  Json items = Json::array();
  for (const Proposal& proposal : completion.proposals) {
    items.push_back(proposalJson(proposal, range));
  }
  return {{"isIncomplete", completion.isCut}, {"items", std::move(items)}};
}

Json answerHover(const Question& question) {
  Ranges ranges(question.table, question.encoding);
  const auto name = nameAsked(question, ranges);
  const std::string text = name ? hoverText(question.table, *name) : "";
  if (text.empty()) return nullptr;
  return {{"contents", {{"kind", "markdown"}, {"value", text}}},
          {"range", ranges.of(name->offset, name->offset + name->text.size())}};
}

Json answerDefinition(const Question& question) {
  Ranges ranges(question.table, question.encoding);
  return placesJson(question, ranges, true, false);
}

Json answerReferences(const Question& question) {
  Ranges ranges(question.table, question.encoding);
  const bool withDefinitions = question.params.at("context").at("includeDeclaration").get<bool>();
  return placesJson(question, ranges, withDefinitions, true);
}

Json answerSymbols(const Question& question) {
  Ranges whole(question.table, question.encoding);
  Ranges names(question.table, question.encoding);
  Json symbols = Json::array();
  for (const Symbol& symbol : symbolsOf(question.table)) {
    symbols.push_back(symbolJson(question, symbol, whole, names));
  }
  return symbols;
}

Json answerActions(const Question& question) {
  Json actions = Json::array();
  Ranges ranges(question.table, question.encoding);
  const Json& asked = question.params.at("range");
  const std::size_t first = ranges.offsetOf(asked.at("start"));
  const std::size_t last = ranges.offsetOf(asked.at("end"));
  if (!wantsFixes(question.params)) return actions;
  for (const host::Diagnostic& finding : question.table.findings()) {
    const auto [begin, end] = rangeOf(question.table, finding);
    if (finding.meant.empty() || begin > last || end < first) continue;
    actions.push_back(actionJson(question, finding, ranges.of(begin, end)));
  }
  return actions;
}

Json diagnosticsOf(OpenTable& table, Encoding encoding) {
  Ranges ranges(table, encoding);
  Json diagnostics = Json::array();
  const auto& findings = table.findings();
  for (const host::Diagnostic& finding : findings) {
    const auto [begin, end] = rangeOf(table, finding);
    diagnostics.push_back(findingJson(finding, ranges.of(begin, end)));
  }
  return diagnostics;
}

}  // namespace lsp
