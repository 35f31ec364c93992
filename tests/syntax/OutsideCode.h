#pragma once

#include <functional>
#include <string>

#include "KEPIMfgParameterEvaluation.h"
#include "Manufacturing/KEPIMfgGeneratorData.h"
#include "System/KEPComponent.h"

/// Code that an application brings beside the module: an evaluation, a motion buffer and the data
/// of a generation, which change documents while they are asked.
namespace ppword::test::changing {

/// The type of containers, and a parameter, that the code extends.
inline constexpr const char* kLateType = "ChangingWords";
inline constexpr const char* kHook = "CHANGE_HOOK";

/// Is called by all of it; does what the running step wants.
inline std::function<void()> fromOutside = [] {};

class HookSettings final : public KEPIMfgOutputSettings {
 public:
  [[nodiscard]] KEPUnicodeString GetPointFormat(int) const override {
    fromOutside();
    return points;
  }
  [[nodiscard]] KEPUnicodeString GetAxisFormat(int) const override { return axes; }
  KEPUnicodeString points, axes;
};

class HookGeneration final : public KEPIMfgGeneratorData {
 public:
  [[nodiscard]] KEPIMfgOutputSettings_var GetOutputSettings() const override { return settings; }
  void GetAngleFactor(double& factor) const override { factor = 2.0; }
  KEPVar<HookSettings> settings = KEPVar<HookSettings>::Adopt(new HookSettings);
};

/// A class that extends a late type; lives as long as the process.
const KEPMetaClass& extensionOf(const std::string& lateType);

void enter(const KEPMetaClass& meta, const KEPMetaClass* offered, KEPCreator creator);

/// Makes an evaluation that calls `fromOutside`, also when it ends.
KEPBaseUnknown* createHook(KEPBaseUnknown* extended);

/// Registers the code, once a process.
void registerOutsideCode();

}  // namespace ppword::test::changing
