#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/ppword/Commands.h"

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

/// All kinds: those of the check in the order of its rules, then those of `post` and
/// of `verify`.
[[nodiscard]] std::span<const Kind> allKinds();

/// The kind with a key. A UsageError, which names the nearest key, when there is none.
[[nodiscard]] const Kind& kindOf(std::string_view key);

// The keys of what can be missing from a text.
inline constexpr std::string_view kUnevaluated = "unevaluated";
inline constexpr std::string_view kWithoutNumber = "without-number";
inline constexpr std::string_view kCutOff = "cut-off";
inline constexpr std::string_view kDeleted = "deleted";
inline constexpr std::string_view kNeverGiven = "never-given";
inline constexpr std::string_view kImpossible = "impossible-value";
inline constexpr std::string_view kBareComment = "bare-comment";
inline constexpr std::string_view kMisspelt = "misspelt-parameter";
inline constexpr std::string_view kLostCall = "lost-call";
inline constexpr std::string_view kLostMove = "lost-move";
inline constexpr std::string_view kUnknownCall = "unknown-call";
inline constexpr std::string_view kMachineCoordinates = "machine-coordinates";
inline constexpr std::string_view kTableEntry = "table-entry";
// The kind of the lint, for lines that are put out.
inline constexpr std::string_view kWideLine = "wide-line";

/// Which kinds a run refuses: with --strict all but notes, with --strict=KEY,... these, and in both
/// cases none of --allow=KEY,...
class Strictness {
 public:
  /// A UsageError for an unknown key.
  explicit Strictness(const StrictnessOptions& options);

  /// True when it refuses anything.
  [[nodiscard]] bool isStrict() const noexcept { return all_ || !refused_.empty(); }
  /// The first key of --strict=KEY,... that only the lint finds; empty when there is none.
  [[nodiscard]] std::string_view lintKey() const;
  /// `isNote`: for a finding of which nothing has to be done.
  [[nodiscard]] bool refuses(std::string_view key, bool isNote = false) const;
  /// True for the keys of --allow.
  [[nodiscard]] bool allows(std::string_view key) const;

 private:
  bool all_ = false;
  std::vector<std::string_view> refused_;
  std::vector<std::string_view> allowed_;
};
