#include "src/evaluation/ParameterContext.h"

#include <algorithm>
#include <string>
#include <utility>

#include "Manufacturing/KEPIMfgGeneratorData.h"
#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "Manufacturing/KEPMfgModelUtilities.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "language/number/NumberFormat.h"

namespace ppword {
namespace {

using Lack = KEPMfgPPWordListener::Lack;

// What a query of an attribute asks for: its text, or an entry of its list.
constexpr int kWholeText = -1;
constexpr int kNoEntry = -1;
constexpr int kListEntry = 2;

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

}  // namespace

ParameterContext ParameterContext::of(const KEPBaseUnknown& evaluation) {
  auto* const type = KEPBorrow<KEPISpecObject>(&evaluation);
  if (type == nullptr) KEPRaiseNullHandle();
  return ParameterContext(type);
}

ParameterContext ParameterContext::ofAny(const KEPBaseUnknown& evaluation) {
  return ParameterContext(KEPBorrow<KEPISpecObject>(&evaluation));
}

KEPIMfgActivity_var ParameterContext::activity() const {
  KEPIMfgActivity_var current;
  KEPMfgModelUtilities::GetCurrentActivity(KEPIMfgPPWordContainer_var::Of(container_), current);
  return current;
}

bool ParameterContext::readWord(int entry, KEPString& word) const {
  int found = 0;
  KEPUnicodeString text;
  const HRESULT status = KEPMfgAttributeUtilities::StandardQueryForPPWordEvaluation(
      type_, kListEntry, "MultiListValue", entry, found, text);
  if (KEPFailed(status) || found == 0) return KEPMfgPPWordListener::ReportLack(Lack::Entry);
  word = KEPString(text.View());
  return true;
}

[[gnu::always_inline]] inline bool ParameterContext::findFormat(KEPUnicodeString& format) const {
  int found = 0;
  const HRESULT status = KEPMfgAttributeUtilities::StandardQueryForPPWordEvaluation(
      type_, kWholeText, "Format", kNoEntry, found, format);
  return KEPSucceeded(status) && found != 0;
}

bool ParameterContext::print(double number, KEPString& text) const {
  KEPUnicodeString format;
  const bool done = findFormat(format) && printNumber(format, number, text.Edit());
  return done || KEPMfgPPWordListener::ReportLack(Lack::Format);
}

bool ParameterContext::printBuffered(const KEPBaseUnknown& evaluation,
                                     const KEPMetaClass* bufferClass, BufferNumber read,
                                     FormatSource source, KEPString& text) {
  const ParameterContext parameter = of(evaluation);
  const KEPBaseUnknown* const numbers = parameter.buffer(bufferClass);
  if (numbers == nullptr) return false;
  KEPUnicodeString format;
  const bool isSet = (source != FormatSource::Type && findGenerationFormat(source, format)) ||
                     parameter.findFormat(format);
  const bool done = isSet && printNumber(format, read(*numbers), text.Edit());
  return done || KEPMfgPPWordListener::ReportLack(Lack::Format);
}

}  // namespace ppword
