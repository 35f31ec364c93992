#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "post/consumer/Consumer.h"

namespace host {

/// Finds the lines of a finished text that a consumer does not take, in constant memory.
class ConsumerText {
 public:
  /// What is wrong at a place of a line; both count from 1.
  struct Unfit {
    long line;
    long column;
    std::size_t width;
    std::string what;
    /// The line without its end; valid during the call.
    std::string_view text;
  };
  using Sink = std::function<void(const Unfit& unfit)>;

  /// `textWords`: as for ConsumerLines.
  ConsumerText(const Consumer& consumer, std::vector<std::string> textWords, Sink report);

  /// The next bytes of the text, as many as there are at hand. The end of a line of more than 1 MiB
  /// is not looked at.
  void add(std::string_view bytes);
  /// The text ends; its last line needs no line feed.
  void finish();

 private:
  void check(std::string_view line);
  [[nodiscard]] std::string_view withoutEnd(std::string_view line);
  [[nodiscard]] std::string_view withoutNumber(std::string_view line);
  void checkWidth(std::string_view line) const;
  void checkCharacters(std::string_view line) const;
  void checkWord(std::string_view line) const;
  void report(std::string_view line, std::size_t at, std::size_t width, std::string what) const;

  Consumer consumer_;
  std::vector<std::string> textWords_;
  Sink report_;
  std::string line_;
  long number_ = 0;
  /// The number that the next line has.
  long due_;
  /// True once another end of a line was reported.
  bool hasOtherEnd_ = false;
};

}  // namespace host
