#pragma once

#include <optional>

#include "post/listing/LengthUnit.h"
#include "post/listing/ListingWords.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// The feed rate that the calls of a listing set, and the one that the text has told.
class FeedState {
 public:
  /// Whether rates are per revolution; they are per minute at first.
  void setPerRevolution(bool perRevolution) { rate_.perRevolution = perRevolution; }
  /// A rate in units of length of the place where it is set.
  void setRate(double rate, LengthUnit unit);
  /// Until the stop, moves take this feed rate per revolution instead.
  void startSynchronised(double feed, LengthUnit unit) { synchronised_ = Rate{feed, unit, true}; }
  void stopSynchronised() { synchronised_.reset(); }

  /// What the feed rate buffer needs before a move at feed rate; nothing where the text has told
  /// that rate last, and where none is set. `text` is the unit of the text's positions.
  [[nodiscard]] std::optional<FeedrateChange> due(const ListingWords& words, LengthUnit text);

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
  std::optional<Rate> told_;
};

}  // namespace host
