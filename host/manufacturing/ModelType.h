#pragma once

#include <string_view>

namespace host {

/// A late type of the manufacturing model and the type that it is based on (null: none).
struct ModelType {
  std::string_view name;
  const ModelType* base = nullptr;

  /// True when the type, or one that it is based on, has this name.
  [[nodiscard]] constexpr bool isKindOf(std::string_view kind) const {
    for (const ModelType* type = this; type != nullptr; type = type->base) {
      if (type->name == kind) return true;
    }
    return false;
  }
};

namespace model {

inline constexpr ModelType kActivity{"MfgActivity"};
inline constexpr ModelType kToolChange{"MfgToolChange", &kActivity};
inline constexpr ModelType kMachiningOperation{"MfgMachiningOperation", &kActivity};
inline constexpr ModelType kLatheOperation{"MfgLatheOperation", &kMachiningOperation};
inline constexpr ModelType kSequentialAxialOperation{"MfgSequentialAxialOperation",
                                                     &kMachiningOperation};
inline constexpr ModelType kSequentialGrooveOperation{"MfgSequentialGrooveOperation",
                                                      &kLatheOperation};
inline constexpr ModelType kSequence{"MfgSequence"};
inline constexpr ModelType kSequentialMotion{"MfgSequentialMotion"};
inline constexpr ModelType kToolPath{"MfgToolPath"};
inline constexpr ModelType kTool{"MfgTool"};
inline constexpr ModelType kToolAssembly{"MfgToolAssembly"};
inline constexpr ModelType kLatheToolAssembly{"MfgLatheToolAssembly", &kToolAssembly};
inline constexpr ModelType kInsert{"MfgInsert"};

}  // namespace model
}  // namespace host
