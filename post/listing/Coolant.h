#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace host {

/// The coolant as the calls of a listing switch it. Each operation gives the sequences of the
/// coolant command that the text needs, in order; none where the call changes nothing.
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
  /// False until the first call: nobody tells what runs before it.
  bool isKnown_ = false;
};

}  // namespace host
