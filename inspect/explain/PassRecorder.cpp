#include "inspect/explain/PassRecorder.h"

#include <utility>

#include "ObjectSpecsModeler/KEPISpecObject.h"

namespace host {
namespace {

std::optional<std::string> formatOf(const KEPBaseUnknown& type) {
  const auto attributes = KEPISpecAttrAccess_var::Of(&type);
  const auto format = attributes ? attributes->FindAttribute("Format") : std::nullopt;
  if (!format || !format->IsSet() || format->GetTexts().Size() == 0) return std::nullopt;
  return std::string(format->GetTexts()[1].View());
}

void describeType(const KEPBaseUnknown& type, ExplainedReference& reference) {
  const auto feature = KEPISpecObject_var::Of(&type);
  if (!feature) return;
  reference.type = feature->GetName();
  if (const KEPISpecObject_var base = feature->GetBaseType()) reference.baseType = base->GetName();
  reference.format = formatOf(type);
}

}  // namespace

void PassRecorder::LineAfterPass(Pass pass, std::string_view line) {
  if (pass == Pass::Written) lines_.emplace_back();
  pass_.pass = pass;
  pass_.line = line;
  for (auto& reference : pass_.references) reference.prefix = EntryOf(pass).prefix;
  lines_.back().passes.push_back(std::exchange(pass_, {}));
}

void PassRecorder::ReferenceLookedUp(std::string_view name, const KEPBaseUnknown* type,
                                     const KEPBaseUnknown* evaluation) {
  ExplainedReference& reference = pass_.references.emplace_back();
  reference.name = name;
  if (type != nullptr) describeType(*type, reference);
  if (evaluation != nullptr && evaluation->GetMetaObject() != nullptr) {
    reference.evaluation = evaluation->GetMetaObject()->GetName();
  }
}

void PassRecorder::ValueFound(const KEPMfgParameterValue& value, const KEPUnicodeString*) {
  pass_.references.back().value = value;
}

void PassRecorder::ReferenceReplaced(std::string_view, Source source, std::string_view text) {
  pass_.references.back().source = source;
  pass_.references.back().text = text;
}

void PassRecorder::ValueLacking(Lack why) {
  if (!pass_.references.empty()) pass_.references.back().lack = why;
}

void PassRecorder::GenerationFormatUsed(const KEPUnicodeString& format) {
  if (!pass_.references.empty()) pass_.references.back().format = format.View();
}

void PassRecorder::TextDropped(std::string_view name, std::string_view text) {
  pass_.cuts.push_back({std::string(name), std::string(text)});
}

void PassRecorder::OperationEnded(Operation outcome, std::string_view operation,
                                  std::string_view result) {
  pass_.operations.push_back({outcome, std::string(operation), std::string(result)});
}

}  // namespace host
