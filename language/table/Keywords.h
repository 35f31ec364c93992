#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace ppword {

// The keywords of a table. A token is taken for the keyword that it contains.

/// What every keyword that begins a block contains.
inline constexpr std::string_view kStartMark = "*START";

inline constexpr std::string_view kSyntaxesKeyword = "*START_SYNTAXES";
inline constexpr std::string_view kCommandKeyword = "*START_NC_COMMAND";
inline constexpr std::string_view kInstructionKeyword = "*START_NC_INSTRUCTION";
inline constexpr std::string_view kListKeyword = "*START_LIST";
inline constexpr std::string_view kFormatKeyword = "*START_FORMAT";
inline constexpr std::string_view kSequenceKeyword = "*START_SEQUENCE";
inline constexpr std::string_view kInsertKeyword = "*INSERT";
inline constexpr std::string_view kEndKeyword = "*END";

/// How the name of a command begins, and that of a parameter.
inline constexpr std::string_view kCommandPrefix = "NC_";
inline constexpr std::string_view kParameterPrefix = "MFG_";

enum class KeywordKind { Words, Syntaxes, Command, List, Format, Sequence, Insert, End };

struct Keyword {
  std::string_view text;
  KeywordKind kind;
  /// How the name that must follow begins, and the error of a line without one; both empty for a
  /// keyword that takes no name.
  std::string_view namePrefix;
  std::string_view missingName;

  /// How the check looks for it in a line: for a block with a name without the "*".
  [[nodiscard]] constexpr std::string_view inLine() const {
    return kind != KeywordKind::Insert && !namePrefix.empty() ? text.substr(1) : text;
  }
};

inline constexpr std::array<Keyword, 12> kKeywords = {{
    {"*START_MAJOR_WORDS_WITHOUT_PARAMETERS", KeywordKind::Words, "", ""},
    {"*START_MAJOR_WORDS_WITH_TEXT", KeywordKind::Words, "", ""},
    {"*START_MAJOR_WORDS_WITH_PARAMETERS", KeywordKind::Words, "", ""},
    {"*START_MINOR_WORDS", KeywordKind::Words, "", ""},
    {kSyntaxesKeyword, KeywordKind::Syntaxes, "", ""},
    {kCommandKeyword, KeywordKind::Command, kCommandPrefix, "ERR_5004"},
    {kInstructionKeyword, KeywordKind::Command, kCommandPrefix, "ERR_5005"},
    {kListKeyword, KeywordKind::List, kParameterPrefix, "ERR_5006"},
    {kFormatKeyword, KeywordKind::Format, kParameterPrefix, "ERR_5007"},
    {kSequenceKeyword, KeywordKind::Sequence, "", ""},
    {kInsertKeyword, KeywordKind::Insert, kCommandPrefix, "ERR_5000"},
    {kEndKeyword, KeywordKind::End, "", ""},
}};

/// How many kinds of words there are: the first keywords begin their sections, kind 1 first.
inline constexpr int kWordKinds = 4;

/// The first keyword that a token contains; null when it contains none.
[[nodiscard]] constexpr const Keyword* keywordIn(std::string_view token) {
  if (token.find('*') == std::string_view::npos) return nullptr;
  for (const Keyword& keyword : kKeywords) {
    if (token.find(keyword.text) != std::string_view::npos) return &keyword;
  }
  return nullptr;
}

/// What a token is in the body of a command: a list, a sequence, an end or an insert; nothing for
/// an element.
[[nodiscard]] constexpr std::optional<KeywordKind> keywordInBody(std::string_view token) {
  if (token.find('*') == std::string_view::npos) return std::nullopt;
  const auto holds = [token](std::string_view keyword) {
    return token.find(keyword) != std::string_view::npos;
  };
  if (holds(kListKeyword)) return KeywordKind::List;
  if (holds(kSequenceKeyword)) return KeywordKind::Sequence;
  if (holds(kEndKeyword)) return KeywordKind::End;
  if (holds(kInsertKeyword)) return KeywordKind::Insert;
  return std::nullopt;
}

/// True for a token of a command's body that takes the rest of its line as its text.
[[nodiscard]] constexpr bool isTextWord(std::string_view token) {
  return token.starts_with("PPRINT") || token == "PARTNO" || token == "$$" || token == "INSERT" ||
         token == "DNCMSG";
}

}  // namespace ppword
