#pragma once

#include <gtest/gtest.h>

#include "Manufacturing/KEPMfgPPWordListener.h"
#include "host/system/Session.h"
#include "tests/container/Listing.h"
#include "tests/support/PPWordDocument.h"
#include "tests/table/TableFiles.h"

namespace ppword::test {

/// What a table load told, one text for each entry: «Section number name outcome».
class LoadReport final : public KEPMfgPPWordListener {
 public:
  LoadReport() { host::session().listener = this; }
  LoadReport(const LoadReport&) = delete;
  LoadReport& operator=(const LoadReport&) = delete;
  ~LoadReport() override { host::session().listener = nullptr; }

  void TableEntry(Section section, int number, std::string_view name, Outcome outcome) override {
    static constexpr const char* kSections[] = {"Command", "Sequence", "MultiList", "Format"};
    static constexpr const char* kOutcomes[] = {
        "Created", "Replaced", "NeverLoaded", "NameUnreadable", "ContentUnreadable", "NotDeclared"};
    entries_.push_back(std::string(kSections[static_cast<int>(section)]) + " " +
                       std::to_string(number) + " «" + std::string(name) + "» " +
                       kOutcomes[static_cast<int>(outcome)]);
  }

  [[nodiscard]] const Texts& entries() const { return entries_; }

 private:
  Texts entries_;
};

/// A container with the three root types and what the test adds.
class TableLoad : public testing::Test, protected PPWordDocument {
 protected:
  HRESULT load(std::string_view table) const {
    const TableFile file(table);
    return words->LoadPPWordTable(KEPUnicodeString(file.path().View()));
  }
  /// What the load of a table that passes its check told.
  [[nodiscard]] Texts reportOf(std::string_view table) const {
    const LoadReport report;
    EXPECT_EQ(load(table), S_OK);
    return report.entries();
  }
  [[nodiscard]] std::string entry(std::string_view name) const {
    const KEPISpecObject_var type = find(name);
    return type ? entryOf(type) : "no type";
  }
  void attribute(const KEPISpecAttrAccess_var& type, std::string_view name,
                 const Texts& items) const {
    type->AddAttribute(name, KEPISpecAttribute::Kind::StringList);
    type->SetList(name, list(items));
  }
  void multiList(std::string_view name, const Texts& items) const {
    attribute(make(name, "MfgPPParameter"), "MultiListValue", items);
  }
  /// An instruction of three sequences of one line each.
  KEPISpecObject_var threeSequences(std::string_view name) const {
    KEPISpecObject_var type = instruction(name, {"OLD/1"});
    attribute(type, "Syntaxe2", {"OLD/2"});
    attribute(type, "Syntaxe3", {"OLD/3"});
    return type;
  }
};

}  // namespace ppword::test
