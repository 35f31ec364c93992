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

/// What a query of an attribute asks for: an entry of its list.
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

// The query for a text would copy it.
[[gnu::always_inline]] inline const KEPUnicodeString* ParameterContext::format() const {
  const auto* const attributes = KEPBorrow<KEPISpecAttrAccess>(type_);
  if (attributes == nullptr) KEPRaiseNullHandle();
  return attributes->FindText("Format");
}

bool ParameterContext::print(double number, KEPString& text) const {
  const KEPUnicodeString* const own = format();
  const bool done = own != nullptr && printNumber(*own, number, text.Edit());
  return done || KEPMfgPPWordListener::ReportLack(Lack::Format);
}

bool ParameterContext::printBuffered(const KEPBaseUnknown& evaluation,
                                     const KEPMetaClass* bufferClass, BufferNumber read,
                                     FormatSource source, KEPString& text) {
  const ParameterContext parameter = of(evaluation);
  const KEPBaseUnknown* const numbers = parameter.buffer(bufferClass);
  if (numbers == nullptr) return false;
  KEPUnicodeString ofGeneration;
  const bool isSet = source != FormatSource::Type && findGenerationFormat(source, ofGeneration);
  const KEPUnicodeString* const format = isSet ? &ofGeneration : parameter.format();
  const bool done = format != nullptr && printNumber(*format, read(*numbers), text.Edit());
  return done || KEPMfgPPWordListener::ReportLack(Lack::Format);
}

}  // namespace ppword
