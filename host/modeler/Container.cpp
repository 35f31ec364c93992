#include "host/modeler/Container.h"

#include "host/system/Dictionary.h"
#include "host/system/Revision.h"

namespace host {
namespace {

/// Offers the counter of all changes.
class Changes final : public KEPIRevision {
 public:
  [[nodiscard]] const Count& GetCount() const override { return Revision::count(); }
};

KEPBaseUnknown* createChanges(KEPBaseUnknown* extended) {
  auto* const changes = new Changes;
  changes->BindTo(*extended);
  return changes;
}

}  // namespace

Container::Container(ContainerOwner& document, std::string_view lateType)
    : document_(&document), lateType_(lateType) {
  document.add(*this);
}

Container::~Container() { close(); }

KEPISpecObject* Container::FindStartUp(std::string_view name) const {
  Feature* const type = types_.find(name);
  if (type != nullptr) type->AddRef();
  return type;
}

KEPISpecObject* Container::CreateStartUp(std::string_view name, const KEPISpecObject_var& base) {
  if (name.empty() || types_.find(name) != nullptr) return nullptr;
  return addMember(Feature::Kind::StartUp, name, base);
}

KEPISpecObject* Container::CreateInstance(const KEPISpecObject_var& type, std::string_view name) {
  return addMember(Feature::Kind::Instance, name, KEPISpecObject_var(&*type));
}

Feature* Container::addMember(Feature::Kind kind, std::string_view name,
                              const KEPISpecObject_var& type) {
  auto* const own = dynamic_cast<Feature*>(type.Get());
  if (type && own == nullptr) return nullptr;
  Revision::raise();
  auto feature = KEPVar<Feature>::Adopt(new Feature(kind, name, KEPVar<Feature>(own), *this));
  Feature::Members added = {feature};
  feature->place_ = added.begin();
  if (kind == Feature::Kind::StartUp) types_.insert(*feature);
  // From here on nothing fails: a type is both listed and found by its name, or neither.
  members_.splice(members_.end(), added);
  return feature.Detach();
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
  Revision::raise();
  if (member.kind_ == Feature::Kind::StartUp) types_.erase(member);
  member.container_ = nullptr;
  members_.erase(member.place_);
}

void Container::close() {
  Revision::raise();
  if (document_ != nullptr) document_->remove(*this);
  document_ = nullptr;
  while (!members_.empty()) removeMember(*members_.back());
}

KEPBaseUnknown* Container::Answer(const KEPMetaClass* interfaceClass) {
  if (interfaceClass == KEPInterfaceId<KEPIContainer>()) return this;
  const bool isCounter = interfaceClass == KEPInterfaceId<KEPIRevision>();
  const KEPCreator creator = isCounter ? &createChanges : findCreator(lateType_, interfaceClass);
  return creator == nullptr ? nullptr : extensions_.make(creator, *this);
}

}  // namespace host
