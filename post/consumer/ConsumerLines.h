#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "post/consumer/Consumer.h"
#include "post/output/LineSink.h"

namespace host {

/// A line that a consumer does not take, and why.
class UnfitLine : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Writes lines as a consumer takes them: a statement that is too long goes on in the next line
/// after a comma and a $, other characters are replaced, lines are numbered. A line of the text
/// arrives at the sink as one text, with line feeds between the lines that it became. It raises an
/// UnfitLine for a line that cannot be written, after which the text is of no use: a text that is
/// too long, a statement without a comma where it has to be broken, a word that is too long,
/// another character that is refused, and a number of more than eight digits.
class ConsumerLines final : public LineSink {
 public:
  /// `textWords`: the words of a table after which the rest of a line is text. The sink must
  /// outlive the object.
  ConsumerLines(const Consumer& consumer, std::vector<std::string> textWords, LineSink& next);

  void write(std::string_view line) override;

  /// A character that was replaced: how often, and in which line of the text first.
  struct Replaced {
    std::string character;
    long count;
    long firstLine;
  };
  /// In the order in which they came. Those after the first hundred are counted together, with an
  /// empty character.
  [[nodiscard]] const std::vector<Replaced>& replaced() const noexcept { return replaced_; }

 private:
  void writeOne(std::string_view line);
  [[nodiscard]] std::string inSet(std::string_view line);
  void count(std::string_view character);
  void wrap(std::string_view line, bool isText);
  void put(std::string_view columns);

  Consumer consumer_;
  std::vector<std::string> textWords_;
  LineSink& next_;
  /// What the line that is being written became so far.
  std::string out_;
  bool isFirst_ = true;
  long lines_ = 0;
  std::vector<Replaced> replaced_;
};

}  // namespace host
