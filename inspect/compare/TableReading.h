#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "inspect/diagnostics/TableBytes.h"

namespace host {

/// What a table means, as its reader reads it, with the places in its bytes. Of parts that cannot
/// be read there is nothing. The bytes must outlive it.
class TableReading {
 public:
  explicit TableReading(const TableBytes& bytes);
  ~TableReading();
  TableReading(const TableReading&) = delete;
  TableReading& operator=(const TableReading&) = delete;

  /// An APT word; words and codes belong together by their places, as long as there are codes.
  struct Word {
    std::string text;
    int kind;
    std::optional<int> code;
    std::size_t offset;
  };
  /// A free syntax, or the format or list of a parameter with its values between commas.
  struct Value {
    std::string name;
    std::optional<std::string> text;
    std::size_t offset;
  };
  /// An NC command or instruction.
  struct Command {
    std::string name;
    /// Where its name is.
    std::size_t offset;
    /// Where its sequences begin, the first one with the body; none for a body without its end.
    std::vector<long> sequences;
  };
  /// A line of a sequence after the inserts, and the command in whose body it is.
  struct Line {
    std::string text;
    std::size_t offset;
    std::string_view owner;
  };
  struct Lines {
    std::vector<Line> all;
    /// How often the body of each command is inserted.
    std::unordered_map<std::string_view, std::size_t> inserted;
  };

  [[nodiscard]] const std::optional<std::vector<Word>>& words() const noexcept { return words_; }
  [[nodiscard]] const std::optional<std::vector<Value>>& syntaxes() const noexcept {
    return syntaxes_;
  }
  /// Of each name the last one, which a load leaves; in the order of the table.
  [[nodiscard]] const std::vector<Value>& formats() const noexcept { return formats_; }
  [[nodiscard]] const std::vector<Value>& lists() const noexcept { return lists_; }
  /// Commands before instructions.
  [[nodiscard]] const std::vector<Command>& commands() const noexcept { return commands_; }

  /// The lines of one of its sequences, from 0. Nothing when they cannot be read, or when more are
  /// asked for than a load reads.
  [[nodiscard]] std::optional<Lines> linesOf(const Command& command, std::size_t sequence);

  [[nodiscard]] TableBytes::Place placeOf(std::size_t offset) const {
    return bytes_.placeOf(offset);
  }

 private:
  class Reader;

  const TableBytes& bytes_;
  std::unique_ptr<Reader> reader_;
  std::optional<std::vector<Word>> words_;
  std::optional<std::vector<Value>> syntaxes_;
  std::vector<Value> formats_;
  std::vector<Value> lists_;
  std::vector<Command> commands_;
};

}  // namespace host
