#include "inspect/lint/LineOperations.h"

#include <algorithm>

namespace host {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kOperators = "+-*";
constexpr std::string_view kLeftEnds = "/,=()";
constexpr std::string_view kRightEnds = "/,*+=()-";

/// The right operand that `text` begins with: a "-" in front is its sign.
std::string_view rightOperand(std::string_view text) {
  const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
  const bool isSigned = first < text.size() && text[first] == '-';
  return text.substr(0, text.find_first_of(kRightEnds, first + (isSigned ? 1 : 0)));
}

/// Walks through a line as its evaluation does.
class OperationReader {
 public:
  explicit OperationReader(LineReading& reading) : reading_(reading), flat_(reading.flat) {}

  void run() {
    for (std::size_t at = 0; at < flat_.size(); ++at) {
      if (kLeftEnds.find(flat_[at]) != kNone) {
        beginAt(at + 1);
      } else if (kOperators.find(flat_[at]) != kNone) {
        at = operate(at) - 1;
      }
    }
  }

 private:
  void beginAt(std::size_t begin) {
    begin_ = begin;
    isChain_ = isSum_ = false;
  }

  /// Gives the position behind the operation.
  std::size_t operate(std::size_t at) {
    const std::string_view right = rightOperand(flat_.substr(at + 1));
    const std::size_t end = at + 1 + right.size();
    const bool hasLeft = at > begin_;
    const bool isNumber = isChain_ ? isNumber_ : mayBeNumber(flat_.substr(begin_, at - begin_));
    reading_.operations.push_back({at, flat_[at], hasLeft, isNumber, isSum_, right, begin_, end});
    if (hasLeft && !right.empty()) {
      isChain_ = true;
      isNumber_ = isNumber && mayBeNumber(right);
      if (isNumber_) reading_.results.push_back({begin_, end});
      isSum_ = isSum_ || flat_[at] != '*';
    } else if (flat_[at] != '-' || !mayBeNumber(right)) {
      beginAt(end);
    }
    return end;
  }

  LineReading& reading_;
  std::string_view flat_;
  std::size_t begin_ = 0;
  bool isChain_ = false;
  bool isNumber_ = false;
  bool isSum_ = false;
};

}  // namespace

void readOperations(LineReading& reading) { OperationReader(reading).run(); }

}  // namespace host
