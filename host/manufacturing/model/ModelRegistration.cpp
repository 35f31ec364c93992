#include <type_traits>

#include "Manufacturing/KEPIMfgInsert.h"
#include "host/manufacturing/Activity.h"
#include "host/manufacturing/operation/FeedrateParameters.h"
#include "host/manufacturing/operation/LatheOperation.h"
#include "host/manufacturing/operation/SequentialMotions.h"
#include "host/manufacturing/operation/ToolChange.h"
#include "host/manufacturing/operation/ToolPath.h"
#include "host/manufacturing/tool/Tool.h"
#include "host/manufacturing/tool/ToolAssembly.h"
#include "host/system/Dictionary.h"

namespace host {
namespace {

/// The values of a component of the model; null for any other component.
template <class Values>
const Values* valuesOf(const KEPBaseUnknown* component) {
  if constexpr (std::is_same_v<Values, ActivityValues>) {
    const auto* const activity = dynamic_cast<const Activity*>(component);
    return activity == nullptr ? nullptr : &activity->values();
  } else {
    const auto* const object = dynamic_cast<const ModelObject<Values>*>(component);
    return object == nullptr ? nullptr : &object->values();
  }
}

template <class Extension, class Part>
KEPBaseUnknown* extend(KEPBaseUnknown& component, const Part& part) {
  auto* const extension = new Extension(part);
  extension->BindTo(component);
  return extension;
}

/// Makes an extension from all values of its component.
template <class Extension, class Values>
KEPBaseUnknown* createFromAll(KEPBaseUnknown* component) {
  const auto* const values = valuesOf<Values>(component);
  return values == nullptr ? nullptr : extend<Extension>(*component, *values);
}

template <class Member>
struct MemberOf;
template <class OwnerValues, class Part>
struct MemberOf<Part OwnerValues::*> {
  using Values = OwnerValues;
};

template <class Extension, class Part>
KEPBaseUnknown* extendIfSet(KEPBaseUnknown& component, const std::optional<Part>& part) {
  return part ? extend<Extension>(component, *part) : nullptr;
}
template <class Extension, class Part>
KEPBaseUnknown* extendIfSet(KEPBaseUnknown& component, const Part& part) {
  return extend<Extension>(component, part);
}

/// Makes an extension from one of the values of its component, if that is there.
template <class Extension, auto kPart>
KEPBaseUnknown* create(KEPBaseUnknown* component) {
  const auto* const values = valuesOf<typename MemberOf<decltype(kPart)>::Values>(component);
  return values == nullptr ? nullptr : extendIfSet<Extension>(*component, values->*kPart);
}

/// Enters a class in the dictionary as the provider of its interface for a type.
template <class Extension>
void fill(std::string_view className, const ModelType& type, KEPCreator creator) {
  const auto* const interfaceClass = KEPInterfaceId<typename Extension::Interface>();
  KEPMetaClass*& metaObject = Extension::metaObject;
  if (metaObject == nullptr) {
    metaObject = new KEPMetaClass(className, KEPMetaClass::TypeOfClass::DataExtension,
                                  interfaceClass, type.name, "Manufacturing");
  } else {
    metaObject->Extend(type.name);
  }
  KEPFillDictionary(metaObject, interfaceClass, creator, nullptr, 1);
}

struct Row {
  const ModelType& type;
  std::string_view className;
  KEPCreator creator;
  void (*fill)(std::string_view, const ModelType&, KEPCreator);
};

template <class Extension, auto kPart>
constexpr Row row(const ModelType& type, std::string_view className) {
  return {type, className, create<Extension, kPart>, fill<Extension>};
}
template <class Extension, class Values>
constexpr Row row(const ModelType& type, std::string_view className) {
  return {type, className, createFromAll<Extension, Values>, fill<Extension>};
}

using StrategyParameters = ParameterTable<KEPIMfgStrategyParameters>;
using GeomParameters = ParameterTable<KEPIMfgGeomParameters>;
using OutputParameters = ParameterTable<KEPIMfgV4ToV5Parameters>;
using Tool = ParameterTable<KEPIMfgTool>;
using Insert = ParameterTable<KEPIMfgInsert>;
using Activities = ActivityValues;
using Motion = SequentialMotionValues;
using Assembly = ToolAssemblyValues;

/// Which class gives which component its interface.
constexpr Row kRows[] = {
    row<ToolChange, Activities>(model::kToolChange, "ToolChange"),
    row<MachiningOperation, Activities>(model::kMachiningOperation, "MachiningOperation"),
    row<FeedrateParameters, &Activities::feedsAndSpeeds>(model::kMachiningOperation,
                                                         "FeedrateParameters"),
    row<StrategyParameters, &Activities::strategy>(model::kMachiningOperation,
                                                   "StrategyParameters"),
    row<ToolPathManagement, Activities>(model::kMachiningOperation, "ToolPathManagement"),
    row<TurningEnvironment, &Activities::turning>(model::kMachiningOperation, "TurningEnvironment"),
    row<LatheOperation, Activities>(model::kLatheOperation, "LatheOperation"),
    row<SequentialMotions, &Activities::motions>(model::kSequentialAxialOperation,
                                                 "SequentialMotions"),
    row<SequentialMotions, &Activities::motions>(model::kSequentialGrooveOperation,
                                                 "SequentialMotions"),
    row<Sequence, SequenceValues>(model::kSequence, "Sequence"),
    row<SequentialMotionParameters, Motion>(model::kSequentialMotion, "SequentialMotionParameters"),
    row<FeedrateParameters, &Motion::feedsAndSpeeds>(model::kSequentialMotion,
                                                     "FeedrateParameters"),
    row<StrategyParameters, &Motion::strategy>(model::kSequentialMotion, "StrategyParameters"),
    row<Traject, ToolPathValues>(model::kToolPath, "Traject"),
    row<Tool, &ToolValues::parameters>(model::kTool, "Tool"),
    row<OutputParameters, &ToolValues::parameters>(model::kTool, "OutputParameters"),
    row<ToolCompensation, &ToolValues::compensation>(model::kTool, "ToolCompensation"),
    row<ToolReplay, &ToolValues::replay>(model::kTool, "ToolReplay"),
    row<ToolAssembly, Assembly>(model::kToolAssembly, "ToolAssembly"),
    row<GeomParameters, &Assembly::parameters>(model::kToolAssembly, "GeomParameters"),
    row<OutputParameters, &Assembly::parameters>(model::kToolAssembly, "OutputParameters"),
    row<LatheToolAssembly, Assembly>(model::kLatheToolAssembly, "LatheToolAssembly"),
    row<LatheRefCompensation, &Assembly::reference>(model::kLatheToolAssembly,
                                                    "LatheRefCompensation"),
    row<LatheToolInsertUtilities, &Assembly::radii>(model::kLatheToolAssembly,
                                                    "LatheToolInsertUtilities"),
    row<Insert, &InsertValues::dimensions>(model::kInsert, "Insert"),
    row<InsertResource, InsertValues>(model::kInsert, "InsertResource"),
    row<OutputParameters, &InsertValues::parameters>(model::kInsert, "OutputParameters"),
};

bool registerModel() {
  for (const Row& row : kRows) row.fill(row.className, row.type, row.creator);
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
