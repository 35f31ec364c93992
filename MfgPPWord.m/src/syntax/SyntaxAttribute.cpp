#include "src/syntax/SyntaxAttribute.h"

namespace ppword {
namespace {

bool isBookkeeping(const KEPISpecAttribute& attribute) {
  const std::string_view name = attribute.GetName();
  return name.starts_with('$') && (name == kKEPOsmLocalExtensions || name == kKEPOsmExtensions);
}

}  // namespace

std::optional<KEPISpecAttribute> syntaxAttribute(const KEPISpecObject_var& feature, int position) {
  const int count = feature->GetNumberOfAttributes();
  if (position < 1 || position > count) return std::nullopt;
  for (int i = 1, left = position; i <= count; ++i) {
    const KEPISpecAttribute attribute = feature->GetAttribute(i);
    if (!isBookkeeping(attribute) && --left == 0) return attribute;
  }
  return std::nullopt;
}

int syntaxAttributeCount(const KEPISpecObject_var& feature) {
  const int all = feature->GetNumberOfAttributes();
  int count = 0;
  for (int i = 1; i <= all; ++i) count += isBookkeeping(feature->GetAttribute(i)) ? 0 : 1;
  return count;
}

}  // namespace ppword
