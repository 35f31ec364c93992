#pragma once

#include <functional>
#include <string>
#include <vector>

/// What is measured: `prepare` returns a function that is called again and again, and that owns
/// what it works on. It throws when it does not get what it should.
struct Work {
  std::string name;
  /// How often it is called when instructions are counted, and before that.
  int calls = 1;
  std::function<std::function<void()>()> prepare;
};

using Works = std::vector<Work>;

/// Lines of instructions by the engine, and the same texts by loops written by hand.
[[nodiscard]] Works engineWorks();
[[nodiscard]] Works handWorks();
[[nodiscard]] Works tableWorks();
[[nodiscard]] Works documentWorks();
[[nodiscard]] Works postWorks();
