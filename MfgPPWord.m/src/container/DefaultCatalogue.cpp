#include "src/container/DefaultCatalogue.h"

#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "src/container/TypeTree.h"

namespace ppword {
namespace {

using Kind = KEPISpecAttribute::Kind;

/// The values of a row up to the first empty one.
KEPListValKEPString valuesOf(const CatalogueRow& row) {
  KEPListValKEPString values;
  for (const std::string_view value : row.values) {
    if (value.empty()) break;
    values.Append(KEPString(value));
  }
  return values;
}

class Catalogue {
 public:
  explicit Catalogue(const KEPIContainer_var& container)
      : container_(container),
        parameterRoot_(parameterRoot(container)),
        syntaxRoot_(syntaxRoot(container)) {}

  void apply(const CatalogueRow& row) const {
    if (row.updateMode != kNew) {
      update(row);
    } else if (!findType(container_, row.name)) {
      create(row);
    }
  }

 private:
  void create(const CatalogueRow& row) const {
    const auto& base = row.attribute == kSyntaxe ? syntaxRoot_ : parameterRoot_;
    if (row.attribute.empty()) {
      createType(container_, row.name, base);
    } else if (row.attribute == kFormat) {
      const auto type = createType(container_, row.name, base, kFormat, Kind::String);
      KEPMfgAttributeUtilities::SetString(type, kFormat, row.values.front());
    } else {
      const auto type = createType(container_, row.name, base, row.attribute, Kind::StringList);
      KEPMfgAttributeUtilities::SetStringListString(type, row.attribute, valuesOf(row));
    }
  }

  void update(const CatalogueRow& row) const {
    const KEPListValKEPString lines = valuesOf(row);
    if (lines.Size() == 1) {
      KEPMfgAttributeUtilities::StandardUpdateForPPWordContainer(container_, syntaxRoot_, row.name,
                                                                 lines[1], row.updateMode);
    } else {
      KEPMfgAttributeUtilities::StandardUpdateForPPWordContainerList(
          container_, syntaxRoot_, row.name, lines, row.updateMode);
    }
  }

  const KEPIContainer_var& container_;
  KEPISpecObject_var parameterRoot_;
  KEPISpecObject_var syntaxRoot_;
};

}  // namespace

void createDefaultCatalogue(const KEPIContainer_var& container) {
  const Catalogue catalogue(container);
  for (const CatalogueRow& row : kDefaultCatalogue) catalogue.apply(row);
}

}  // namespace ppword
