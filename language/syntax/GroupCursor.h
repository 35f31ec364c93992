#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace ppword {

/// One of the two sides of a group.
struct GroupSide {
  /// True for a parameter, false for what must begin with a number.
  bool isReference;
  /// The name of the parameter, or the whole side.
  std::string_view text;
};

/// A "(" with the first ")" after it and an operator in between.
struct Group {
  std::size_t open;
  std::size_t close;
  char sign;
  GroupSide left;
  GroupSide right;
};

/// Finds the groups of a line from left to right, whose sides are references when they hold a
/// prefix. For example
///   (%I/2),(3)  has with the prefix "%" the group  %I / 2  of the reference I and the number 2
/// The operator of a group is the first of + - * / that the line holds anywhere after its "(".
class GroupCursor {
 public:
  GroupCursor(std::string_view line, std::string_view prefix);

  /// The next group; nothing after the last one.
  [[nodiscard]] std::optional<Group> next();

 private:
  static constexpr std::string_view kOperators = "+-*/";

  /// The operator of a group that opens at `place`; '\0' when there is none.
  [[nodiscard]] char operatorAfter(std::size_t place);
  [[nodiscard]] GroupSide sideOf(std::string_view text) const;

  std::string_view line_;
  std::string_view prefix_;
  std::size_t open_;
  /// For each operator the first place after the last group's "(" where it occurs.
  std::array<std::size_t, kOperators.size()> at_{};
};

}  // namespace ppword
