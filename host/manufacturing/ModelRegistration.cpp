#include <functional>
#include <optional>

#include "Manufacturing/KEPIMfgInsert.h"
#include "host/manufacturing/Activity.h"
#include "host/manufacturing/OperationExtensions.h"
#include "host/manufacturing/ToolChange.h"
#include "host/manufacturing/ToolExtensions.h"
#include "host/system/Dictionary.h"

namespace host {
namespace {

template <class Extension, class Part>
KEPBaseUnknown* extend(KEPBaseUnknown& component, const Part& part) {
  auto* const extension = new Extension(part);
  extension->BindTo(component);
  return extension;
}
template <class Extension, class Part>
KEPBaseUnknown* extend(KEPBaseUnknown& component, const std::optional<Part>& part) {
  return part ? extend<Extension>(component, *part) : nullptr;
}

/// Creates an extension from the values of its component, or from one of them if that is set. Null
/// for a component that was not made from such values.
template <class Extension, class Values, auto kPart>
KEPBaseUnknown* create(KEPBaseUnknown* component) {
  const auto* const made = dynamic_cast<const ModelValues<Values>*>(component);
  return made == nullptr ? nullptr
                         : extend<Extension>(*component, std::invoke(kPart, made->values()));
}

/// A class and a type of component for which it serves its interface.
struct Row {
  const ModelType& type;
  std::string_view className;
  const KEPMetaClass* (*interfaceClass)();
  KEPMetaClass*& metaObject;
  KEPCreator creator;
};

template <class Extension, class Values, auto kPart = std::identity{}>
constexpr Row row(const ModelType& type, std::string_view className) {
  return {type, className, &KEPInterfaceId<typename Extension::Interface>, Extension::metaObject,
          &create<Extension, Values, kPart>};
}

using namespace model;  // NOLINT(google-build-using-namespace)
using StrategyParameters = ParameterTable<KEPIMfgStrategyParameters>;
using GeomParameters = ParameterTable<KEPIMfgGeomParameters>;
using OutputParameters = ParameterTable<KEPIMfgV4ToV5Parameters>;
using Tool = ParameterTable<KEPIMfgTool>;
using Insert = ParameterTable<KEPIMfgInsert>;
using Motion = SequentialMotionValues;
using Assembly = ToolAssemblyValues;

/// Which class serves its interface for which component.
constexpr Row kRows[] = {
    row<ToolChange, ActivityValues>(kToolChange, "ToolChange"),
    row<MachiningOperation, ActivityValues>(kMachiningOperation, "MachiningOperation"),
    row<FeedrateParameters, ActivityValues, &ActivityValues::feedsAndSpeeds>(kMachiningOperation,
                                                                             "FeedrateParameters"),
    row<StrategyParameters, ActivityValues, &ActivityValues::strategy>(kMachiningOperation,
                                                                       "StrategyParameters"),
    row<ToolPathManagement, ActivityValues>(kMachiningOperation, "ToolPathManagement"),
    row<TurningEnvironment, ActivityValues, &ActivityValues::turning>(kMachiningOperation,
                                                                      "TurningEnvironment"),
    row<LatheOperation, ActivityValues>(kLatheOperation, "LatheOperation"),
    row<LatheOperation, ActivityValues, &ActivityValues::lathe>(kMachiningOperation,
                                                                "LatheOperation"),
    row<SequentialMotions, ActivityValues, &ActivityValues::motions>(kSequentialAxialOperation,
                                                                     "SequentialMotions"),
    row<SequentialMotions, ActivityValues, &ActivityValues::motions>(kSequentialGrooveOperation,
                                                                     "SequentialMotions"),
    row<Sequence, SequenceValues>(kSequence, "Sequence"),
    row<SequentialMotionParameters, Motion>(kSequentialMotion, "SequentialMotionParameters"),
    row<FeedrateParameters, Motion, &Motion::feedsAndSpeeds>(kSequentialMotion,
                                                             "FeedrateParameters"),
    row<StrategyParameters, Motion, &Motion::strategy>(kSequentialMotion, "StrategyParameters"),
    row<Traject, ToolPathValues>(kToolPath, "Traject"),
    row<Tool, ToolValues, &ToolValues::parameters>(kTool, "Tool"),
    row<OutputParameters, ToolValues, &ToolValues::parameters>(kTool, "OutputParameters"),
    row<ToolCompensation, ToolValues, &ToolValues::compensation>(kTool, "ToolCompensation"),
    row<ToolReplay, ToolValues, &ToolValues::replay>(kTool, "ToolReplay"),
    row<ToolAssembly, Assembly>(kToolAssembly, "ToolAssembly"),
    row<GeomParameters, Assembly, &Assembly::parameters>(kToolAssembly, "GeomParameters"),
    row<OutputParameters, Assembly, &Assembly::parameters>(kToolAssembly, "OutputParameters"),
    row<LatheToolAssembly, Assembly>(kLatheToolAssembly, "LatheToolAssembly"),
    row<LatheRefCompensation, Assembly, &Assembly::reference>(kToolAssembly,
                                                              "LatheRefCompensation"),
    row<LatheToolInsertUtilities, Assembly, &Assembly::radii>(kToolAssembly,
                                                              "LatheToolInsertUtilities"),
    row<Insert, InsertValues, &InsertValues::dimensions>(kInsert, "Insert"),
    row<InsertResource, InsertValues>(kInsert, "InsertResource"),
    row<OutputParameters, InsertValues, &InsertValues::parameters>(kInsert, "OutputParameters"),
};

void fill(const Row& row) {
  if (row.metaObject == nullptr) {
    row.metaObject = new KEPMetaClass(row.className, KEPMetaClass::TypeOfClass::DataExtension,
                                      row.interfaceClass(), row.type.name, "Manufacturing");
  } else {
    row.metaObject->Extend(row.type.name);
  }
  KEPFillDictionary(row.metaObject, row.interfaceClass(), row.creator, nullptr, 1);
}

bool registerModel() {
  for (const Row& row : kRows) fill(row);
  return true;
}

}  // namespace

KEPBaseUnknown* extendModelObject(const ModelType& type, const KEPMetaClass* interfaceClass,
                                  KEPBaseUnknown& object, Extensions& extensions) {
  static const bool isRegistered = registerModel();
  static_cast<void>(isRegistered);
  for (const ModelType* kind = &type; kind != nullptr; kind = kind->base) {
    if (const KEPCreator creator = findCreator(kind->name, interfaceClass)) {
      return extensions.make(creator, object);
    }
  }
  return nullptr;
}

}  // namespace host
