#include <array>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tools/ppword/Explaining.h"

namespace {

Json nullableJson(std::string_view text) { return text.empty() ? Json() : textJson(text); }

template <class Text>
Json optionalJson(const std::optional<Text>& text) {
  return text ? textJson(*text) : Json();
}

Json valueJson(const std::optional<KEPMfgParameterValue>& value) {
  if (!value) return {};
  switch (value->kind) {
    case KEPMfgParameterValue::kInteger:
      return value->integer;
    case KEPMfgParameterValue::kReal:
      return value->real;
    default:
      return textJson(value->text);
  }
}

Json referenceJson(const host::ExplainedReference& reference) {
  return {{"reference", textJson(host::referenceText(reference))},
          {"type", nullableJson(reference.type)},
          {"baseType", nullableJson(reference.baseType)},
          {"asked", std::string(host::answerKind(reference))},
          {"evaluated", host::isEvaluated(reference)},
          {"evaluation", nullableJson(reference.evaluation)},
          {"value", valueJson(reference.value)},
          {"reason", nullableJson(host::lackText(reference))},
          {"format", optionalJson(reference.format)},
          {"text", optionalJson(reference.text)}};
}

Json operationJson(const host::ExplainedOperation& ended) {
  constexpr std::array<const char*, 3> kOutcomes = {"computed", "kept", "deleted"};
  return {{"operation", textJson(ended.operation)},
          {"outcome", kOutcomes[static_cast<std::size_t>(ended.outcome)]},
          {"result", nullableJson(ended.result)}};
}

template <class Items>
Json arrayJson(const Items& items, Json (*toJson)(const typename Items::value_type&)) {
  Json array = Json::array();
  for (const auto& item : items) array.push_back(toJson(item));
  return array;
}

Json passJson(const host::ExplainedPass& pass) {
  return {{"pass", KEPMfgPPWordListener::EntryOf(pass.pass).name},
          {"line", textJson(pass.line)},
          {"references", arrayJson(pass.references, referenceJson)},
          {"operations", arrayJson(pass.operations, operationJson)},
          {"notes", textsJson(pass.notes)}};
}

}  // namespace

Json lineJson(const host::ExplainedLine& line) {
  return {{"passes", arrayJson(line.passes, passJson)},
          {"output", optionalJson(line.output)},
          {"notes", textsJson(line.notes)}};
}

Json explainedLinesJson(const host::Explanation& explanation) {
  return arrayJson(explanation.lines, lineJson);
}
