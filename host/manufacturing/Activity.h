#pragma once

#include <optional>
#include <string_view>
#include <utility>

#include "Manufacturing/KEPIMfgActivity.h"
#include "host/manufacturing/ParameterTable.h"

namespace host {

/// An activity of a program with its parameters and, as its values say, its tool, the assembly that
/// holds it and what its kind of operation has.
class KEP_PLATFORM Activity final : public ModelObject<ActivityValues, KEPIMfgActivity> {
 public:
  [[nodiscard]] static KEPVar<Activity> create(ActivityValues values);
  /// An activity of no particular kind.
  [[nodiscard]] static KEPVar<Activity> create(std::string_view name);
  /// A virtual activity, which represents `real` (null: for none).
  [[nodiscard]] static KEPVar<Activity> createVirtual(std::string_view name,
                                                      KEPIMfgActivity_var real);

  [[nodiscard]] KEPUnicodeString GetName() const override { return {values().name}; }
  HRESULT GetToolAndAssembly(KEPBaseUnknown_var& tool, KEPBaseUnknown_var& assembly) const override;

  /// The parameters that a user added; asked first.
  [[nodiscard]] ParameterTable<KEPIMfgCustomParameters>& customParameters() noexcept {
    return customParameters_;
  }
  /// The activity's own parameters.
  [[nodiscard]] ParameterTable<KEPIMfgV4ToV5Parameters>& parameters() noexcept {
    return parameters_;
  }
  /// The object that carries a parameter: the activity, its tool, the assembly or its insert, asked
  /// in this order; null when none does.
  [[nodiscard]] KEPBaseUnknown_var ownerOf(std::string_view name) const;

 private:
  class Virtual final : public KEPIMfgVirtualActivity {
   public:
    Virtual(Activity& owner, KEPIMfgActivity_var real) : real_(std::move(real)) { BindTo(owner); }
    [[nodiscard]] KEPIMfgActivity_var GetRealActivity() const override { return real_; }

   private:
    KEPIMfgActivity_var real_;
  };

  explicit Activity(ActivityValues values);
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override;

  ParameterTable<KEPIMfgCustomParameters> customParameters_;
  ParameterTable<KEPIMfgV4ToV5Parameters> parameters_;
  KEPBaseUnknown_var tool_;
  KEPBaseUnknown_var assembly_;
  std::optional<Virtual> virtual_;
};

/// Typed values.
[[nodiscard]] KEP_PLATFORM KEPMfgParameterValue integerValue(int value);
[[nodiscard]] KEP_PLATFORM KEPMfgParameterValue realValue(double value);
[[nodiscard]] KEP_PLATFORM KEPMfgParameterValue textValue(std::string_view value);

}  // namespace host
