#include "src/evaluation/NumericEvaluation.h"

#include <algorithm>
#include <optional>
#include <string>

#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPIMfgGeneratorData.h"
#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "Manufacturing/KEPMfgModelUtilities.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "src/number/NumberFormat.h"

namespace ppword {
namespace {

/// The integer that the output settings are asked with: the format of the NC data output.
constexpr int kNcDataFormat = 1;
constexpr int kNoEntry = -1;

std::string withDecimalPoints(std::string_view format) {
  std::string text(format);
  std::replace(text.begin(), text.end(), ',', '.');
  return text;
}

/// The format that the running generation sets for points or axes; empty when it sets none.
std::string generationFormat(FormatSource source) {
  const auto generation = KEPMfgGeneratorData::GetCurrentKEPIMfgGeneratorData();
  if (!generation) return {};
  const KEPIMfgOutputSettings_var settings = generation->GetOutputSettings();
  if (!settings) return {};
  return withDecimalPoints(source == FormatSource::Points
                               ? settings->GetPointFormat(kNcDataFormat)
                               : settings->GetAxisFormat(kNcDataFormat));
}

/// The "Format" attribute of a parameter type; nothing when it has none.
std::optional<KEPUnicodeString> formatAttribute(const KEPISpecObject_var& parameter) {
  int found = 0;
  KEPUnicodeString format;
  const HRESULT status = KEPMfgAttributeUtilities::StandardQueryForPPWordEvaluation(
      parameter, kNoEntry, "Format", kNoEntry, found, format);
  if (KEPFailed(status) || found == 0) return std::nullopt;
  return format;
}

std::optional<std::string> print(const KEPISpecObject_var& parameter, FormatSource source,
                                 double number) {
  if (source != FormatSource::Attribute) {
    const std::string format = generationFormat(source);
    if (!format.empty()) return printNumber(format, number);
  }
  const auto format = formatAttribute(parameter);
  return format ? printNumber(*format, number) : std::nullopt;
}

}  // namespace

bool evaluateNumber(const KEPBaseUnknown& evaluation, const KEPMetaClass* buffer, BufferNumber read,
                    FormatSource source, KEPString& value) {
  const auto parameter = KEPISpecObject_var::Of(evaluation.GetImpl());
  if (!parameter) KEPRaiseNullHandle();
  KEPIMfgPPWordContainer_var container;
  KEPMfgModelUtilities::GetPPWordContainer(parameter, container);
  if (!container) return false;
  const auto numbers = KEPBaseUnknown_var::Adopt(container->QueryInterface(buffer));
  if (!numbers) return false;
  auto text = print(parameter, source, read(*numbers));
  if (!text) return false;
  value = KEPString(std::move(*text));
  return true;
}

}  // namespace ppword
