#pragma once

#include <optional>
#include <string_view>

#include "ObjectSpecsModeler/KEPISpecAttribute.h"
#include "System/KEPComponent.h"
#include "System/KEPPlatform.h"

/// The attributes of a feature by name. Writing sets the feature's own value, which its instances
/// and derived types inherit. Every function fails and changes nothing when the name is not
/// declared on the feature or on a base type, and when a value of another kind is written.
class KEP_PLATFORM KEPISpecAttrAccess : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPISpecAttrAccess";

  /// Declares an attribute on the feature, after those that it has. Declaring a name again has no
  /// effect and succeeds.
  virtual HRESULT AddAttribute(std::string_view name, KEPISpecAttribute::Kind kind) = 0;

  /// The attribute with this name; empty when none is declared.
  [[nodiscard]] virtual std::optional<KEPISpecAttribute> FindAttribute(
      std::string_view name) const = 0;

  /// The text of the string attribute with this name; null when none is declared or no value is
  /// set. Valid as long as the view KEPISpecAttribute would be.
  [[nodiscard]] virtual const KEPUnicodeString* FindText(std::string_view name) const = 0;

  /// Sets a string attribute. In a list attribute this text becomes the only item.
  virtual HRESULT SetString(std::string_view name, std::string_view text) = 0;
  virtual HRESULT SetInteger(std::string_view name, int value) = 0;

  /// Replaces the items of a list attribute.
  virtual HRESULT SetList(std::string_view name, const KEPListValKEPUnicodeString& items) = 0;
  /// Appends an item to a list attribute; an inherited list is copied first.
  virtual HRESULT AppendToList(std::string_view name, std::string_view item) = 0;

  /// Leaves a list attribute set and empty.
  virtual HRESULT RemoveAll(std::string_view name) = 0;
  /// Removes the feature's own value; the declaration stays, and an inherited value applies again.
  virtual HRESULT Unset(std::string_view name) = 0;
};

using KEPISpecAttrAccess_var = KEPVar<KEPISpecAttrAccess>;
