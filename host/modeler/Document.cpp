#include "host/modeler/Document.h"

#include <utility>

#include "host/modeler/FeatureOrder.h"
#include "host/system/Revision.h"

namespace host {
namespace {

/// The feature catalogue of the host: the type that PP commands are made of.
void createPPCommandType(Container& container) {
  const auto type = KEPISpecObject_var::Adopt(container.CreateStartUp("MfgPPCommand", {}));
  const KEPISpecAttrAccess_var attributes(type);
  attributes->AddAttribute("CommandName", KEPISpecAttribute::Kind::String);
  attributes->AddAttribute("SequenceNumber", KEPISpecAttribute::Kind::Integer);
}

/// Makes a copy of a document.
class Copying {
 public:
  KEPVar<Document> copy(const Document& document) {
    const auto& containers = document.containers();
    for (std::size_t place = 1; place < containers.size(); ++place) {
      copy_->addContainer(containers[place]->lateType());
    }
    homes_ = copy_->containers();
    // A type that was removed while others derive from it belongs to no container.
    nowhere_ = KEPVar<Container>::Adopt(new Container(*copy_, ""));
    const FeatureOrder order(containers);
    for (const FeatureOrder::Entry& entry : order.entries()) add(entry);
    for (const auto& [name, value] : document.designParameters()) {
      copy_->setDesignParameter(name, value);
    }
    copy_->setNeedsUpgrade(document.NeedsUpgrade());
    return copy_;
  }

 private:
  void add(const FeatureOrder::Entry& entry) {
    const Feature& feature = *entry.feature;
    Container& home = entry.container ? *homes_[*entry.container] : *nowhere_;
    const KEPISpecObject_var base(entry.base ? features_[*entry.base].Get() : nullptr);
    KEPISpecObject* const made = feature.kind() == Feature::Kind::StartUp
                                     ? home.CreateStartUp(feature.GetName(), base)
                                     : home.CreateInstance(base, feature.GetName());
    auto copied = KEPVar<Feature>::Adopt(static_cast<Feature*>(made));
    copied->setAttributes(feature.attributes());
    if (feature.isPublished()) copied->publish();
    // Its name is free again for another type.
    if (!entry.container) home.removeMember(*copied);
    features_.push_back(std::move(copied));
  }

  KEPVar<Document> copy_ = Document::createEmpty();
  std::vector<Container*> homes_;
  KEPVar<Container> nowhere_;
  std::vector<KEPVar<Feature>> features_;
};

}  // namespace

KEPVar<Document> Document::createEmpty() { return KEPVar<Document>::Adopt(new Document); }

KEPVar<Document> Document::create() {
  KEPVar<Document> document = createEmpty();
  createPPCommandType(*document->ppWords_);
  return document;
}

Document::Document()
    : root_(KEPVar<Root>::Adopt(new Root(*this))),
      ppWords_(KEPVar<Container>::Adopt(new Container(*this, "MfgPPWordCont"))) {}

Document::~Document() {
  Revision::raise();
  while (!containers().empty()) containers().back()->close();
  root_->close();
  if (const KEPIMfgPPWordContainer_var words = ppWordContainer()) {
    // What the container was told to keep may hold the container in turn, and may ask for this
    // document while it dies: it is let go when nothing leads here any more.
    words->SetObjects({});
  }
}

void Document::setNeedsUpgrade(bool needed) noexcept {
  Revision::raise();
  needsUpgrade_ = needed;
}

Container& Document::addContainer(std::string_view lateType) {
  Revision::raise();
  furtherContainers_.push_back(KEPVar<Container>::Adopt(new Container(*this, lateType)));
  return *furtherContainers_.back();
}

void Document::setDesignParameter(std::string_view name, double value) {
  Revision::raise();
  designParameters_.insert_or_assign(std::string(name), value);
}

KEPBaseUnknown* Document::Answer(const KEPMetaClass* interfaceClass) {
  return interfaceClass == KEPInterfaceId<KEPIDocument>() ? this : nullptr;
}

KEPVar<KEPIMfgPPWordContainer> Document::Root::GetPPWordContainer() const {
  return document_ == nullptr ? nullptr : document_->ppWordContainer();
}

KEPBaseUnknown* Document::Root::Answer(const KEPMetaClass* interfaceClass) {
  return interfaceClass == KEPInterfaceId<KEPIMfgRootContainer>() ? this : nullptr;
}

KEPVar<Document> newDocument() {
  KEPVar<Document> document = Document::create();
  document->ppWordContainer()->Initialize(/*skipAttributeUpgrade=*/false);
  return document;
}

KEPVar<Document> copyOf(const Document& document) { return Copying().copy(document); }

std::vector<KEPIMfgPPCommand_var> ppCommands(const Document& document) {
  std::vector<KEPIMfgPPCommand_var> commands;
  for (const auto& member :
       document.features()->ListMembersHere(KEPInterfaceId<KEPIMfgPPCommand>())) {
    // The type of the commands is not a command.
    const bool isInstance = KEPVar<Feature>(member)->kind() == Feature::Kind::Instance;
    if (isInstance) commands.emplace_back(member);
  }
  return commands;
}

int sequenceCount(const KEPISpecObject_var& instruction) {
  int count = 0;
  for (int i = 1; i <= instruction->GetNumberOfAttributes(); ++i) {
    const std::string_view name = instruction->GetAttribute(i).GetName();
    if (name != kKEPOsmExtensions && name != kKEPOsmLocalExtensions) ++count;
  }
  return count;
}

}  // namespace host
