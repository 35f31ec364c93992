#pragma once

#include <optional>
#include <string_view>

#include "language/syntax/LineWriter.h"

namespace ppword {

/// A finite number that a parameter has before any format.
struct ParameterNumber {
  double value;
  bool isInteger;
};

/// The door through which the passes see the world: a parameter name becomes a text.
class ParameterSource {
 public:
  ParameterSource() = default;
  ParameterSource(const ParameterSource&) = delete;
  ParameterSource& operator=(const ParameterSource&) = delete;
  virtual ~ParameterSource() = default;

  /// Appends to `out` the text of the parameter called `name`, or the text that replaces one that
  /// cannot be evaluated.
  virtual void appendText(std::string_view name, LineWriter& out) = 0;

  /// The number of the parameter called `name`; nothing when it is unknown or is not a finite
  /// number.
  [[nodiscard]] virtual std::optional<ParameterNumber> number(std::string_view name) = 0;

  /// Is called for characters after the name of a reference that the output drops.
  virtual void textDropped(std::string_view name, std::string_view text) = 0;
};

}  // namespace ppword
