#include "post/job/JobObject.h"

#include <string>

#include "post/text/SpellingSuggestion.h"

namespace host::job {

FieldName nameOf(simdjson::ondemand::field& field, const Place& place) {
  const char* const at = field.key().raw() - 1;
  std::string_view text;
  if (field.unescaped_key().get(text) != simdjson::SUCCESS) {
    place.refuse(at, "the key contains an invalid escape");
  }
  if (holdsControlCharacter(text)) place.refuse(at, "a key must not contain a control character");
  return {text, at};
}

void refuseUnknown(const FieldName& name, const Place& place,
                   std::span<const std::string_view> known) {
  std::string why = "unknown key \"" + shown(name.text) + "\"";
  if (const std::string_view meant = nearest(name.text, known); !meant.empty()) {
    place.refuse(name.at, why.append("; did you mean \"").append(meant).append("\"?"));
  }
  why += "; the keys here are";
  for (const std::string_view key : known)
    why.append(known.front() == key ? " " : ", ").append(key);
  place.refuse(name.at, why);
}

const char* beginOf(const Line& line) {
  return line.text.data() + line.text.find_first_not_of(" \t\r");
}

simdjson::ondemand::object objectOf(Line& line, const Place& root) {
  auto result = line.document.get_object();
  if (result.error() != simdjson::INCORRECT_TYPE) return unwrap(std::move(result), root);
  root.refuse(beginOf(line), "a line must be an object: {...}");
}

void requireEnd(Line& line, const Place& root) {
  const char* after = nullptr;
  if (line.document.current_location().get(after) == simdjson::SUCCESS) root.refuseStructure();
}

}  // namespace host::job
