#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "post/job/JobValue.h"

namespace host::job {

/// A key of an object and the function that reads its value.
template <class Target>
struct Key {
  std::string_view name;
  void (*read)(Value, const Place&, Target&);
  bool mandatory = false;
};
template <class Target>
using Keys = std::span<const Key<Target>>;

/// The key of a field as text, unescaped, and where it is.
struct FieldName {
  std::string_view text;
  const char* at;
};
[[nodiscard]] FieldName nameOf(simdjson::ondemand::field& field, const Place& place);

[[noreturn]] void refuseUnknown(const FieldName& name, const Place& place,
                                std::span<const std::string_view> known);

template <class Target>
[[nodiscard]] std::vector<std::string_view> namesOf(Keys<Target> keys) {
  std::vector<std::string_view> names;
  for (const auto& key : keys) names.push_back(key.name);
  return names;
}

template <class Target>
[[nodiscard]] std::size_t indexOf(Keys<Target> keys, const FieldName& name, const Place& place) {
  for (std::size_t index = 0; index < keys.size(); ++index) {
    if (keys[index].name == name.text) return index;
  }
  refuseUnknown(name, place, namesOf(keys));
}

/// Fills `target` from an object that has the given keys, each at most once; mandatory keys must be
/// present; no others are allowed. `at` is where the object begins in its line.
template <class Target>
void readFields(simdjson::ondemand::object object, const char* at, const Place& place,
                Keys<Target> keys, Target& target) {
  std::uint32_t seen = 0;
  for (auto item : object) {
    auto field = unwrap(std::move(item), place);
    const FieldName name = nameOf(field, place);
    const std::size_t index = indexOf(keys, name, place);
    const Place here(place, name.text);
    const std::uint32_t bit = std::uint32_t{1} << index;
    if ((seen & bit) != 0) here.refuse(name.at, "duplicate key");
    seen |= bit;
    keys[index].read(field.value(), here, target);
  }
  for (std::size_t index = 0; index < keys.size(); ++index) {
    if (!keys[index].mandatory || (seen >> index & 1U) != 0) continue;
    place.refuse(at, std::string("the key \"").append(keys[index].name).append("\" is missing"));
  }
}

template <class Target>
void readFields(Value value, const Place& place, Keys<Target> keys, Target& target) {
  const char* const at = value.raw_json_token().data();
  readFields(readObject(value, place), at, place, keys, target);
}

/// Where the text of a line begins.
[[nodiscard]] const char* beginOf(const Line& line);
/// The object of a line.
[[nodiscard]] simdjson::ondemand::object objectOf(Line& line, const Place& root);
/// Refuses text after the object, which was read.
void requireEnd(Line& line, const Place& root);

/// Fills `target` from a whole line.
template <class Target>
void readLine(Line& line, Keys<Target> keys, Target& target) {
  const Place root(line);
  readFields<Target>(objectOf(line, root), beginOf(line), root, keys, target);
  requireEnd(line, root);
}

/// The keys of two objects as those of one.
template <class Target, std::size_t kFirst, std::size_t kSecond>
[[nodiscard]] constexpr std::array<Key<Target>, kFirst + kSecond> joined(
    const std::array<Key<Target>, kFirst>& first, const std::array<Key<Target>, kSecond>& second) {
  std::array<Key<Target>, kFirst + kSecond> keys{};
  std::copy(first.begin(), first.end(), keys.begin());
  std::copy(second.begin(), second.end(), keys.begin() + kFirst);
  return keys;
}

/// Passes every field of an object to `put`: the name, the value and its place. The keys are names
/// of the writer's choice, each at most once.
template <class Put>
void readNamed(Value value, const Place& place, Put put) {
  std::unordered_set<std::string_view> seen;
  for (auto item : readObject(value, place)) {
    auto field = unwrap(std::move(item), place);
    const FieldName name = nameOf(field, place);
    const Place here(place, name.text);
    if (!seen.insert(name.text).second) here.refuse(name.at, "duplicate key");
    put(name, field.value(), here);
  }
}

template <class T>
T& emplaced(T& value) {
  return value;
}
template <class T>
T& emplaced(std::optional<T>& value) {
  return value.emplace();
}

/// Reads a value into a member, an optional one included.
template <auto Member, class Target>
void into(Value value, const Place& place, Target& target) {
  read(value, place, emplaced(target.*Member));
}

}  // namespace host::job
