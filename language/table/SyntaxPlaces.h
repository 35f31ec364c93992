#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ppword {

class TableSource;

/// Finds where the lines of the commands of a table begin.
class SyntaxPlaces {
 public:
  /// The bytes of the table must outlive the object.
  explicit SyntaxPlaces(std::string_view table);

  /// Where the lines of a sequence (from 1) of a command begin, as a table load reads them: those
  /// of the first sequence belong to the command with that number, from 1 in the order of
  /// walkCommands, those of further sequences to the first command of that name. An inserted line
  /// begins in the body that it is inserted from. Empty when the lines cannot be read.
  [[nodiscard]] std::vector<long> placesOf(int number, const std::string& name, int sequence);

 private:
  /// Go to the body of a command, or of one of its sequences. False when there is none.
  [[nodiscard]] bool goTo(TableSource& source, int number) const;
  [[nodiscard]] bool goTo(TableSource& source, const std::string& name, int sequence) const;

  std::string_view table_;
  /// The bodies of the commands in their order.
  std::vector<long> bodies_;
  /// The first bodies of their names.
  std::optional<std::unordered_map<std::string, long>> positions_;
};

}  // namespace ppword
