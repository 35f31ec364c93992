#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "language/syntax/Characters.h"
#include "language/syntax/LineWriter.h"

namespace ppword {

/// A syntax line on its way through the passes. A pass reads `text()`, writes the changed line into
/// `draft()`, or piece by piece through `writer()`, and accepts it; a pass that changes nothing
/// costs no copy. Its buffers are reused for every line.
class SyntaxLine {
 public:
  /// Distinguishes the texts of a line.
  using Revision = std::uint64_t;
  static constexpr Revision kNoRevision = 0;

  /// What is known of a text, which is stored elsewhere.
  struct Known {
    Revision revision = kNoRevision;
    CharacterSet characters{""};
    /// False when the text has no "(" with a ")" and an operator that makes it a group.
    bool mayHoldGroups = true;
  };

  /// Starts a line with a copy of `text`: what it was taken from may change while it is processed.
  void start(std::string_view text) {
    original_ = text;
    change(original_);
  }

  /// Goes on with a text that this line had before, which is at `text` from now on.
  void resume(std::string_view text, const Known& known) noexcept {
    text_ = text;
    revision_ = known.revision;
    characters_ = known.characters;
    isScanned_ = true;
    mayHoldGroups_ = known.mayHoldGroups;
  }

  [[nodiscard]] std::string_view text() const noexcept { return text_; }

  /// As long as it is the same, so is the text and the place where it is.
  [[nodiscard]] Revision revision() const noexcept { return revision_; }

  /// Those characters of the text that mean something. One scan serves all passes until the text
  /// changes.
  [[nodiscard]] CharacterSet characters() noexcept {
    if (!isScanned_) characters_ = CharacterSet(text_);
    isScanned_ = true;
    return characters_;
  }
  /// True when the text holds one of these characters: a pass asks whether it has anything to do.
  [[nodiscard]] bool holdsAny(CharacterSet others) noexcept {
    return characters().holdsAny(others);
  }

  /// False when the text is known to hold no group.
  [[nodiscard]] bool mayHoldGroups() noexcept {
    static constexpr CharacterSet kOpening("(");
    return mayHoldGroups_ && holdsAny(kOpening);
  }

  /// An empty buffer for the changed line; `text()` stays valid while it is written.
  [[nodiscard]] std::string& draft() {
    drafts_[next_].clear();
    return drafts_[next_];
  }
  /// The draft becomes the text.
  void accept() noexcept {
    change(drafts_[next_]);
    next_ = 1 - next_;
  }

  /// A writer with an empty line; `text()` stays valid while it is written.
  [[nodiscard]] LineWriter& writer() noexcept {
    writers_[nextWriter_].clear();
    return writers_[nextWriter_];
  }
  /// What was written becomes the text.
  void acceptWritten() noexcept {
    change(writers_[nextWriter_].text());
    nextWriter_ = 1 - nextWriter_;
  }

 private:
  void change(std::string_view text) noexcept {
    text_ = text;
    revision_ = ++lastRevision_;
    isScanned_ = false;
    mayHoldGroups_ = true;
  }

  std::string original_;
  std::string_view text_;
  Revision revision_ = kNoRevision;
  Revision lastRevision_ = kNoRevision;
  CharacterSet characters_{""};
  bool isScanned_ = true;
  bool mayHoldGroups_ = true;
  std::string drafts_[2];
  int next_ = 0;
  LineWriter writers_[2];
  int nextWriter_ = 0;
};

}  // namespace ppword
