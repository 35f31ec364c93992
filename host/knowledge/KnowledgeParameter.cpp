#include "host/knowledge/KnowledgeParameter.h"

#include <utility>

namespace host {
namespace {

class KnowledgeType final : public KEPICkeType {
 public:
  explicit KnowledgeType(std::string_view name) : name_(name) {}
  [[nodiscard]] KEPUnicodeString GetName() const override { return name_; }

 private:
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override {
    return interfaceClass == KEPInterfaceId<KEPICkeType>() ? this : nullptr;
  }
  KEPUnicodeString name_;
};

class KnowledgeParameter final : public KEPICkeParm {
 public:
  KnowledgeParameter(std::string_view valueText, KEPICkeType_var type)
      : valueText_(valueText), type_(std::move(type)) {}
  [[nodiscard]] KEPUnicodeString GetValueText() const override { return valueText_; }
  [[nodiscard]] KEPICkeType_var GetType() const override { return type_; }

 private:
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override {
    return interfaceClass == KEPInterfaceId<KEPICkeParm>() ? this : nullptr;
  }
  KEPUnicodeString valueText_;
  KEPICkeType_var type_;
};

}  // namespace

KEPICkeParm_var createKnowledgeParameter(std::string_view valueText, std::string_view typeName) {
  KEPICkeType_var type;
  if (!typeName.empty()) type = KEPICkeType_var::Adopt(new KnowledgeType(typeName));
  return KEPICkeParm_var::Adopt(new KnowledgeParameter(valueText, std::move(type)));
}

}  // namespace host
