#include "src/syntax/ParameterValue.h"

#include <string_view>
#include <utility>

#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPIMfgParameterAccess.h"
#include "Manufacturing/KEPMfgDesignParameter.h"
#include "Manufacturing/KEPMfgModelUtilities.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "language/number/NumberFormat.h"
#include "language/syntax/Characters.h"

namespace ppword {
namespace {

using Lack = KEPMfgPPWordListener::Lack;

/// The activity that the document is generating; the real one where a virtual one stands for it.
KEPIMfgActivity_var currentActivity(const KEPISpecObject_var& feature) {
  KEPIMfgRootContainer_var root;
  KEPMfgModelUtilities::GetRootContainer(feature, root);
  if (!root) return nullptr;
  const KEPIMfgPPWordContainer_var words = root->GetPPWordContainer();
  if (!words) return nullptr;
  KEPIMfgActivity_var activity;
  KEPMfgModelUtilities::GetCurrentActivity(words, activity);
  const KEPIMfgVirtualActivity_var standIn = activity;
  return standIn ? standIn->GetRealActivity() : activity;
}

/// Asks an object through one of its parameter interfaces.
template <class Interface>
bool answers(const KEPBaseUnknown_var& object, std::string_view name, KEPMfgParameterValue& value) {
  const KEPVar<Interface> parameters = object;
  return parameters && parameters->GetValue(name, value) == 0;
}

/// Looks a parameter up on the activity, its tool, the assembly and the insert.
bool isFound(const KEPIMfgActivity_var& activity, std::string_view name,
             KEPMfgParameterValue& value) {
  KEPBaseUnknown_var object;
  KEPMfgModelUtilities::GetV5ObjectFromV4Parameter(activity, name, object);
  return object && (answers<KEPIMfgCustomParameters>(object, name, value) ||
                    answers<KEPIMfgV4ToV5Parameters>(object, name, value));
}

constexpr std::size_t kLongestText = 79;
constexpr std::string_view kDefaultFormat = "%12.6f";

/// The first `count` characters of a text.
std::string_view firstCharacters(std::string_view text, std::size_t count) {
  std::size_t seen = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (KEPUnicodeString::StartsCharacter(text[i]) && seen++ == count) return text.substr(0, i);
  }
  return text;
}

/// The longest beginning of at most `count` bytes that ends with a whole character.
std::string_view wholeCharacters(std::string_view text, std::size_t count) {
  if (text.size() <= count) return text;
  std::size_t end = count;
  while (end > 0 && !KEPUnicodeString::StartsCharacter(text[end])) --end;
  return text.substr(0, end);
}

std::optional<std::string> realText(double value, std::string_view format) {
  std::string text;
  return printNumber(format, value, text) ? std::optional(std::move(text)) : std::nullopt;
}

}  // namespace

std::optional<KEPMfgParameterValue> parameterValue(const KEPISpecObject_var& feature,
                                                   std::string_view name) {
  const std::string_view plain = withoutBlanks(name);
  KEPMfgParameterValue value;
  if (plain.starts_with('(')) {
    const HRESULT status = KEPMfgDesignParameter::GetExtendedValue(feature, plain, value);
    if (KEPSucceeded(status)) return value;
    KEPMfgPPWordListener::ReportLack(Lack::DesignParameter);
    return std::nullopt;
  }
  const KEPIMfgActivity_var activity = currentActivity(feature);
  if (activity && isFound(activity, plain, value)) return value;
  KEPMfgPPWordListener::ReportLack(activity ? Lack::Parameter : Lack::Activity);
  return std::nullopt;
}

std::optional<std::string> valueText(const KEPMfgParameterValue& value,
                                     const std::optional<KEPUnicodeString>& format) {
  switch (value.kind) {
    case KEPMfgParameterValue::kInteger:
      return std::to_string(value.integer);
    case KEPMfgParameterValue::kReal:
      return realText(value.real, format ? format->View() : kDefaultFormat);
    case KEPMfgParameterValue::kText:
      // deliberate: with a format only the characters are counted, not the bytes.
      return std::string(format ? firstCharacters(value.text, kLongestText)
                                : wholeCharacters(value.text, kLongestText));
    default:
      return std::nullopt;
  }
}

}  // namespace ppword
