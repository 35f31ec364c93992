#pragma once

#include <string>
#include <string_view>

namespace ppword {

/// The door through which the syntax passes see the world: a parameter name becomes a text.
class ParameterSource {
 public:
  ParameterSource() = default;
  ParameterSource(const ParameterSource&) = delete;
  ParameterSource& operator=(const ParameterSource&) = delete;
  virtual ~ParameterSource() = default;

  /// Appends the text of the parameter called `name` to `out`. False, with `out` untouched, when it
  /// cannot be evaluated.
  [[nodiscard]] virtual bool appendText(std::string_view name, std::string& out) = 0;
};

}  // namespace ppword
