#pragma once

#include <span>
#include <string_view>

/// A kind of finding or loss that a command can refuse.
struct Kind {
  std::string_view key;
  /// "check", "post" or "verify": the command that reports it.
  std::string_view command;
  /// "error", "warning" or "note".
  std::string_view severity;
  std::string_view fault;
  std::string_view hint;
  std::string_view about;
  /// A line or table that is reported, and one to write instead; empty for `post`
  /// and for what no example shows.
  std::string_view reported;
  std::string_view sound;
  /// True for a kind of the check that it finds with --lint only.
  bool needsLint = false;
};

// The keys of what can be missing from a text.
inline constexpr std::string_view kUnevaluated = "unevaluated";
inline constexpr std::string_view kWithoutNumber = "without-number";
inline constexpr std::string_view kCutOff = "cut-off";
inline constexpr std::string_view kCutText = "cut-text";
inline constexpr std::string_view kDeleted = "deleted";
inline constexpr std::string_view kNeverGiven = "never-given";
inline constexpr std::string_view kRoundedToZero = "rounded-to-zero";
inline constexpr std::string_view kMissingDimension = "missing-dimension";
inline constexpr std::string_view kImpossible = "impossible-value";
inline constexpr std::string_view kReplaced = "replaced-character";
inline constexpr std::string_view kBareComment = "bare-comment";
inline constexpr std::string_view kMisspelt = "misspelt-parameter";
inline constexpr std::string_view kLostCall = "lost-call";
inline constexpr std::string_view kLostMove = "lost-move";
inline constexpr std::string_view kUnknownCall = "unknown-call";
inline constexpr std::string_view kMachineCoordinates = "machine-coordinates";
inline constexpr std::string_view kTableEntry = "table-entry";
inline constexpr std::string_view kBuiltIn = "built-in-lines";
inline constexpr std::string_view kChords = "arc-as-chords";
// The kinds of verify, for a text that is read back.
inline constexpr std::string_view kNotVerified = "not-verified";
inline constexpr std::string_view kOtherPoint = "other-point";
inline constexpr std::string_view kLeftOut = "left-out";
// Kinds of the lint, for lines that are put out.
inline constexpr std::string_view kWideLine = "wide-line";
inline constexpr std::string_view kUnfitLine = "unfit-line";

/// The kinds of losses, in the order of docs/losses.md.
[[nodiscard]] std::span<const Kind> lossKinds();
