#include "host/modeler/Feature.h"

#include <utility>

#include "host/system/Dictionary.h"
#include "host/system/Revision.h"

namespace host {

using AttributeKind = KEPISpecAttribute::Kind;
using Slot = AttributeTable::Slot;

Feature::Feature(Kind kind, std::string_view name, KEPVar<Feature> type, FeatureOwner& container)
    : kind_(kind), name_(name), type_(std::move(type)), container_(&container) {}

Feature::~Feature() { Revision::raise(); }

void Feature::publish() noexcept {
  Revision::raise();
  published_ = true;
}

void Feature::setAttributes(const AttributeTable& attributes) {
  Revision::raise();
  attributes_ = attributes;
}

bool Feature::addStored(Slot attribute) {
  if (attributes_.find(attribute.name) != nullptr) return false;
  Revision::raise();
  Slot& added = attributes_.add(attribute.name, attribute.kind, attribute.declared);
  added = std::move(attribute);
  return true;
}

KEPISpecObject_var Feature::GetBaseType() const { return KEPISpecObject_var(type_.Get()); }

int Feature::GetNumberOfAttributes() const {
  int count = 0;
  for (const Feature* type = this; type != nullptr; type = type->type_.Get()) {
    count += type->attributes_.declaredCount();
  }
  return count;
}

KEPISpecAttribute Feature::GetAttribute(int position) const {
  int before = GetNumberOfAttributes();
  if (position < 1 || position > before) KEPRaisePositionOutOfList(position, before);
  const Feature* owner = this;
  while (position <= (before -= owner->attributes_.declaredCount())) owner = owner->type_.Get();
  return view(owner->attributes_.declaredAt(position - before), owner == this);
}

KEPBaseUnknown* Feature::Answer(const KEPMetaClass* interfaceClass) {
  if (interfaceClass == KEPInterfaceId<KEPISpecObject>()) return this;
  if (interfaceClass == KEPInterfaceId<KEPISpecAttrAccess>()) return &attrAccess_;
  if (interfaceClass == KEPInterfaceId<KEPILifeCycleObject>()) return &lifeCycle_;
  for (const Feature* type = &typeInUse(); type != nullptr; type = type->type_.Get()) {
    if (const KEPCreator creator = findCreator(type->name_, interfaceClass)) {
      return extensions_.make(creator, *this);
    }
  }
  return nullptr;
}

bool Feature::HasType(std::string_view lateType) const {
  for (const Feature* type = &typeInUse(); type != nullptr; type = type->type_.Get()) {
    if (type->name_ == lateType) return true;
  }
  return false;
}

const Slot* Feature::nearestSlot(std::string_view name, bool set) const {
  for (const Feature* type = this; type != nullptr; type = type->type_.Get()) {
    const Slot* const slot = type->attributes_.find(name);
    if (slot != nullptr && (!set || slot->set)) return slot;
  }
  return nullptr;
}

Slot* Feature::writableSlot(std::string_view name) {
  // Also for a write that fails: the slots may be elsewhere afterwards.
  Revision::raise();
  if (Slot* const own = attributes_.find(name)) return own;
  const Slot* const inherited = nearestSlot(name, /*set=*/false);
  if (inherited == nullptr) return nullptr;
  return &attributes_.add(name, inherited->kind, /*declared=*/false);
}

KEPISpecAttribute Feature::view(const Slot& declaration, bool isOwn) const {
  if (isOwn && declaration.set) {
    return {declaration.name, declaration.kind, &declaration.texts, declaration.integer};
  }
  const Slot* const value = nearestSlot(declaration.name, /*set=*/true);
  // A base type may declare the name later with another kind.
  if (value == nullptr || value->kind != declaration.kind) {
    return {declaration.name, declaration.kind, nullptr, 0};
  }
  return {declaration.name, declaration.kind, &value->texts, value->integer};
}

HRESULT Feature::AttrAccess::AddAttribute(std::string_view name, AttributeKind kind) {
  if (feature_.nearestSlot(name, /*set=*/false) == nullptr) {
    Revision::raise();
    feature_.attributes_.add(name, kind, /*declared=*/true);
  }
  return S_OK;
}

std::optional<KEPISpecAttribute> Feature::AttrAccess::FindAttribute(std::string_view name) const {
  const Slot* const slot = feature_.nearestSlot(name, /*set=*/false);
  if (slot == nullptr) return std::nullopt;
  // The nearest slot holds the nearest value when it has one.
  if (slot->set) return KEPISpecAttribute(slot->name, slot->kind, &slot->texts, slot->integer);
  return feature_.view(*slot, /*isOwn=*/false);
}

const KEPUnicodeString* Feature::AttrAccess::FindText(std::string_view name) const {
  const Slot* const own = feature_.attributes_.find(name);
  if (own == nullptr || !own->set) return inheritedText(name);
  return own->kind == AttributeKind::String ? &own->texts[1] : nullptr;
}

const KEPUnicodeString* Feature::AttrAccess::inheritedText(std::string_view name) const {
  const auto inherited = FindAttribute(name);
  const bool isText = inherited && inherited->GetKind() == AttributeKind::String;
  return isText && inherited->IsSet() ? &inherited->GetTexts()[1] : nullptr;
}

HRESULT Feature::AttrAccess::SetString(std::string_view name, std::string_view text) {
  Slot* const slot = feature_.writableSlot(name);
  if (slot == nullptr || slot->kind == AttributeKind::Integer) return E_FAIL;
  KEPListValKEPUnicodeString one;
  one.Append(KEPUnicodeString(text));
  slot->texts = std::move(one);
  slot->set = true;
  return S_OK;
}

HRESULT Feature::AttrAccess::SetInteger(std::string_view name, int value) {
  Slot* const slot = feature_.writableSlot(name);
  if (slot == nullptr || slot->kind != AttributeKind::Integer) return E_FAIL;
  slot->integer = value;
  slot->set = true;
  return S_OK;
}

HRESULT Feature::AttrAccess::SetList(std::string_view name,
                                     const KEPListValKEPUnicodeString& items) {
  KEPListValKEPUnicodeString own = items;  // They may be a view of this very feature.
  Slot* const slot = feature_.writableSlot(name);
  if (slot == nullptr || slot->kind != AttributeKind::StringList) return E_FAIL;
  slot->texts = std::move(own);
  slot->set = true;
  return S_OK;
}

HRESULT Feature::AttrAccess::AppendToList(std::string_view name, std::string_view item) {
  Slot* const slot = feature_.writableSlot(name);
  if (slot == nullptr || slot->kind != AttributeKind::StringList) return E_FAIL;
  if (!slot->set) {
    const Slot* const inherited = feature_.nearestSlot(name, /*set=*/true);
    slot->texts = inherited == nullptr ? KEPListValKEPUnicodeString{} : inherited->texts;
  }
  slot->texts.Append(KEPUnicodeString(item));
  slot->set = true;
  return S_OK;
}

HRESULT Feature::AttrAccess::RemoveAll(std::string_view name) { return SetList(name, {}); }

HRESULT Feature::AttrAccess::Unset(std::string_view name) {
  if (feature_.nearestSlot(name, /*set=*/false) == nullptr) return E_FAIL;
  if (Slot* const own = feature_.attributes_.find(name)) {
    Revision::raise();
    own->texts.RemoveAll();
    own->integer = 0;
    own->set = false;
  }
  return S_OK;
}

HRESULT Feature::LifeCycle::remove() {
  if (feature_.container_ == nullptr) return E_FAIL;
  feature_.container_->removeMember(feature_);
  return S_OK;
}

}  // namespace host
