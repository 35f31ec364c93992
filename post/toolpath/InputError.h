#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace host {

/// Input that is refused: where it stands and why. Line and column count from 1; 0 where the error
/// has no such place.
class InputError : public std::runtime_error {
 public:
  InputError(std::string_view file, long line, long column, std::string_view message);
  ~InputError() override;

  [[nodiscard]] const std::string& file() const noexcept { return file_; }
  [[nodiscard]] long line() const noexcept { return line_; }
  [[nodiscard]] long column() const noexcept { return column_; }
  /// The message without its place; what() begins with FILE:LINE:COL.
  [[nodiscard]] const std::string& message() const noexcept { return message_; }

 private:
  std::string file_;
  long line_;
  long column_;
  std::string message_;
};

}  // namespace host
