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

// The bytes of a text whose characters are their numbers, below 256.
std::string utf8ToLatin1(std::string_view wide) {
  std::string bytes;
  for (std::size_t at = 0; at < wide.size(); ++at) {
    const bool isPair = static_cast<unsigned char>(wide[at]) >= 0x80U && at + 1 < wide.size();
    const unsigned lead = isPair ? (static_cast<unsigned char>(wide[at++]) & 3U) << 6U : 0;
    const auto last = static_cast<unsigned char>(wide[at]);
    bytes += static_cast<char>(isPair ? lead | (last & 0x3FU) : last);
  }
  return bytes;
}

}  // namespace

Json textJson(std::string_view text) {
  if (host::isUtf8(text)) return std::string(text);
  return {{"latin1", latin1ToUtf8(text)}};
}

Json textsJson(const std::vector<std::string>& texts) {
  Json array = Json::array();
  for (const std::string& text : texts) array.push_back(textJson(text));
  return array;
}

std::string jsonText(const Json& json) {
  if (json.is_string()) return json.get<std::string>();
  return utf8ToLatin1(json.at("latin1").get_ref<const std::string&>());
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
