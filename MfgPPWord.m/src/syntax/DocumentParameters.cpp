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

/// A name as it is written in the syntax, for the listener: few hold a mask, the others are not
/// copied.
class WrittenName {
 public:
  explicit WrittenName(std::string_view name) : name_(name) {
    if (name.find(kPercentMask) == std::string_view::npos) return;
    copy_ = withEscapedPercents(name);
    name_ = copy_;
  }
  WrittenName(const WrittenName&) = delete;
  WrittenName& operator=(const WrittenName&) = delete;
  operator std::string_view() const noexcept { return name_; }

 private:
  std::string copy_;
  std::string_view name_;
};

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

void DocumentParameters::appendText(std::string_view name, FoundParameter& found, LineWriter& out) {
  const bool isKnown = found.revision == revision_ && found.parameter != nullptr;
  if (!isKnown || listener_ != nullptr) return appendFound(name, found, out);
  auto& evaluation = static_cast<LineEvaluation&>(*found.parameter);
  // An evaluation, or whoever is asked by it, may remove its type.
  const KEPBaseUnknown_var held(&evaluation);
  if (!evaluation.appendText(out)) out.append(unevaluatedText());
}

void DocumentParameters::appendFound(std::string_view name, FoundParameter& found,
                                     LineWriter& out) {
  const Parameter parameter = find(name, found);
  if (listener_ != nullptr) return appendReported(name, parameter, out);
  static_cast<void>(appendValue(name, parameter, out));
}

DocumentParameters::Parameter DocumentParameters::find(std::string_view name,
                                                       FoundParameter& found) const {
  const auto revision = revision_;
  if (found.revision == revision && found.parameter != nullptr) {
    auto* const evaluation = static_cast<LineEvaluation*>(found.parameter);
    return {KEPISpecObject_var::Of(evaluation), evaluation, true};
  }
  auto type = KEPISpecObject_var::Adopt(container_->FindStartUp(name));
  auto* const evaluation = KEPBorrow<KEPIMfgParameterEvaluation>(type.Get());
  if (evaluation == nullptr || revision == 0) return {std::move(type), evaluation, false};
  if (found.revision != revision) found = {dynamic_cast<LineEvaluation*>(evaluation), revision};
  return {std::move(type), evaluation, found.parameter != nullptr};
}

[[gnu::always_inline]] inline bool DocumentParameters::appendValue(std::string_view name,
                                                                   const Parameter& parameter,
                                                                   LineWriter& out) {
  auto* const evaluation = parameter.evaluation;
  const bool done = evaluation == nullptr
                        ? appendLookedUp(name, feature_, parameter.type, listener_, out)
                    : parameter.isOwn ? static_cast<LineEvaluation*>(evaluation)->appendText(out)
                                      : appendEvaluated(*evaluation, out);
  if (!done) out.append(unevaluatedText());
  return done;
}

void DocumentParameters::appendReported(std::string_view name, const Parameter& parameter,
                                        LineWriter& out) {
  const WrittenName written(name);
  listener_->ReferenceLookedUp(written, parameter.type.Get(), parameter.evaluation);
  const std::size_t start = out.text().size();
  const bool done = appendValue(name, parameter, out);
  const Source source = !done                             ? Source::NotEvaluated
                        : parameter.evaluation != nullptr ? Source::Evaluation
                        : parameter.type                  ? Source::FormattedParameter
                                                          : Source::Parameter;
  listener_->ReferenceReplaced(written, source, out.text().substr(start));
}

std::optional<ParameterNumber> DocumentParameters::number(std::string_view name) {
  if (listener_ != nullptr) {
    listener_->ReferenceLookedUp(WrittenName(name), nullptr, nullptr);
  }
  const auto value = parameterValue(feature_, name);
  if (listener_ != nullptr && value) listener_->ValueFound(*value, nullptr);
  return value ? numberOf(*value) : std::nullopt;
}

void DocumentParameters::textDropped(std::string_view name, std::string_view text) {
  if (listener_ == nullptr) return;
  listener_->TextDropped(WrittenName(name), WrittenName(text));
}

}  // namespace ppword
