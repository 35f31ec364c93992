#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "Manufacturing/KEPMfgParameterValue.h"

namespace ppword::test {

/// The rules of a syntax line written down step by step, without any regard to speed: what the
/// engine is compared with.
class LiteralPasses {
 public:
  using Lookup = std::function<std::optional<KEPMfgParameterValue>(const std::string& name)>;

  explicit LiteralPasses(Lookup lookup) : lookup_(std::move(lookup)) {}

  /// The line that a line of syntax gives.
  [[nodiscard]] std::string instantiated(std::string line);

  [[nodiscard]] static std::string cleaned(std::string line);
  [[nodiscard]] static std::string divisionsRewritten(std::string line);

 private:
  [[nodiscard]] std::string masked(std::string line);
  [[nodiscard]] std::string restored(std::string line);
  [[nodiscard]] std::string grouped(const std::string& line, const std::string& prefix) const;
  [[nodiscard]] std::string substituted(const std::string& line, const std::string& prefix) const;
  [[nodiscard]] std::string evaluated(std::string line) const;
  [[nodiscard]] std::optional<std::string> operation(const std::string& inner, char sign,
                                                     const std::string& prefix) const;
  [[nodiscard]] bool readSide(const std::string& side, const std::string& prefix, int& kind,
                              double& value) const;
  [[nodiscard]] std::string valueOf(const std::string& name) const;

  Lookup lookup_;
  std::vector<int> ordinals_;
  std::vector<std::string> signs_;
};

}  // namespace ppword::test
