#include "src/container/DefaultCatalogue.h"

#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "src/container/DefaultCatalogueData.h"
#include "src/container/TypeTree.h"

namespace ppword {
namespace {

using Kind = KEPISpecAttribute::Kind;

/// The texts of a row up to the first empty one.
template <class Texts>
KEPListValKEPString listOf(const Texts& texts) {
  KEPListValKEPString list;
  for (const std::string_view text : texts) {
    if (text.empty()) break;
    list.Append(KEPString(text));
  }
  return list;
}

class Catalogue {
 public:
  explicit Catalogue(const KEPIContainer_var& container)
      : container_(container),
        parameterRoot_(parameterRoot(container)),
        syntaxRoot_(syntaxRoot(container)) {}

  void make(const Stretch& stretch) const {
    const std::size_t count = stretch.last - stretch.first + 1;
    if (stretch.rows == Stretch::Rows::Parameters) {
      for (const auto& row : kDefaultParameters.subspan(stretch.first - 1, count)) make(row);
    } else {
      for (const auto& row : kDefaultInstructions.subspan(stretch.first - 1, count)) make(row);
    }
  }

 private:
  void make(const ParameterRow& row) const {
    if (findType(container_, row.name)) return;
    if (row.attribute == kFormat) {
      const auto type = makeType(container_, row.name, parameterRoot_, kFormat, Kind::String);
      KEPMfgAttributeUtilities::SetString(type, kFormat, row.values.front());
    } else if (row.attribute == kMultiListValue) {
      makeWithList(row.name, parameterRoot_, kMultiListValue, listOf(row.values));
    } else {
      makeType(container_, row.name, parameterRoot_);
    }
  }

  void make(const InstructionRow& row) const {
    if (row.updateMode != kNew) return update(row);
    if (findType(container_, row.name)) return;
    makeWithList(row.name, syntaxRoot_, kSyntaxe, listOf(row.lines));
  }

  void makeWithList(std::string_view name, const KEPISpecObject_var& base,
                    std::string_view attribute, const KEPListValKEPString& items) const {
    const auto type = makeType(container_, name, base, attribute, Kind::StringList);
    KEPMfgAttributeUtilities::SetStringListString(type, attribute, items);
  }

  void update(const InstructionRow& row) const {
    const KEPListValKEPString lines = listOf(row.lines);
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
  for (const Stretch& stretch : kMakingOrder) catalogue.make(stretch);
}

}  // namespace ppword
