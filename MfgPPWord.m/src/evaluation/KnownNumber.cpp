#include "src/evaluation/KnownNumber.h"

#include <algorithm>
#include <string>
#include <utility>

#include "Manufacturing/KEPMfgPPWordListener.h"
#include "language/number/NumberFormat.h"
#include "src/evaluation/ParameterContext.h"

namespace ppword {
namespace {

/// The integer that the output settings are asked with: the format of the NC data output.
constexpr int kNcDataFormat = 1;

/// The format that the running generation sets for points or axes, with "." for every ",". False,
/// with `format` untouched, when it sets none.
bool findGenerationFormat(FormatSource source, KEPUnicodeString& format) {
  const auto generation = KEPMfgGeneratorData::GetCurrentKEPIMfgGeneratorData();
  if (!generation) return false;
  const KEPIMfgOutputSettings_var settings = generation->GetOutputSettings();
  if (!settings) return false;
  const KEPUnicodeString own = source == FormatSource::Points
                                   ? settings->GetPointFormat(kNcDataFormat)
                                   : settings->GetAxisFormat(kNcDataFormat);
  if (own.IsEmpty()) return false;
  std::string text(own.View());
  std::replace(text.begin(), text.end(), ',', '.');
  format = KEPUnicodeString(std::move(text));
  return true;
}

void reportUsed(const KEPUnicodeString& format) {
  auto* const listener = KEPMfgPPWordListener::Current();
  if (listener != nullptr) listener->GenerationFormatUsed(format);
}

bool reportFormat() { return KEPMfgPPWordListener::ReportLack(KEPMfgPPWordListener::Lack::Format); }

/// Most numbers are printed by the format itself.
[[gnu::noinline]] bool appendLong(PlainFixed format, double number, LineWriter& out) {
  std::string text;
  if (!printNumber(format, number, text)) return reportFormat();
  out.append(text);
  return true;
}

}  // namespace

bool KnownNumber::print(const Wanted& wanted, KEPString& text) {
  const auto found = find(wanted);
  if (!found) return false;
  const double number = wanted.read(*found->buffer);
  const bool done = found->plain ? printNumber(*found->plain, number, text.Edit())
                                 : printNumber(found->text, number, text.Edit());
  return done || reportFormat();
}

bool KnownNumber::append(const Wanted& wanted, LineWriter& out) {
  const auto found = find(wanted);
  if (!found) return false;
  const double number = wanted.read(*found->buffer);
  if (found->plain) return append(*found->plain, number, out);
  std::string text;
  if (!printNumber(found->text, number, text)) return reportFormat();
  out.append(text);
  return true;
}

void KnownNumber::findBuffer(const Wanted& wanted) {
  const auto parameter = ParameterContext::of(wanted.evaluation);
  mark_.set(parameter.container());
  isFormatKnown_ = false;
  buffer_ = parameter.buffer(wanted.bufferClass);
  if (buffer_ == nullptr) mark_.clear();
}

std::optional<KnownNumber::Found> KnownNumber::find(const Wanted& wanted) {
  if (!mark_.isCurrent()) findBuffer(wanted);
  // Whoever is asked for a format may evaluate this very parameter.
  Found found{buffer_, std::nullopt, {}};
  if (found.buffer == nullptr) return std::nullopt;
  if (wanted.source != FormatSource::Type && findGenerationFormat(wanted.source, found.text)) {
    reportUsed(found.text);
    found.plain = PlainFixed::parse(found.text);
    return found;
  }
  if (isFormatKnown_ && mark_.isCurrent()) {
    found.plain = format_;
    return found;
  }
  const bool isSet = ParameterContext::of(wanted.evaluation).findFormat(found.text);
  if (!isSet) return reportFormat(), std::nullopt;
  found.plain = PlainFixed::parse(found.text);
  isFormatKnown_ = found.plain.has_value();
  format_ = found.plain.value_or(PlainFixed());
  return found;
}

bool KnownNumber::append(PlainFixed format, double number, LineWriter& out) {
  char* const end = format.print(number, out.space(PlainFixed::kCapacity));
  if (end == nullptr) return appendLong(format, number, out);
  out.advance(end);
  return true;
}

}  // namespace ppword
