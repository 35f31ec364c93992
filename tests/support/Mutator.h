#pragma once

#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

/// The seed that PPWORD_TEST_SEED names, a random one without it.
[[nodiscard]] inline unsigned chosenSeed() {
  const char* const given = std::getenv("PPWORD_TEST_SEED");
  return given != nullptr ? static_cast<unsigned>(std::strtoul(given, nullptr, 10))
                          : std::random_device()();
}

/// Damages texts: bytes and letters of a set replaced, put in and taken out, pieces doubled and
/// lost.
class Mutator {
 public:
  Mutator(unsigned seed, std::string_view letters) : random_(seed), letters_(letters) {}

  [[nodiscard]] std::string mutate(std::string text) {
    for (std::size_t rounds = 1 + below(3); rounds > 0; --rounds) mutateOnce(text);
    return text;
  }

 private:
  std::size_t below(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
  }
  char letter() { return letters_[below(letters_.size())]; }

  void mutateOnce(std::string& text) {
    const std::size_t at = below(text.size());
    switch (below(6)) {
      case 0:
        text[at] = static_cast<char>(below(256));
        return;
      case 1:
        text[at] = letter();
        return;
      case 2:
        text.insert(at, 1, letter());
        return;
      case 3:
        text.erase(at, 1 + below(3));
        break;
      case 4:
        text.insert(below(text.size()), text.substr(at, 1 + below(90)));
        return;
      default:
        text.erase(at, 1 + below(90));
    }
    if (text.empty()) text = "\n";
  }

  std::mt19937 random_;
  std::string_view letters_;
};
