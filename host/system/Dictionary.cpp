#include "host/system/Dictionary.h"

#include <algorithm>
#include <memory>

#include "host/system/Revision.h"
#include "host/system/TextHash.h"

namespace host {
namespace {

struct Provider {
  const KEPMetaClass* interfaceClass;
  KEPCreator creator;
};

/// The registration dictionary of the process: late types with their providers, interfaces by
/// name, and the entries in order.
struct Dictionary {
  TextMap<std::vector<Provider>> lateTypes;
  TextMap<std::unique_ptr<KEPMetaClass>> interfaces;
  std::vector<Registration> registrations;
};

Dictionary& dictionary() {
  // Lives as long as the process: objects that die at its very end still ask for interfaces.
  static auto& instance = *new Dictionary;
  return instance;
}

const Provider* findProvider(const std::vector<Provider>& providers,
                             const KEPMetaClass* interfaceClass) {
  const auto found = std::find_if(
      providers.begin(), providers.end(),
      [&](const Provider& provider) { return provider.interfaceClass == interfaceClass; });
  return found == providers.end() ? nullptr : &*found;
}

}  // namespace

KEPCreator findCreator(std::string_view lateType, const KEPMetaClass* interfaceClass) {
  const auto& lateTypes = dictionary().lateTypes;
  const auto entry = lateTypes.find(lateType);
  if (entry == lateTypes.end()) return nullptr;
  const Provider* const provider = findProvider(entry->second, interfaceClass);
  return provider == nullptr ? nullptr : provider->creator;
}

const std::vector<Registration>& registrations() { return dictionary().registrations; }

bool isLateTypeKnown(std::string_view lateType) {
  return dictionary().lateTypes.contains(lateType);
}

}  // namespace host

namespace {

/// Interfaces count up from 1: a component keeps its answers by these numbers.
unsigned numberFor(KEPMetaClass::TypeOfClass type) {
  static unsigned last = 0;
  return type == KEPMetaClass::TypeOfClass::Interface ? ++last : 0;
}

}  // namespace

KEPMetaClass::KEPMetaClass(std::string_view className, TypeOfClass type, const KEPMetaClass* base,
                           std::string_view lateType, std::string_view framework)
    : number_(numberFor(type)), name_(className), type_(type), base_(base), framework_(framework) {
  if (!lateType.empty()) Extend(lateType);
}

const KEPMetaClass* KEPMetaClass::Interface(std::string_view interfaceName) {
  auto& slot = host::dictionary().interfaces[std::string(interfaceName)];
  if (slot == nullptr) {
    slot = std::make_unique<KEPMetaClass>(interfaceName, TypeOfClass::Interface, nullptr, "", "");
  }
  return slot.get();
}

void KEPMetaClass::Extend(std::string_view lateType) {
  host::Revision::raise();
  host::dictionary().lateTypes.try_emplace(std::string(lateType));
  lateTypes_.emplace_back(lateType);
}

void KEPFillDictionary(const KEPMetaClass* extension, const KEPMetaClass* interfaceClass,
                       KEPCreator creator, const void* data, int flag) {
  host::Revision::raise();
  auto& dictionary = host::dictionary();
  for (const std::string& lateType : extension->GetLateTypes()) {
    auto& providers = dictionary.lateTypes[lateType];
    if (host::findProvider(providers, interfaceClass) != nullptr) continue;
    providers.push_back({interfaceClass, creator});
    dictionary.registrations.push_back({lateType, extension, interfaceClass, creator, data, flag});
  }
}
