#include "host/modeler/Container.h"

#include "host/modeler/Document.h"
#include "host/system/Dictionary.h"

namespace host {

Container::Container(Document& document, std::string_view lateType)
    : document_(&document), lateType_(lateType) {}

Container::~Container() { close(); }

KEPISpecObject* Container::FindStartUp(std::string_view name) const {
  const auto found = types_.find(name);
  if (found == types_.end()) return nullptr;
  found->second->AddRef();
  return found->second;
}

KEPISpecObject* Container::CreateStartUp(std::string_view name, const KEPISpecObject_var& base) {
  if (name.empty() || types_.contains(name)) return nullptr;
  Feature* const type = addMember(Feature::Kind::StartUp, name, base);
  types_.emplace(std::string(name), type);
  return type;
}

KEPISpecObject* Container::CreateInstance(const KEPISpecObject_var& type, std::string_view name) {
  return addMember(Feature::Kind::Instance, name, KEPISpecObject_var(&*type));
}

Feature* Container::addMember(Feature::Kind kind, std::string_view name,
                              const KEPISpecObject_var& type) {
  KEPVar<Feature> typeFeature(static_cast<Feature*>(type.Get()));
  auto* const feature = new Feature(kind, name, std::move(typeFeature), *this);
  feature->place_ = members_.insert(members_.end(), KEPVar<Feature>(feature));
  return feature;
}

std::vector<KEPBaseUnknown_var> Container::ListMembersHere(
    const KEPMetaClass* interfaceClass) const {
  std::vector<KEPBaseUnknown_var> answers;
  for (const KEPVar<Feature>& member : members_) {
    auto answer = KEPBaseUnknown_var::Adopt(member->QueryInterface(interfaceClass));
    if (answer) answers.push_back(std::move(answer));
  }
  return answers;
}

KEPIDocument_var Container::GetDocument() const { return KEPIDocument_var(document_); }

void Container::removeMember(Feature& member) {
  if (member.kind_ == Feature::Kind::StartUp) types_.erase(types_.find(member.name_));
  member.container_ = nullptr;
  members_.erase(member.place_);
}

void Container::close() {
  document_ = nullptr;
  while (!members_.empty()) removeMember(*members_.back());
}

KEPBaseUnknown* Container::Answer(const KEPMetaClass* interfaceClass) {
  if (interfaceClass == KEPInterfaceId<KEPIContainer>()) return this;
  const KEPCreator creator = findCreator(lateType_, interfaceClass);
  return creator == nullptr ? nullptr : extensions_.make(creator, *this);
}

}  // namespace host
