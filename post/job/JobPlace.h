#pragma once

#include <simdjson.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace host::job {

/// The line of a job that is being read.
struct Line {
  std::string_view file;
  long number = 0;
  std::string_view text;
  simdjson::ondemand::document document{};
  /// False while the line has no document.
  bool parsed = false;
};

/// Where a value is in its line: a chain of keys and indexes up to the line's object "$". It refers
/// to its parent and its key, which must outlive it.
class Place {
 public:
  explicit Place(Line& line) noexcept : line_(&line) {}
  Place(const Place& parent, std::string_view key) noexcept
      : line_(parent.line_), parent_(&parent), key_(key) {}
  Place(const Place& parent, std::size_t index) noexcept
      : line_(parent.line_), parent_(&parent), index_(index) {}

  /// The path as text, such as "$.points[3][1]".
  [[nodiscard]] std::string path() const;

  /// Column of a position in the line's text, in bytes from 1.
  [[nodiscard]] long column(const char* at) const noexcept { return at - line_->text.data() + 1; }

  /// Raises the InputError of this place for the text at `at`, a position in the line.
  [[noreturn]] void refuse(const char* at, std::string_view why) const;
  /// The same for a line that is not valid JSON; finds the position itself.
  [[noreturn]] void refuseStructure() const;

 private:
  Line* line_;
  const Place* parent_ = nullptr;
  std::string_view key_;
  std::size_t index_ = 0;
};

/// The result's value; refuses the line's structure if there is none.
template <class T>
[[nodiscard]] T unwrap(simdjson::simdjson_result<T> result, const Place& place) {
  T value;
  if (std::move(result).get(value) != simdjson::SUCCESS) place.refuseStructure();
  return value;
}

/// A piece of the line as messages show it: without blanks at its end, at most 40 bytes, whole
/// characters.
[[nodiscard]] std::string shown(std::string_view token);

}  // namespace host::job
