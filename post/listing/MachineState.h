#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "post/listing/LengthUnit.h"
#include "post/listing/Vocabulary.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// The feed rate set by the listing, and the one last written.
class FeedState {
 public:
  /// Whether rates are per revolution; they are per minute at first.
  void setPerRevolution(bool perRevolution) { rate_.perRevolution = perRevolution; }
  /// A rate in units of length of the place where it is set.
  void setRate(double rate, LengthUnit unit);
  /// Until the stop, moves take this feed rate per revolution instead.
  void startSynchronised(double feed, LengthUnit unit) { synchronised_ = Rate{feed, unit, true}; }
  void stopSynchronised() { synchronised_.reset(); }

  /// What the feed rate buffer needs before a move at feed rate; nothing if that rate was written
  /// last, or if none is set. The rate then counts as written. `text` is the unit of the output's
  /// positions.
  [[nodiscard]] std::optional<FeedrateChange> pendingChange(const Vocabulary& vocabulary,
                                                            LengthUnit text);

 private:
  struct Rate {
    double value = 0.0;
    LengthUnit unit = LengthUnit::Millimetre;
    bool perRevolution = false;
    friend bool operator==(const Rate&, const Rate&) = default;
  };

  Rate rate_;
  bool isSet_ = false;
  std::optional<Rate> synchronised_;
  std::optional<Rate> lastWritten_;
};

/// The spindle as set by the listing. Each function returns the element that the output needs,
/// without its line; nothing if the call changes nothing. `surface` is the unit of surface speeds
/// in the output: metres for a metric one, feet for inches.
class SpindleState {
 public:
  /// The codes of the spindle buffer's way.
  enum class Way { Clockwise = 1, Counterclockwise = 2 };

  /// Whether speeds are surface speeds; they are revolutions per minute at first.
  void setSurfaceSpeeds(bool surface) { speed_.isSurface = surface; }
  /// A speed; a surface speed in metres or feet per minute, as the unit of its place says.
  [[nodiscard]] std::optional<Element> setSpeed(double value, LengthUnit unit, LengthUnit surface);
  [[nodiscard]] std::optional<Element> start(Way way, LengthUnit surface);
  [[nodiscard]] std::optional<Element> stop();

 private:
  enum class Turning { Unknown, Stopped, Yes };
  struct Speed {
    double value = 0.0;
    bool isSurface = false;
    friend bool operator==(const Speed&, const Speed&) = default;
  };

  [[nodiscard]] Speed wanted(LengthUnit surface) const;

  Turning turning_ = Turning::Unknown;
  Way way_ = Way::Clockwise;
  /// As set by the listing: a surface speed in the unit of its place.
  Speed speed_;
  LengthUnit unit_ = LengthUnit::Millimetre;
  /// As last written.
  Speed lastWritten_;
};

/// The coolant as set by the listing. Each function returns the sequences of the coolant command
/// that the output needs, in order; none if the call changes nothing.
class Coolant {
 public:
  enum class Kind { Flood, Mist };
  using Sequences = std::vector<int>;

  // The sequences of the coolant command. The last one switches both kinds off.
  static constexpr int kFlood = 1;
  static constexpr int kMist = 2;
  static constexpr int kOff = 3;

  [[nodiscard]] Sequences on(Kind kind);
  [[nodiscard]] Sequences off(Kind kind);

 private:
  [[nodiscard]] bool& runs(Kind kind) { return runs_[static_cast<std::size_t>(kind)]; }

  std::array<bool, 2> runs_{};
  /// False until the first coolant call; the state before it is unknown.
  bool isKnown_ = false;
};

}  // namespace host
