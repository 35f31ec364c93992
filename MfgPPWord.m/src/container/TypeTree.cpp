#include "src/container/TypeTree.h"

#include "ObjectSpecsModeler/KEPISpecObject.h"

namespace ppword {
namespace {

KEPISpecObject_var findOrCreateType(const KEPIContainer_var& container, std::string_view name,
                                    const KEPISpecObject_var& base) {
  KEPISpecObject_var type = findType(container, name);
  return type ? type : createType(container, name, base);
}

}  // namespace

KEPISpecObject_var findType(const KEPIContainer_var& container, std::string_view name) {
  return KEPISpecObject_var::Adopt(container->FindStartUp(name));
}

KEPISpecObject_var wordRoot(const KEPIContainer_var& container) {
  return findOrCreateType(container, kWordRoot, nullptr);
}

KEPISpecObject_var syntaxRoot(const KEPIContainer_var& container) {
  return findOrCreateType(container, kSyntaxRoot, wordRoot(container));
}

KEPISpecObject_var parameterRoot(const KEPIContainer_var& container) {
  return findOrCreateType(container, kParameterRoot, wordRoot(container));
}

KEPISpecObject_var createType(const KEPIContainer_var& container, std::string_view name,
                              const KEPISpecObject_var& base) {
  return KEPISpecObject_var::Adopt(container->CreateStartUp(name, base));
}

KEPISpecObject_var createType(const KEPIContainer_var& container, std::string_view name,
                              const KEPISpecObject_var& base, std::string_view attribute,
                              KEPISpecAttribute::Kind kind) {
  KEPISpecObject_var type = createType(container, name, base);
  KEPISpecAttrAccess_var(type)->AddAttribute(attribute, kind);
  return type;
}

}  // namespace ppword
