#include "host/manufacturing/Activity.h"

#include <array>
#include <utility>

#include "Manufacturing/KEPIMfgToolAssembly.h"

namespace host {
namespace {

/// In the order of ActivityKind.
constexpr std::array<const ModelType*, 6> kTypes{&model::kActivity,
                                                 &model::kToolChange,
                                                 &model::kMachiningOperation,
                                                 &model::kLatheOperation,
                                                 &model::kSequentialAxialOperation,
                                                 &model::kSequentialGrooveOperation};

const ModelType& typeOf(ActivityKind kind) { return *kTypes[static_cast<std::size_t>(kind)]; }

const ModelType& typeOf(const ToolAssemblyValues& assembly) {
  return assembly.isLathe ? model::kLatheToolAssembly : model::kToolAssembly;
}

KEPBaseUnknown_var insertOf(const KEPIMfgToolAssembly_var& assembly) {
  return assembly ? assembly->GetInsert() : nullptr;
}

bool carries(const KEPIMfgV4ToV5Parameters_var& parameters, std::string_view name) {
  KEPMfgParameterValue value;
  return parameters && parameters->GetValue(name, value) == 0;
}

}  // namespace

Activity::Activity(ActivityValues values)
    : ModelObject(typeOf(values.kind), std::move(values)),
      customParameters_(this->values().customParameters),
      parameters_(this->values().parameters) {
  customParameters_.BindTo(*this);
  parameters_.BindTo(*this);
  if (const auto& tool = this->values().tool) tool_ = createModelObject(model::kTool, *tool);
  if (const auto& assembly = this->values().assembly) {
    assembly_ = createModelObject(typeOf(*assembly), *assembly);
  }
}

KEPVar<Activity> Activity::create(ActivityValues values) {
  return KEPVar<Activity>::Adopt(new Activity(std::move(values)));
}

KEPVar<Activity> Activity::create(std::string_view name) {
  ActivityValues values;
  values.name = name;
  return create(std::move(values));
}

KEPVar<Activity> Activity::createVirtual(std::string_view name, KEPIMfgActivity_var real) {
  KEPVar<Activity> activity = create(name);
  activity->virtual_.emplace(*activity, std::move(real));
  return activity;
}

HRESULT Activity::GetToolAndAssembly(KEPBaseUnknown_var& tool, KEPBaseUnknown_var& assembly) const {
  tool = tool_;
  assembly = assembly_;
  return tool || assembly ? S_OK : E_FAIL;
}

KEPBaseUnknown_var Activity::ownerOf(std::string_view name) const {
  if (customParameters_.holds(name) || parameters_.holds(name)) return KEPBaseUnknown_var::Of(this);
  for (const KEPBaseUnknown_var& object : {tool_, assembly_, insertOf(assembly_)}) {
    if (carries(object, name)) return object;
  }
  return nullptr;
}

KEPBaseUnknown* Activity::Answer(const KEPMetaClass* interfaceClass) {
  if (interfaceClass == KEPInterfaceId<KEPIMfgActivity>()) return this;
  if (interfaceClass == KEPInterfaceId<KEPIMfgCustomParameters>()) return &customParameters_;
  if (interfaceClass == KEPInterfaceId<KEPIMfgV4ToV5Parameters>()) return &parameters_;
  const bool isStandIn = interfaceClass == KEPInterfaceId<KEPIMfgVirtualActivity>();
  if (isStandIn && virtual_) return &*virtual_;
  return ModelObject::Answer(interfaceClass);
}

KEPMfgParameterValue integerValue(int value) {
  return {KEPMfgParameterValue::kInteger, value, 0.0, {}};
}

KEPMfgParameterValue realValue(double value) { return {KEPMfgParameterValue::kReal, 0, value, {}}; }

KEPMfgParameterValue textValue(std::string_view value) {
  return {KEPMfgParameterValue::kText, 0, 0.0, KEPUnicodeString(value)};
}

}  // namespace host
