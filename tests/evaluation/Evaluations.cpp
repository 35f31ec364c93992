#include "tests/evaluation/Evaluations.h"

#include <deque>

#include "ObjectSpecsModeler/KEPILifeCycleObject.h"
#include "host/system/Dictionary.h"

namespace ppword::test {
namespace {

constexpr const char* kContainerType = "MfgPPWordCont";

/// A late type that extends what the module's container offers by nothing but these interfaces.
std::string lateTypeOffering(std::initializer_list<const KEPMetaClass*> interfaces) {
  // Meta-objects live as long as the process.
  static auto& classes = *new std::deque<KEPMetaClass>;
  std::string lateType = "TestWords" + std::to_string(classes.size());
  const KEPMetaClass& made = classes.emplace_back(
      lateType + "Class", KEPMetaClass::TypeOfClass::DataExtension, nullptr, lateType, "Test");
  for (const KEPMetaClass* offered : interfaces) {
    KEPFillDictionary(&made, offered, host::findCreator(kContainerType, offered), nullptr, 1);
  }
  const KEPMetaClass* const container = KEPInterfaceId<KEPIMfgPPWordContainer>();
  KEPFillDictionary(&made, container, host::findCreator(kContainerType, container), nullptr, 1);
  return lateType;
}

}  // namespace

BareWords::BareWords(host::Document& document, std::initializer_list<const KEPMetaClass*> buffers)
    : features(KEPIContainer_var::Adopt(new host::Container(document, lateTypeOffering(buffers)))),
      words(features) {}

Evaluations::Evaluations() = default;
Evaluations::~Evaluations() {
  host::setCurrentGeneratorData(nullptr);
  KEPError::KEPCleanLastError();
}

KEPISpecAttrAccess_var Evaluations::declared(std::string_view name, std::string_view attribute,
                                             KEPISpecAttribute::Kind kind) const {
  if (!find(name)) make(name, "MfgPPParameter");
  KEPISpecAttrAccess_var type = find(name);
  type->AddAttribute(attribute, kind);
  return type;
}

void Evaluations::setFormat(std::string_view name, std::string_view printFormat) const {
  const auto type = declared(name, "Format", KEPISpecAttribute::Kind::String);
  type->SetString("Format", printFormat);
}

void Evaluations::setList(std::string_view name, const Texts& items) const {
  const auto type = declared(name, "MultiListValue", KEPISpecAttribute::Kind::StringList);
  type->SetList("MultiListValue", list(items));
}

void Evaluations::moveTo(const BareWords& other) {
  features = other.features;
  words = other.words;
}

std::string Evaluations::value(std::string_view name) const {
  const KEPISpecObject_var parameter = find(name);
  const auto generation = KEPMfgGeneratorData::GetCurrentKEPIMfgGeneratorData();
  const auto references = [&] {
    return TestObject::references() + parameter->GetReferenceCount() + words->GetReferenceCount() +
           (generation ? generation->GetReferenceCount() : 0);
  };
  const int before = references();
  std::string text = evaluated(parameter);
  EXPECT_EQ(references(), before) << name;
  return text;
}

std::string Evaluations::valueOutside(std::string_view name) const {
  const KEPISpecObject_var parameter = find(name);
  KEPILifeCycleObject_var(parameter)->remove();
  return evaluated(parameter);
}

KEPVar<TestObject> newActivity(std::initializer_list<const char*> kinds) {
  auto made = object(kinds);
  made->add<TestActivity>();
  return made;
}

KEPVar<TestObject> toolChangeFor(const KEPVar<TestObject>& operation) {
  const auto sequence = object();
  sequence->add<TestSequence>().operation = operation;
  auto made = newActivity();
  made->add<TestToolChange>().sequence = sequence;
  return made;
}

KEPVar<TestObject> feedrates(std::string_view name, std::string_view value, std::string_view type) {
  auto made = object();
  made->add<TestFeedrates>().parameters[std::string(name)] =
      host::createKnowledgeParameter(value, type);
  return made;
}

}  // namespace ppword::test
