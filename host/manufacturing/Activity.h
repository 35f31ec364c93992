#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Manufacturing/KEPIMfgActivity.h"
#include "Manufacturing/KEPIMfgParameterAccess.h"
#include "host/system/TextHash.h"

namespace host {

/// The named values of an object, behind one of the two parameter interfaces.
template <class Interface>
class ParameterTable final : public Interface {
 public:
  explicit ParameterTable(KEPBaseUnknown& owner) { this->BindTo(owner); }

  [[nodiscard]] int GetValue(std::string_view name, KEPMfgParameterValue& value) const override {
    const auto found = values_.find(name);
    if (found == values_.end()) return 1;
    value = found->second;
    return 0;
  }
  void set(std::string_view name, KEPMfgParameterValue value) {
    values_.insert_or_assign(std::string(name), std::move(value));
  }
  [[nodiscard]] bool holds(std::string_view name) const { return values_.contains(name); }

 private:
  TextMap<KEPMfgParameterValue> values_;
};

/// An activity of a program with its parameters.
class KEP_PLATFORM Activity final : public KEPIMfgActivity {
 public:
  [[nodiscard]] static KEPVar<Activity> create(std::string_view name);
  /// A virtual activity, which stands for `real` (null: for none).
  [[nodiscard]] static KEPVar<Activity> createVirtual(std::string_view name,
                                                      KEPIMfgActivity_var real);

  [[nodiscard]] KEPUnicodeString GetName() const override { return {name_}; }
  HRESULT GetToolAndAssembly(KEPBaseUnknown_var& tool, KEPBaseUnknown_var& assembly) const override;

  /// The parameters that a user added; asked first.
  [[nodiscard]] ParameterTable<KEPIMfgCustomParameters>& customParameters() noexcept {
    return customParameters_;
  }
  /// The activity's own parameters.
  [[nodiscard]] ParameterTable<KEPIMfgV4ToV5Parameters>& parameters() noexcept {
    return parameters_;
  }
  [[nodiscard]] bool knows(std::string_view name) const {
    return customParameters_.holds(name) || parameters_.holds(name);
  }

 private:
  class Virtual final : public KEPIMfgVirtualActivity {
   public:
    Virtual(Activity& owner, KEPIMfgActivity_var real) : real_(std::move(real)) { BindTo(owner); }
    [[nodiscard]] KEPIMfgActivity_var GetRealActivity() const override { return real_; }

   private:
    KEPIMfgActivity_var real_;
  };

  explicit Activity(std::string_view name) : name_(name) {}
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override;

  std::string name_;
  ParameterTable<KEPIMfgCustomParameters> customParameters_{*this};
  ParameterTable<KEPIMfgV4ToV5Parameters> parameters_{*this};
  std::optional<Virtual> virtual_;
};

/// Typed values.
[[nodiscard]] KEP_PLATFORM KEPMfgParameterValue integerValue(int value);
[[nodiscard]] KEP_PLATFORM KEPMfgParameterValue realValue(double value);
[[nodiscard]] KEP_PLATFORM KEPMfgParameterValue textValue(std::string_view value);

}  // namespace host
