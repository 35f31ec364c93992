#pragma once

#include <string>
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

  /// For people: names that the table added and replaced, what was skipped and why, and what the
  /// document has from the default catalogue.
  [[nodiscard]] std::string text(const host::Document& document) const;
  [[nodiscard]] Json json(const host::Document& document) const;

 private:
  [[nodiscard]] std::vector<std::string> fromCatalogue(const host::Document& document) const;

  std::vector<std::string> added_;
  std::vector<std::string> replaced_;
  /// Parameters whose values the table took away without giving others.
  std::vector<std::string> emptied_;
  std::vector<Skipped> skipped_;
};
