#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Manufacturing/KEPMfgPPWordListener.h"
#include "inspect/diagnostics/TableBytes.h"
#include "language/table/SyntaxPlaces.h"

namespace host {

/// Which line of a table each line of an NC instruction comes from. Listens to the load of the
/// table and is asked after it.
class TableOrigins final : public KEPMfgPPWordListener {
 public:
  void TableEntry(Section section, int number, std::string_view name, Outcome outcome) override;

  /// Reads the table that was loaded. Before it no line has a place.
  void read(const std::string& path);

  /// Where line `index` (from 1) of a sequence (from 1) of an instruction begins; an inserted line
  /// in the body that it is inserted from. Nothing when it does not come from the table.
  [[nodiscard]] std::optional<TableBytes::Place> placeOf(std::string_view instruction, int sequence,
                                                         long index);

 private:
  using Places = std::vector<TableBytes::Place>;

  [[nodiscard]] Places placesOf(const std::string& instruction, int sequence);

  std::optional<TableBytes> table_;
  /// By their names the instructions that were loaded: which command of the table they come from,
  /// from 1.
  std::map<std::string, int, std::less<>> loaded_;
  /// Refers to the table.
  std::optional<ppword::SyntaxPlaces> lines_;
  /// What was asked for so far.
  std::map<std::pair<std::string, int>, Places, std::less<>> known_;
};

}  // namespace host
