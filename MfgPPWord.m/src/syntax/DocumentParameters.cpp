#include "src/syntax/DocumentParameters.h"

#include <cmath>
#include <optional>
#include <utility>

#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "Manufacturing/KEPMfgEnvVarMgt.h"
#include "language/syntax/Passes.h"
#include "src/syntax/ParameterValue.h"

namespace ppword {
namespace {

using Source = KEPMfgPPWordListener::Source;

/// What stands in place of a parameter that cannot be evaluated; read when the first one is met and
/// kept for the process.
std::string_view unevaluatedText() {
  static const KEPString text = KEPMfgEnvVarMgt::Get("MFG_UNEVALUATED_PPPARAMETER");
  return text.View();
}

/// True for a name that may hold a mask, which listeners see as it is written in the syntax. Few
/// names have its first character, which is found faster.
bool isMasked(std::string_view name) {
  return name.find(kPercentMask.front()) != std::string_view::npos;
}

[[gnu::always_inline]] inline Source appendOwn(LineEvaluation& evaluation, LineWriter& out) {
  if (evaluation.appendText(out)) return Source::Evaluation;
  out.append(unevaluatedText());
  return Source::NotEvaluated;
}

[[nodiscard]] bool appendEvaluated(KEPIMfgParameterEvaluation& evaluation, LineWriter& out) {
  KEPString text;
  if (!evaluation.Evaluate(text)) return false;
  out.append(text.View());
  return true;
}

/// The print format that a parameter type gives to a looked-up value.
std::optional<KEPUnicodeString> formatOf(const KEPISpecObject_var& type) {
  bool found = false;
  KEPUnicodeString format;
  KEPMfgAttributeUtilities::GetString(type, "Format", found, format);
  return found ? std::optional(std::move(format)) : std::nullopt;
}

[[gnu::noinline]] bool appendLookedUp(std::string_view name, const KEPISpecObject_var& feature,
                                      const KEPISpecObject_var& type,
                                      KEPMfgPPWordListener* listener, LineWriter& out) {
  const auto value = parameterValue(feature, name);
  if (!value) return false;
  const auto format = type ? formatOf(type) : std::nullopt;
  if (listener != nullptr) listener->ValueFound(*value, format ? &*format : nullptr);
  const auto text = valueText(*value, format);
  if (text) out.append(*text);
  return text.has_value();
}

std::optional<ParameterNumber> numberOf(const KEPMfgParameterValue& value) {
  if (value.kind == KEPMfgParameterValue::kInteger) {
    return ParameterNumber{static_cast<double>(value.integer), true};
  }
  if (value.kind != KEPMfgParameterValue::kReal || !std::isfinite(value.real)) return std::nullopt;
  return ParameterNumber{value.real, false};
}

}  // namespace

DocumentParameters::DocumentParameters(const KEPISpecObject_var& feature,
                                       const KEPIMfgPPWordContainer_var& container,
                                       const KEPIRevision::Count& revision)
    : feature_(feature),
      container_(KEPBorrow<KEPIContainer>(container.Get())),
      revision_(revision) {}

template <class Append>
[[gnu::noinline]] void DocumentParameters::appendReported(std::string_view written,
                                                          const KEPISpecObject_var& type,
                                                          KEPIMfgParameterEvaluation* evaluation,
                                                          LineWriter& out, const Append& append) {
  listener_->ReferenceLookedUp(written, type.Get(), evaluation);
  const std::size_t start = out.text().size();
  const Source source = append();
  listener_->ReferenceReplaced(written, source, out.text().substr(start));
}

void DocumentParameters::appendText(std::string_view name, FoundParameter& found, LineWriter& out) {
  if (found.revision != revision_ || found.parameter == nullptr) {
    return appendNamed(name, found, out);
  }
  auto& evaluation = static_cast<LineEvaluation&>(*found.parameter);
  // An evaluation, or whoever is asked by it, may remove its type.
  const KEPISpecObject_var type(evaluation.type());
  if (listener_ == nullptr) {
    static_cast<void>(appendOwn(evaluation, out));
  } else {
    appendReported(name, type, &evaluation, out, [&] { return appendOwn(evaluation, out); });
  }
}

void DocumentParameters::appendNamed(std::string_view name, FoundParameter& found,
                                     LineWriter& out) {
  const auto revision = revision_;
  const auto type = KEPISpecObject_var::Adopt(container_->FindStartUp(name));
  // Held by its type.
  auto* const evaluation = KEPBorrow<KEPIMfgParameterEvaluation>(type.Get());
  const bool isPlain = !isMasked(name);
  // What is found is reported under its name.
  if (evaluation != nullptr && found.revision != revision && isPlain) {
    found = {dynamic_cast<LineEvaluation*>(evaluation), revision};
  }
  const auto append = [&] { return appendValue(name, type, evaluation, out); };
  if (listener_ == nullptr) {
    static_cast<void>(append());
  } else if (isPlain) {
    appendReported(name, type, evaluation, out, append);
  } else {
    appendReported(withEscapedPercents(name), type, evaluation, out, append);
  }
}

KEPMfgPPWordListener::Source DocumentParameters::appendValue(std::string_view name,
                                                             const KEPISpecObject_var& type,
                                                             KEPIMfgParameterEvaluation* evaluation,
                                                             LineWriter& out) {
  const bool done = evaluation != nullptr ? appendEvaluated(*evaluation, out)
                                          : appendLookedUp(name, feature_, type, listener_, out);
  if (done) {
    return evaluation != nullptr ? Source::Evaluation
           : type                ? Source::FormattedParameter
                                 : Source::Parameter;
  }
  out.append(unevaluatedText());
  return Source::NotEvaluated;
}

std::optional<ParameterNumber> DocumentParameters::number(std::string_view name) {
  if (listener_ != nullptr) {
    listener_->ReferenceLookedUp(withEscapedPercents(name), nullptr, nullptr);
  }
  const auto value = parameterValue(feature_, name);
  if (listener_ != nullptr && value) listener_->ValueFound(*value, nullptr);
  return value ? numberOf(*value) : std::nullopt;
}

void DocumentParameters::textDropped(std::string_view name, std::string_view text) {
  if (listener_ == nullptr) return;
  listener_->TextDropped(withEscapedPercents(name), withEscapedPercents(text));
}

}  // namespace ppword
