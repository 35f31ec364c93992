#pragma once

#include <optional>
#include <string_view>

#include "Manufacturing/KEPMfgParameterValue.h"
#include "src/syntax/LineWriter.h"

namespace ppword {

/// The door through which the syntax passes see the world: a parameter name becomes a text.
class ParameterSource {
 public:
  ParameterSource() = default;
  ParameterSource(const ParameterSource&) = delete;
  ParameterSource& operator=(const ParameterSource&) = delete;
  virtual ~ParameterSource() = default;

  /// Appends to `out` the text of the parameter called `name`, or what stands in the place of one
  /// that cannot be evaluated.
  virtual void appendText(std::string_view name, LineWriter& out) = 0;

  /// The value of the parameter called `name` before any format; nothing when nobody knows it.
  [[nodiscard]] virtual std::optional<KEPMfgParameterValue> typedValue(std::string_view name) = 0;

  /// Hears of characters behind the name of a reference that stand in no output.
  virtual void textDropped(std::string_view name, std::string_view text) = 0;
};

}  // namespace ppword
