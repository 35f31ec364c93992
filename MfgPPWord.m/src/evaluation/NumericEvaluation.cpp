#include "src/evaluation/NumericEvaluation.h"

#include <algorithm>
#include <string>
#include <utility>

#include "Manufacturing/KEPIMfgGeneratorData.h"
#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "language/number/NumberFormat.h"

namespace ppword {
namespace {

/// The integer that the output settings are asked with: the format of the NC data output.
constexpr int kNcDataFormat = 1;
constexpr int kNoEntry = -1;

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

/// The format that holds for a parameter type: the generation's for points and axes, otherwise the
/// "Format" attribute. False when there is none.
bool findFormat(const KEPBaseUnknown_var& parameter, FormatSource source,
                KEPUnicodeString& format) {
  if (source != FormatSource::Attribute && findGenerationFormat(source, format)) return true;
  int found = 0;
  const HRESULT status = KEPMfgAttributeUtilities::StandardQueryForPPWordEvaluation(
      parameter, kNoEntry, "Format", kNoEntry, found, format);
  return KEPSucceeded(status) && found != 0;
}

}  // namespace

bool evaluateNumber(const KEPBaseUnknown& evaluation, const KEPMetaClass* buffer, BufferNumber read,
                    FormatSource source, KEPString& value) {
  const auto* const parameter = KEPBorrow<KEPISpecObject>(&evaluation);
  if (parameter == nullptr) KEPRaiseNullHandle();
  // A PP word container is one that offers motion buffers.
  const KEPIContainer* const container = parameter->GetContainer();
  if (container == nullptr) return false;
  const KEPBaseUnknown* const numbers = container->FindInterface(buffer);
  if (numbers == nullptr) return false;
  KEPUnicodeString format;
  return findFormat(evaluation.GetImpl(), source, format) &&
         printNumber(format, read(*numbers), value.Edit());
}

bool printWithAttribute(const KEPBaseUnknown_var& parameter, double number, KEPString& value) {
  KEPUnicodeString format;
  return findFormat(parameter, FormatSource::Attribute, format) &&
         printNumber(format, number, value.Edit());
}

}  // namespace ppword
