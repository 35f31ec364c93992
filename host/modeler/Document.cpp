#include "host/modeler/Document.h"

namespace host {
namespace {

/// The feature catalogue of the host: the type that PP commands are made of.
void createPPCommandType(Container& container) {
  const auto type = KEPISpecObject_var::Adopt(container.CreateStartUp("MfgPPCommand", {}));
  const KEPISpecAttrAccess_var attributes(type);
  attributes->AddAttribute("CommandName", KEPISpecAttribute::Kind::String);
  attributes->AddAttribute("SequenceNumber", KEPISpecAttribute::Kind::Integer);
}

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
  while (!containers().empty()) containers().back()->close();
  root_->close();
  if (const KEPIMfgPPWordContainer_var words = ppWordContainer()) {
    // What the container was told to keep may hold the container in turn, and may ask for this
    // document while it dies: it is let go when nothing leads here any more.
    words->SetObjects({});
  }
}

Container& Document::addContainer(std::string_view lateType) {
  furtherContainers_.push_back(KEPVar<Container>::Adopt(new Container(*this, lateType)));
  return *furtherContainers_.back();
}

void Document::setDesignParameter(std::string_view name, double value) {
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
