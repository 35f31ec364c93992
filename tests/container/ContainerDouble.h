#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPILifeCycleObject.h"

namespace ppword::test {

/// What a container and its members were asked, in order.
using Log = std::vector<std::string>;

/// A member of a container that answers what its name says it answers, and logs.
class LoggingMember final : public KEPBaseUnknown {
 public:
  LoggingMember(std::string name, Log& log) : name_(std::move(name)), log_(log) {}

  /// Makes the member answer an interface beside its life cycle.
  void answer(const KEPMetaClass* interfaceClass, KEPBaseUnknown& object) {
    interface_ = interfaceClass;
    object_ = &object;
    object.BindTo(*this);
  }

 private:
  class LifeCycle final : public KEPILifeCycleObject {
   public:
    explicit LifeCycle(LoggingMember& member) : member_(member) { BindTo(member); }
    HRESULT remove() override {
      member_.log_.push_back("remove " + member_.name_);
      return S_OK;
    }

   private:
    LoggingMember& member_;
  };

  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override {
    log_.push_back("ask " + name_ + " for " + interfaceClass->GetName());
    if (interfaceClass == interface_) return object_;
    return interfaceClass == KEPInterfaceId<KEPILifeCycleObject>() ? &lifeCycle_ : nullptr;
  }

  std::string name_;
  Log& log_;
  const KEPMetaClass* interface_ = nullptr;
  KEPBaseUnknown* object_ = nullptr;
  LifeCycle lifeCycle_{*this};
};

/// A container that forwards to another one, except where a test says otherwise.
class ContainerDouble final : public KEPIContainer {
 public:
  explicit ContainerDouble(KEPIContainer_var real) : real_(std::move(real)) {}

  [[nodiscard]] KEPISpecObject* FindStartUp(std::string_view name) const override {
    return real_->FindStartUp(otherName.empty() ? name : otherName);
  }
  [[nodiscard]] KEPISpecObject* CreateStartUp(std::string_view name,
                                              const KEPISpecObject_var& base) override {
    return real_->CreateStartUp(name, base);
  }
  [[nodiscard]] KEPISpecObject* CreateInstance(const KEPISpecObject_var& type,
                                               std::string_view name) override {
    return real_->CreateInstance(type, name);
  }
  [[nodiscard]] std::vector<KEPBaseUnknown_var> ListMembersHere(
      const KEPMetaClass* interfaceClass) const override {
    return members ? members(interfaceClass) : real_->ListMembersHere(interfaceClass);
  }
  [[nodiscard]] KEPIDocument_var GetDocument() const override {
    return document ? document() : real_->GetDocument();
  }

  std::function<std::vector<KEPBaseUnknown_var>(const KEPMetaClass*)> members;
  std::function<KEPIDocument_var()> document;
  /// The type that is found instead of the one asked for.
  std::string_view otherName;

 private:
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override {
    return interfaceClass == KEPInterfaceId<KEPIContainer>() ? this : nullptr;
  }

  KEPIContainer_var real_;
};

}  // namespace ppword::test
