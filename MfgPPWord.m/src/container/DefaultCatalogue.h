#pragma once

#include <array>
#include <span>
#include <string_view>

#include "ObjectSpecsModeler/KEPIContainer.h"

namespace ppword {

/// Creates every type of the default catalogue that the container lacks, and sets the few
/// instructions marked for update to their default lines. Other types that exist do not change.
void createDefaultCatalogue(const KEPIContainer_var& container);

/// Marks a type that is created only where it is missing.
inline constexpr int kNew = 0;

/// A type of the default catalogue: a parameter type or an NC instruction.
struct CatalogueRow {
  std::string_view name;
  /// The one attribute that the type declares: kSyntaxe makes it an NC instruction. Empty for a
  /// parameter type that declares none.
  std::string_view attribute;
  /// The values of the attribute, up to the first empty text.
  std::array<std::string_view, 10> values;
  /// kNew, or the mode of the update service that brings an NC instruction to these lines.
  int updateMode = kNew;
};

/// The types in the order in which they are created.
extern const std::span<const CatalogueRow> kDefaultCatalogue;

}  // namespace ppword
