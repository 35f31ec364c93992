#pragma once

#include <string_view>

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"

namespace ppword {

/// The types that every other one derives from, and the attributes that types declare.
inline constexpr std::string_view kWordRoot = "MfgPPWordRoot";
inline constexpr std::string_view kSyntaxRoot = "MfgPPSyntax";
inline constexpr std::string_view kParameterRoot = "MfgPPParameter";
inline constexpr std::string_view kSyntaxe = "Syntaxe";
inline constexpr std::string_view kFormat = "Format";
inline constexpr std::string_view kMultiListValue = "MultiListValue";

/// The type of that name in a container; null when there is none.
[[nodiscard]] KEPISpecObject_var findType(const KEPIContainer_var& container,
                                          std::string_view name);

/// The three root types, each created when the container lacks it.
[[nodiscard]] KEPISpecObject_var wordRoot(const KEPIContainer_var& container);
[[nodiscard]] KEPISpecObject_var syntaxRoot(const KEPIContainer_var& container);
[[nodiscard]] KEPISpecObject_var parameterRoot(const KEPIContainer_var& container);

/// Creates a type that the container lacks; it declares nothing yet.
KEPISpecObject_var createType(const KEPIContainer_var& container, std::string_view name,
                              const KEPISpecObject_var& base);

/// Creates a type that the container lacks, with one declared and unset attribute.
KEPISpecObject_var createType(const KEPIContainer_var& container, std::string_view name,
                              const KEPISpecObject_var& base, std::string_view attribute,
                              KEPISpecAttribute::Kind kind);

}  // namespace ppword
