#pragma once

#include <string_view>

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPList.h"
#include "System/KEPPlatform.h"
#include "System/KEPResult.h"
#include "System/KEPUnicodeString.h"

/// Attributes of features by name. A negative status means that the feature does not declare the
/// attribute, or declares it with another kind; nothing is changed then. A null feature raises the
/// null-handle error.
class KEP_PLATFORM KEPMfgAttributeUtilities {
 public:
  /// Sets a string attribute; a list attribute holds exactly this one item afterwards.
  static HRESULT SetString(const KEPISpecObject_var& feature, std::string_view name,
                           std::string_view text);
  /// Reads a string attribute. `found` tells whether a value is set; `text` is untouched when not.
  static HRESULT GetString(const KEPISpecObject_var& feature, std::string_view name, bool& found,
                           KEPUnicodeString& text);
  static HRESULT SetInteger(const KEPISpecObject_var& feature, std::string_view name, int value);
  /// Reads an integer attribute. `found` tells whether a value is set; `value` is untouched when
  /// not.
  static HRESULT GetInteger(const KEPISpecObject_var& feature, std::string_view name, bool& found,
                            int& value);
  /// Replaces the items of a list attribute.
  static HRESULT SetStringListString(const KEPISpecObject_var& feature, std::string_view name,
                                     const KEPListValKEPString& items);
  /// Leaves a list attribute set and empty.
  static HRESULT RemoveAll(const KEPISpecObject_var& feature, std::string_view name);
  /// Removes the feature's own value and keeps the declaration. Fails exactly when the attribute
  /// is not declared.
  static HRESULT UnsetAttributeValue(const KEPISpecObject_var& feature, std::string_view name);

  /// Reads an attribute of a parameter type for its evaluation.
  ///   kind  -1: the text of the string attribute `name`; `entry` is then -1
  ///          2: the entry (from 1) of the list attribute `name`
  /// `found` becomes 1 when the attribute holds such a value; `text` is untouched otherwise.
  static HRESULT StandardQueryForPPWordEvaluation(const KEPBaseUnknown_var& feature, int kind,
                                                  std::string_view name, int entry, int& found,
                                                  KEPUnicodeString& text);

  /// Sets the list attribute "Syntaxe" of an NC instruction to the given line or lines, declaring
  /// the attribute and making the type under `syntaxType` where missing. `mode` is 1 or 2, to the
  /// same effect.
  static HRESULT StandardUpdateForPPWordContainer(const KEPIContainer_var& container,
                                                  const KEPISpecObject_var& syntaxType,
                                                  std::string_view instruction,
                                                  std::string_view line, int mode);
  static HRESULT StandardUpdateForPPWordContainerList(const KEPIContainer_var& container,
                                                      const KEPISpecObject_var& syntaxType,
                                                      std::string_view instruction,
                                                      const KEPListValKEPString& lines, int mode);
};
