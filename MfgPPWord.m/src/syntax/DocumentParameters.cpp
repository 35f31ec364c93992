#include "src/syntax/DocumentParameters.h"

#include <cmath>
#include <optional>

#include "KEPIMfgParameterEvaluation.h"
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

[[gnu::always_inline]] inline bool appendEvaluation(KEPIMfgParameterEvaluation& evaluation,
                                                    LineWriter& out) {
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
                                       const KEPIMfgPPWordContainer_var& container)
    : feature_(feature), container_(KEPBorrow<KEPIContainer>(container.Get())) {}

void DocumentParameters::appendText(std::string_view name, LineWriter& out) {
  const auto type = KEPISpecObject_var::Adopt(container_->FindStartUp(name));
  // Held by its type.
  auto* const evaluation = KEPBorrow<KEPIMfgParameterEvaluation>(type.Get());
  if (listener_ != nullptr) return appendReported(name, type, evaluation, out);
  static_cast<void>(appendValue(name, type, evaluation, out));
}

[[gnu::always_inline]] inline bool DocumentParameters::appendValue(
    std::string_view name, const KEPISpecObject_var& type, KEPIMfgParameterEvaluation* evaluation,
    LineWriter& out) {
  const bool done = evaluation != nullptr ? appendEvaluation(*evaluation, out)
                                          : appendLookedUp(name, feature_, type, listener_, out);
  if (!done) out.append(unevaluatedText());
  return done;
}

void DocumentParameters::appendReported(std::string_view name, const KEPISpecObject_var& type,
                                        KEPIMfgParameterEvaluation* evaluation, LineWriter& out) {
  const WrittenName written(name);
  listener_->ReferenceLookedUp(written, type.Get(), evaluation);
  const std::size_t start = out.text().size();
  const bool done = appendValue(name, type, evaluation, out);
  const Source source = !done                   ? Source::NotEvaluated
                        : evaluation != nullptr ? Source::Evaluation
                        : type                  ? Source::FormattedParameter
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
