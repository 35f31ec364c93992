#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Manufacturing/KEPMfgPPWordListener.h"
#include "host/modeler/Document.h"
#include "tools/ppword/Json.h"

/// What a listener to the load of a table reports: what came from where.
class LoadReport final : public KEPMfgPPWordListener {
 public:
  struct Skipped {
    /// "command 3 NC_GOTO" and why it was not taken.
    std::string entry;
    std::string reason;
    /// False for what is left out on purpose.
    bool missing;
  };

  void TableEntry(Section section, int number, std::string_view name, Outcome outcome) override;

  /// Entries that should have been loaded and were not.
  [[nodiscard]] long missing() const;

  /// True for an instruction whose lines are from the table.
  [[nodiscard]] bool hasLines(std::string_view instruction) const {
    return instructions_.contains(instruction);
  }
  [[nodiscard]] bool hasInstructions() const { return !instructions_.empty(); }

  /// For people: names that the table added and replaced, what was skipped and why, and what the
  /// document has from the default catalogue.
  [[nodiscard]] std::string text(const host::Document& document) const;
  [[nodiscard]] Json json(const host::Document& document) const;

 private:
  [[nodiscard]] std::vector<std::string> fromCatalogue(const host::Document& document) const;

  std::set<std::string, std::less<>> instructions_;
  std::vector<std::string> added_;
  std::vector<std::string> replaced_;
  /// Parameters whose values the table took away without giving others.
  std::vector<std::string> emptied_;
  std::vector<Skipped> skipped_;
};
