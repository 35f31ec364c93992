#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "post/listing/CallTable.h"
#include "post/listing/CanonicalCall.h"
#include "post/listing/FrameMotion.h"
#include "post/listing/LengthUnit.h"
#include "post/listing/Vocabulary.h"
#include "post/listing/WorkFrame.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// How the moves of several coordinate systems become one text: NC_ORIGIN states each change, or
/// all moves are converted to the system of the first one.
class CoordinateSystems {
 public:
  /// `words`: what the table's own NC_ORIGIN prints, nothing without one.
  CoordinateSystems(const std::optional<OriginWords>& words, bool converts, bool withToolAxes);

  /// Takes a call that sets an offset or the rotation, with lengths in a unit. Returns true when
  /// positions mean another place after it.
  bool change(const CallRule& rule, const CanonicalArguments& arguments, LengthUnit unit,
              SourceLine place);

  /// Before a move. Returns the system that NC_ORIGIN has to state, null for none. Raises an
  /// InputError for a move whose place the text cannot say. `unit` is that of the text.
  [[nodiscard]] const WorkFrame* beforeMove(const CanonicalCall& call, LengthUnit unit,
                                            const LinePlace& place);
  /// Converts the elements of the move, if its system is not that of the text.
  void convert(std::span<ToolPathEvent> events);

  /// That of positions now.
  [[nodiscard]] const WorkFrame& current() const noexcept { return now_; }
  /// True when moves were converted.
  [[nodiscard]] bool hasConverted() const noexcept { return hasConverted_; }
  /// The numbers of two systems whose moves are written as in one, since their offsets are the
  /// same.
  [[nodiscard]] std::optional<std::pair<int, int>> merged() const { return merged_; }

 private:
  [[nodiscard]] const WorkFrame* begin();
  void stateNow();
  void checkTurned(const CanonicalCall& call, const LinePlace& place) const;
  void checkChange(const CanonicalCall& call, const LinePlace& place) const;
  [[nodiscard]] std::string_view missingWords() const;
  [[nodiscard]] bool isNamed() const;
  [[nodiscard]] bool hasNumber() const { return now_.number() >= 1 && now_.number() <= 9; }
  [[nodiscard]] std::string changeText() const;

  std::optional<OriginWords> words_;
  bool converts_;
  bool withToolAxes_;

  WorkFrame now_;
  /// The system that the text is in; before the first move that of a machine without offsets.
  WorkFrame text_;
  bool hasBegun_ = false;
  /// What NC_ORIGIN would have to print for the system of the first move. It was not written then,
  /// as for a text in one system.
  std::string_view unsaid_;
  /// By their numbers, from 1 to 9, the last systems that the text was in.
  std::map<int, WorkFrame> numbered_;
  std::optional<FrameMotion> motion_;

  bool isChanged_ = true;
  /// The call that changed the system last, and its place, for messages.
  std::string_view changedBy_;
  SourceLine changedAt_ = 0;
  bool hasConverted_ = false;
  std::optional<std::pair<int, int>> merged_;
};

}  // namespace host
