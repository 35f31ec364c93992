#pragma once

#include <string_view>

#include "System/KEPList.h"

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
