#include "language/table/TableSource.h"

namespace ppword {

std::optional<std::string_view> nextPlainToken(TableSource& source) {
  auto token = source.nextToken();
  while (token && token->starts_with('/')) token = source.nextToken();
  return token;
}

bool findToken(TableSource& source, std::string_view text) {
  while (const auto token = nextPlainToken(source)) {
    if (contains(*token, text)) return true;
  }
  return false;
}

std::optional<std::string_view> nextName(TableSource& source, std::string_view prefix) {
  const auto token = source.nextToken();
  return token && token->starts_with(prefix) ? token : std::nullopt;
}

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

}  // namespace ppword
