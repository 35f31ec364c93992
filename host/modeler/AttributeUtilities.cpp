#include <optional>

#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"

namespace {

using Kind = KEPISpecAttribute::Kind;

constexpr int kWholeText = -1;
constexpr int kListEntry = 2;

/// The attribute of that name and kind; nothing when the feature does not declare it so.
std::optional<KEPISpecAttribute> attribute(const KEPISpecAttrAccess_var& feature,
                                           std::string_view name, Kind kind) {
  auto found = feature->FindAttribute(name);
  return found && found->GetKind() == kind ? found : std::nullopt;
}

/// What a query for a text that is not set gives.
[[gnu::noinline]] HRESULT missingText(const KEPISpecAttrAccess& attributes, std::string_view name) {
  const auto declared = attributes.FindAttribute(name);
  return declared && declared->GetKind() == Kind::String ? S_OK : E_FAIL;
}

HRESULT readText(const KEPISpecAttrAccess& attributes, std::string_view name, int& found,
                 KEPUnicodeString& text) {
  const KEPUnicodeString* const value = attributes.FindText(name);
  if (value == nullptr) return missingText(attributes, name);
  text = *value;
  found = 1;
  return S_OK;
}

[[gnu::noinline]] HRESULT readEntry(const KEPISpecAttrAccess& attributes, std::string_view name,
                                    int entry, int& found, KEPUnicodeString& text) {
  const auto list = attributes.FindAttribute(name);
  if (!list || !list->IsAList()) return E_FAIL;
  const KEPListValKEPUnicodeString& texts = list->GetTexts();
  if (entry < 1 || entry > texts.Size()) return S_OK;
  text = texts[entry];
  found = 1;
  return S_OK;
}

KEPListValKEPUnicodeString unicode(const KEPListValKEPString& items) {
  KEPListValKEPUnicodeString texts;
  for (const KEPString& item : items) texts.Append(KEPUnicodeString(item.View()));
  return texts;
}

}  // namespace

HRESULT KEPMfgAttributeUtilities::SetString(const KEPISpecObject_var& feature,
                                            std::string_view name, std::string_view text) {
  return KEPISpecAttrAccess_var(feature)->SetString(name, text);
}

HRESULT KEPMfgAttributeUtilities::GetString(const KEPISpecObject_var& feature,
                                            std::string_view name, bool& found,
                                            KEPUnicodeString& text) {
  const auto value = attribute(feature, name, Kind::String);
  found = value && value->IsSet();
  if (found) text = value->GetTexts()[1];
  return value ? S_OK : E_FAIL;
}

HRESULT KEPMfgAttributeUtilities::SetInteger(const KEPISpecObject_var& feature,
                                             std::string_view name, int value) {
  return KEPISpecAttrAccess_var(feature)->SetInteger(name, value);
}

HRESULT KEPMfgAttributeUtilities::GetInteger(const KEPISpecObject_var& feature,
                                             std::string_view name, bool& found, int& value) {
  const auto integer = attribute(feature, name, Kind::Integer);
  found = integer && integer->IsSet();
  if (found) value = integer->GetInteger();
  return integer ? S_OK : E_FAIL;
}

HRESULT KEPMfgAttributeUtilities::SetStringListString(const KEPISpecObject_var& feature,
                                                      std::string_view name,
                                                      const KEPListValKEPString& items) {
  return KEPISpecAttrAccess_var(feature)->SetList(name, unicode(items));
}

HRESULT KEPMfgAttributeUtilities::RemoveAll(const KEPISpecObject_var& feature,
                                            std::string_view name) {
  return KEPISpecAttrAccess_var(feature)->RemoveAll(name);
}

HRESULT KEPMfgAttributeUtilities::UnsetAttributeValue(const KEPISpecObject_var& feature,
                                                      std::string_view name) {
  return KEPISpecAttrAccess_var(feature)->Unset(name);
}

HRESULT KEPMfgAttributeUtilities::StandardQueryForPPWordEvaluation(
    const KEPBaseUnknown_var& feature, int kind, std::string_view name, int entry, int& found,
    KEPUnicodeString& text) {
  const auto* const attributes = KEPBorrow<KEPISpecAttrAccess>(feature.Get());
  if (attributes == nullptr) KEPRaiseNullHandle();
  return kind == kWholeText   ? readText(*attributes, name, found, text)
         : kind == kListEntry ? readEntry(*attributes, name, entry, found, text)
                              : E_FAIL;
}

HRESULT KEPMfgAttributeUtilities::StandardUpdateForPPWordContainer(
    const KEPIContainer_var& container, const KEPISpecObject_var& syntaxType,
    std::string_view instruction, std::string_view line, int mode) {
  KEPListValKEPString lines;
  lines.Append(KEPString(line));
  return StandardUpdateForPPWordContainerList(container, syntaxType, instruction, lines, mode);
}

HRESULT KEPMfgAttributeUtilities::StandardUpdateForPPWordContainerList(
    const KEPIContainer_var& container, const KEPISpecObject_var& syntaxType,
    std::string_view instruction, const KEPListValKEPString& lines, int /*mode*/) {
  auto type = KEPISpecObject_var::Adopt(container->FindStartUp(instruction));
  if (!type) type = KEPISpecObject_var::Adopt(container->CreateStartUp(instruction, syntaxType));
  const KEPISpecAttrAccess_var attributes(type);
  attributes->AddAttribute("Syntaxe", Kind::StringList);
  return attributes->SetList("Syntaxe", unicode(lines));
}
