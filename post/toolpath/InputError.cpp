#include "post/toolpath/InputError.h"

namespace host {
namespace {

std::string placed(std::string_view file, long line, long column, std::string_view message) {
  std::string text(file);
  if (line > 0) text += ':' + std::to_string(line);
  if (column > 0) text += ':' + std::to_string(column);
  return text.append(": error: ").append(message);
}

}  // namespace

InputError::InputError(std::string_view file, long line, long column, std::string_view message)
    : std::runtime_error(placed(file, line, column, message)),
      file_(file),
      line_(line),
      column_(column),
      message_(message) {}

InputError::~InputError() = default;

}  // namespace host
