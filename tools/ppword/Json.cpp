#include "tools/ppword/Json.h"

#include <nlohmann/json.hpp>

#include "post/text/Utf8.h"

namespace {

std::string latin1ToUtf8(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    if (value < 0x80) {
      text += byte;
    } else {
      text += static_cast<char>(0xC0U | (value >> 6U));
      text += static_cast<char>(0x80U | (value & 0x3FU));
    }
  }
  return text;
}

}  // namespace

Json textJson(std::string_view text) {
  if (host::isUtf8(text)) return std::string(text);
  return {{"latin1", latin1ToUtf8(text)}};
}

Json diagnosticJson(const host::Diagnostic& diagnostic) {
  Json json;
  json["severity"] = host::severityName(diagnostic.severity);
  if (!diagnostic.key.empty()) json["key"] = diagnostic.key;
  json["file"] = textJson(diagnostic.file);
  if (diagnostic.line > 0) json["line"] = diagnostic.line;
  if (diagnostic.column > 0) json["column"] = diagnostic.column;
  json["message"] = textJson(diagnostic.message);
  if (diagnostic.hasSource()) {
    json["source"] = textJson(diagnostic.source.text);
    json["sourceColumn"] = diagnostic.source.firstColumn;
  }
  return json;
}

std::string documentText(const Json& document) { return document.dump(2) + '\n'; }
