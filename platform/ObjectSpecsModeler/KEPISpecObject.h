#pragma once

#include <optional>
#include <string_view>

#include "System/KEPComponent.h"
#include "System/KEPList.h"
#include "System/KEPPlatform.h"

class KEPIContainer;

/// Names of the modeler's own bookkeeping attributes, which may be anywhere among the others.
inline constexpr std::string_view kKEPOsmExtensions = "$OSM_Xts";
inline constexpr std::string_view kKEPOsmLocalExtensions = "$OSM_LocalXts";

/// One attribute of a feature as it is now: its name, its kind and the feature's value for it, own
/// or inherited. A view: valid until an attribute of the feature or of one of its base types is
/// declared, written or unset.
class KEPISpecAttribute {
 public:
  enum class Kind { String, Integer, StringList };

  KEPISpecAttribute(std::string_view name, Kind kind, const KEPListValKEPUnicodeString* texts,
                    int integer)
      : name_(name), kind_(kind), texts_(texts), integer_(integer) {}

  [[nodiscard]] std::string_view GetName() const noexcept { return name_; }
  [[nodiscard]] Kind GetKind() const noexcept { return kind_; }
  [[nodiscard]] bool IsAList() const noexcept { return kind_ == Kind::StringList; }
  /// True when the feature or one of its base types has set a value.
  [[nodiscard]] bool IsSet() const noexcept { return texts_ != nullptr; }

  /// The items of a list attribute in order; the text of a string attribute as the one entry of
  /// the list; an empty list when no value is set.
  [[nodiscard]] const KEPListValKEPUnicodeString& GetTexts() const noexcept {
    static const KEPListValKEPUnicodeString kNone;
    return texts_ == nullptr ? kNone : *texts_;
  }
  /// The value of an integer attribute; 0 when no value is set.
  [[nodiscard]] int GetInteger() const noexcept { return integer_; }

 private:
  std::string_view name_;
  Kind kind_;
  const KEPListValKEPUnicodeString* texts_;
  int integer_;
};

/// A feature of a container: a type (start-up) or an instance of one.
class KEP_PLATFORM KEPISpecObject : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPISpecObject";

  /// The name of a type or of an instance; that of an instance may be empty.
  [[nodiscard]] virtual std::string_view GetName() const = 0;

  /// Of a type its base type, of an instance its type; null for a root type.
  [[nodiscard]] virtual KEPVar<KEPISpecObject> GetBaseType() const = 0;

  /// The name of the feature's late type: of a type its own name, of an instance the name of its
  /// type.
  [[nodiscard]] virtual std::string_view GetLateType() const = 0;

  /// The container that holds the feature, not counted; null once the feature is removed or its
  /// document closed.
  [[nodiscard]] virtual KEPIContainer* GetContainer() const = 0;

  /// The number of declared attributes, inherited ones included.
  [[nodiscard]] virtual int GetNumberOfAttributes() const = 0;

  /// The attribute at a position from 1 to the number of attributes: those of the base types come
  /// first, each group in its listing order. A position outside raises the host's error.
  [[nodiscard]] virtual KEPISpecAttribute GetAttribute(int position) const = 0;
};

using KEPISpecObject_var = KEPVar<KEPISpecObject>;

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
