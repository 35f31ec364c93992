#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/ppword/Commands.h"
#include "tools/ppword/LossKinds.h"

/// All kinds: those of the check in the order of its rules, then those of `post` and
/// of `verify`.
[[nodiscard]] std::span<const Kind> allKinds();

/// The kind with a key. A UsageError, which names the nearest key, when there is none.
[[nodiscard]] const Kind& kindOf(std::string_view key);

/// Which kinds a run refuses: with --strict all but notes, with --strict=KEY,... these, and in both
/// cases none of --allow=KEY,... What a job itself refuses is refused in any case.
class Strictness {
 public:
  /// A UsageError for an unknown key.
  explicit Strictness(const StrictnessOptions& options);

  /// Refuses all but notes too, or the kind with a key, whatever is allowed. A UsageError for an
  /// unknown key.
  void require() { requiresAll_ = true; }
  void require(std::string_view key);

  /// True when it refuses anything.
  [[nodiscard]] bool isStrict() const noexcept {
    return all_ || requiresAll_ || !refused_.empty() || !required_.empty();
  }
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
  bool requiresAll_ = false;
  std::vector<std::string_view> required_;
};
