#pragma once

#include <string_view>

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPList.h"
#include "System/KEPPlatform.h"
#include "System/KEPString.h"

/// Attributes of features by name. A negative status means that the feature does not declare the
/// attribute, or declares it with another kind; nothing is then changed. A null feature raises the
/// null-handle error.
class KEP_PLATFORM KEPMfgAttributeUtilities {
 public:
  /// Sets a string attribute. In a list attribute this text becomes the only item.
  static HRESULT SetString(const KEPISpecObject_var& feature, std::string_view name,
                           std::string_view text);
  /// Reads a string attribute. `found` becomes true when a value is set; otherwise `text` is
  /// untouched.
  static HRESULT GetString(const KEPISpecObject_var& feature, std::string_view name, bool& found,
                           KEPUnicodeString& text);
  static HRESULT SetInteger(const KEPISpecObject_var& feature, std::string_view name, int value);
  /// Reads an integer attribute. `found` becomes true when a value is set; otherwise `value` is
  /// untouched.
  static HRESULT GetInteger(const KEPISpecObject_var& feature, std::string_view name, bool& found,
                            int& value);
  /// Replaces the items of a list attribute.
  static HRESULT SetStringListString(const KEPISpecObject_var& feature, std::string_view name,
                                     const KEPListValKEPString& items);
  /// Leaves a list attribute set and empty.
  static HRESULT RemoveAll(const KEPISpecObject_var& feature, std::string_view name);
  /// Removes the feature's own value; the declaration stays. Fails only when the attribute is not
  /// declared.
  static HRESULT UnsetAttributeValue(const KEPISpecObject_var& feature, std::string_view name);

  /// Reads an attribute of a parameter type for its evaluation.
  ///   kind  -1: the text of the string attribute `name`; `entry` is then -1
  ///          2: the entry (from 1) of the list attribute `name`
  /// `found` becomes 1 when the attribute has such a value; otherwise `text` is untouched.
  static HRESULT StandardQueryForPPWordEvaluation(const KEPBaseUnknown_var& feature, int kind,
                                                  std::string_view name, int entry, int& found,
                                                  KEPUnicodeString& text);

  /// Sets the list attribute "Syntaxe" of an NC instruction to one line or to a list of lines. If
  /// the type or the attribute is missing, it creates the type under `syntaxType` and declares the
  /// attribute. `mode` is 1 or 2, which makes no difference.
  static HRESULT StandardUpdateForPPWordContainer(const KEPIContainer_var& container,
                                                  const KEPISpecObject_var& syntaxType,
                                                  std::string_view instruction,
                                                  std::string_view line, int mode);
  static HRESULT StandardUpdateForPPWordContainerList(const KEPIContainer_var& container,
                                                      const KEPISpecObject_var& syntaxType,
                                                      std::string_view instruction,
                                                      const KEPListValKEPString& lines, int mode);
};
