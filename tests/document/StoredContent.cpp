#include "tests/document/StoredContent.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <charconv>

#include "KEPIMfgPPWordFactory.h"
#include "host/document/DocumentFile.h"

namespace host::test {
namespace {

std::string slotText(const AttributeTable::Slot& slot) {
  std::string text = "\n  " + slot.name + " kind " + std::to_string(static_cast<int>(slot.kind)) +
                     (slot.declared ? " declared" : "");
  if (!slot.set) return text;
  text += " = " + std::to_string(slot.integer);
  for (const KEPUnicodeString& item : slot.texts) text.append(" «").append(item.View()).append("»");
  return text;
}

std::string featureText(const Feature& feature) {
  std::string text = feature.kind() == Feature::Kind::StartUp ? "type " : "instance ";
  text += feature.GetName();
  if (feature.isPublished()) text += " published";
  for (const auto& slot : feature.attributes().slots()) text += slotText(slot);
  const KEPVar<Feature> base = feature.GetBaseType();
  if (!base) return text;
  if (base->GetContainer()) return text.append("\n  of ").append(base->GetName());
  return text + "\n  of the removed " + featureText(*base);
}

}  // namespace

std::vector<std::string> contentOf(const Document& document) {
  std::vector<std::string> content;
  for (const Container* container : document.containers()) {
    content.push_back("container " + std::string(container->lateType()));
    for (const auto& member : container->ListMembersHere(KEPInterfaceId<KEPISpecObject>())) {
      content.push_back(featureText(*KEPVar<Feature>(member)));
    }
  }
  std::vector<std::string> parameters;
  for (const auto& [name, value] : document.designParameters()) {
    char digits[400];
    const auto end =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 6);
    parameters.push_back(name + " = " + std::string(digits, end.ptr));
  }
  std::sort(parameters.begin(), parameters.end());
  content.insert(content.end(), parameters.begin(), parameters.end());
  return content;
}

std::string openingOf(const std::string& path) {
  try {
    static_cast<void>(openDocument(path));
  } catch (const DocumentError& error) {
    EXPECT_EQ(error.kind(), DocumentError::Kind::Refused);
    EXPECT_EQ(error.what(), path + ": error: " + error.reason());
    return error.reason();
  }
  return "opens";
}

void tamper(const std::string& path, const std::string& sql) {
  sqlite3* connection = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &connection), SQLITE_OK);
  char* message = nullptr;
  EXPECT_EQ(sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, &message), SQLITE_OK)
      << sql << ": " << message;
  sqlite3_free(message);
  sqlite3_close(connection);
}

void addCommand(const Document& document, std::string_view name, int sequence) {
  KEPIMfgPPCommand_var command;
  KEPIMfgPPWordFactory_var(document.features())
      ->CreatePPCommand(command, KEPUnicodeString(name), sequence);
}

}  // namespace host::test
