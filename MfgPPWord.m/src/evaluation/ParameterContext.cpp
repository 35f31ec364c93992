#include "src/evaluation/ParameterContext.h"

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

bool ParameterContext::findWord(int entry, KEPUnicodeString& word) const {
  int found = 0;
  const HRESULT status = KEPMfgAttributeUtilities::StandardQueryForPPWordEvaluation(
      type_, kListEntry, "MultiListValue", entry, found, word);
  return (KEPSucceeded(status) && found != 0) || KEPMfgPPWordListener::ReportLack(Lack::Entry);
}

bool ParameterContext::setWord(int entry, ParameterText& text) const {
  KEPUnicodeString word;
  if (!findWord(entry, word)) return false;
  text.set(word.View());
  return true;
}

bool ParameterContext::findFormat(KEPUnicodeString& format) const {
  int found = 0;
  const HRESULT status = KEPMfgAttributeUtilities::StandardQueryForPPWordEvaluation(
      type_, kWholeText, "Format", kNoEntry, found, format);
  return KEPSucceeded(status) && found != 0;
}

bool ParameterContext::print(double number, ParameterText& text) const {
  KEPUnicodeString format;
  std::string digits;
  const bool done = findFormat(format) && printNumber(format, number, digits);
  if (!done) return KEPMfgPPWordListener::ReportLack(Lack::Format);
  text.set(digits);
  return true;
}

}  // namespace ppword
