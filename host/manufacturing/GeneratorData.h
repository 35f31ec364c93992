#pragma once

#include <optional>
#include <string_view>

#include "Manufacturing/KEPIMfgGeneratorData.h"

namespace host {

/// What a generation is set up with: the formats of points and tool axes (empty: none).
class KEP_PLATFORM GeneratorData final : public KEPIMfgGeneratorData {
 public:
  /// A generation with output settings.
  [[nodiscard]] static KEPVar<GeneratorData> create(std::string_view pointFormat,
                                                    std::string_view axisFormat);

  [[nodiscard]] KEPIMfgOutputSettings_var GetOutputSettings() const override { return settings_; }
  void GetAngleFactor(double& factor) const override { factor = angleFactor_.value_or(factor); }
  void setAngleFactor(double factor) noexcept;

 private:
  explicit GeneratorData(KEPIMfgOutputSettings_var settings) : settings_(std::move(settings)) {}
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override;

  KEPIMfgOutputSettings_var settings_;
  std::optional<double> angleFactor_;
};

/// Makes `data` (null: none) the data of the running generation.
KEP_PLATFORM void setCurrentGeneratorData(KEPIMfgGeneratorData_var data);

}  // namespace host
