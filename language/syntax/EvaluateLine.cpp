#include "language/syntax/EvaluateLine.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "language/number/DecimalPrefix.h"
#include "language/number/NumberFormat.h"
#include "language/syntax/CharacterTable.h"
#include "language/syntax/Characters.h"
#include "language/syntax/EscapedPercent.h"
#include "language/syntax/Operation.h"

namespace ppword {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr CharacterTable kLeftEnds("/,=()");
constexpr CharacterTable kRightEnds("/,*+=()-");
constexpr CharacterTable kOperators("+-*");
constexpr CharacterTable kNumberCharacters("0123456789., -");

/// At most this much of a kept left operand is reported; it grows with each operation.
constexpr std::size_t kReportedSize = 200;

bool isText(std::string_view line) {
  return line.find("$$") != kNone || line.find("PPRINT") != kNone || line.find("*VORTA") != kNone;
}

std::optional<double> numberOf(std::string_view operand) {
  if (kNumberCharacters.firstOtherIn(operand) < operand.size()) return std::nullopt;
  return decimalPrefix(operand);
}

/// The right operand that `text` begins with: a "-" in front is its sign.
std::string_view rightOperand(std::string_view text) {
  const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
  const bool isSigned = first < text.size() && text[first] == '-';
  return text.substr(0, kRightEnds.firstIn(text, first + (isSigned ? 1 : 0)));
}

/// The result of an operation; nothing when it cannot be printed.
std::optional<std::string> resultOf(double left, char sign, double right) {
  const double value = computed(sign, left, right);
  std::string text;
  // deliberate: a result that is too large becomes 0; large negative ones are not bounded.
  const bool done = printNumber(kResultFormat, value > kOverflowBound ? 0.0 : value, text);
  return done ? std::optional(std::move(text)) : std::nullopt;
}

/// The left operand, which ends a text. It grows while operations on it are kept: what was read of
/// it is not read again, so that a line costs its length.
class LeftOperand {
 public:
  explicit LeftOperand(std::string& text) : text_(text) {}

  [[nodiscard]] std::string_view view() const { return std::string_view(text_).substr(start_); }

  [[nodiscard]] std::optional<double> number() {
    plainEnd_ = kNumberCharacters.firstOtherIn(text_, plainEnd_);
    if (plainEnd_ < text_.size()) return std::nullopt;
    if (!isConverted_) number_ = decimalPrefix(view());
    // Blanks may become a number by the sign behind them, anything else stays what it is.
    isConverted_ = isConverted_ || view().find_first_not_of(' ') != kNone;
    return number_;
  }

  /// The next operand begins at the end of the text.
  void begin() {
    start_ = plainEnd_ = text_.size();
    isConverted_ = false;
  }

  void replace(std::string_view by) {
    text_.resize(start_);
    begin();
    text_ += by;
  }

 private:
  std::string& text_;
  std::size_t start_ = 0;
  /// Up to here it holds characters of numbers only.
  std::size_t plainEnd_ = 0;
  std::optional<double> number_;
  bool isConverted_ = false;
};

/// The end of a left operand, cut between characters.
std::string endOf(std::string_view operand) {
  if (operand.size() <= kReportedSize) return std::string(operand);
  operand.remove_prefix(operand.size() - kReportedSize);
  while (!operand.empty() && !startsCharacter(operand.front())) {
    operand.remove_prefix(1);
  }
  return "..." + std::string(operand);
}

/// Computes a line from left to right: what was worked out stands in `out`, the rest is still text.
class Evaluator {
 public:
  Evaluator(std::string& out, LineObserver* observer)
      : out_(out), left_(out), observer_(observer) {}

  void run(std::string_view text) {
    while (true) {
      const std::size_t plain = kOperators.firstIn(text);
      copy(text.substr(0, plain));
      if (plain == text.size()) return;
      const char sign = text[plain];
      text.remove_prefix(plain + 1);
      const std::string_view right = rightOperand(text);
      operate(sign, right);
      text.remove_prefix(right.size());
    }
  }

 private:
  /// Copies text without operators.
  void copy(std::string_view text) {
    const std::size_t ended = kLeftEnds.throughLastIn(text);
    out_ += text.substr(0, ended);
    if (ended > 0) left_.begin();
    out_ += text.substr(ended);
  }

  void operate(char sign, std::string_view right) {
    // deliberate: no operator ends a left operand, so that results join in without precedence.
    const std::string_view left = left_.view();
    if (sign == '-' && left.empty() && !right.empty()) {
      // deliberate: a "-" in front of what is no number is deleted with it.
      if (decimalPrefix(right)) return keep(sign, right);
      report(OperationEnd::Deleted, left, sign, right);
    } else if (left.empty() || right.empty()) {
      // deliberate: an operator without one of its operands is deleted with the other.
      report(OperationEnd::Deleted, left, sign, right);
      left_.replace({});
    } else if (const auto result = computedWith(sign, right)) {
      report(OperationEnd::Computed, left, sign, right, *result);
      left_.replace(*result);
    } else {
      report(OperationEnd::Kept, left, sign, right);
      keep(sign, right);
    }
  }

  /// The result of an operation on the left operand; nothing when an operand is no number.
  [[nodiscard]] std::optional<std::string> computedWith(char sign, std::string_view right) {
    const auto rightNumber = numberOf(right);
    const auto leftNumber = rightNumber ? left_.number() : std::nullopt;
    return leftNumber ? resultOf(*leftNumber, sign, *rightNumber) : std::nullopt;
  }

  void keep(char sign, std::string_view right) {
    out_ += sign;
    out_ += right;
  }

  void report(OperationEnd end, std::string_view left, char sign, std::string_view right,
              std::string_view result = {}) const {
    if (observer_ == nullptr) return;
    std::string text = end == OperationEnd::Kept ? endOf(left) : std::string(left);
    (text += sign) += right;
    observer_->operationEnded(end, withEscapedPercents(text), result);
  }

  std::string& out_;
  LeftOperand left_;
  LineObserver* observer_;
};

/// Removes the blanks directly behind every "-".
void closeUpNegatives(std::string& line) {
  if (line.find("- ") == kNone) return;
  char before = 0;
  std::erase_if(line, [&before](char character) {
    if (before == '-' && character == ' ') return true;
    before = character;
    return false;
  });
}

}  // namespace

void evaluateLine(SyntaxLine& line, const SignRecords& records, LineObserver* observer) {
  if (records.signs.empty() || isText(line.text())) return;
  std::string& out = line.draft();
  Evaluator(out, observer).run(line.text());
  closeUpNegatives(out);
  line.accept();
}

}  // namespace ppword
