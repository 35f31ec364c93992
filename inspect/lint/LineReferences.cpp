#include "inspect/lint/LineReferences.h"

#include <algorithm>

namespace host {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
// Before references are replaced every sign is a comma.
constexpr std::string_view kCommas = ",+*-";
// A group with a smaller divisor stays.
constexpr double kLeastDivisor = 1.0e-7;

std::string_view withoutBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

void fill(std::string& text, std::size_t from, std::size_t end, char byte) {
  std::fill(text.begin() + static_cast<long>(from), text.begin() + static_cast<long>(end), byte);
}

/// Takes the references of one prefix after the other, as the module does.
class ReferenceReader {
 public:
  explicit ReferenceReader(LineReading& reading) : reading_(reading), flat_(reading.flat) {}

  void run() {
    readGroups('&');
    readNames('&');
    readExpressions();
    readGroups('%');
    readNames('%');
    std::sort(reading_.references.begin(), reading_.references.end(),
              [](const auto& left, const auto& right) { return left.start < right.start; });
  }

 private:
  void readGroups(char prefix) {
    std::size_t open = flat_.find('(');
    while (open != kNone) {
      const std::size_t close = flat_.find(')', open);
      if (close == kNone) return;
      readGroup(open, close, prefix);
      open = flat_.find('(', close);
    }
  }

  void readGroup(std::size_t open, std::size_t close, char prefix) {
    const std::size_t slash = flat_.find('/', open);
    if (slash == kNone || slash > close) return;
    if (!isOperand(open + 1, slash, prefix) || !isOperand(slash + 1, close, prefix)) return;
    const auto divisor =
        leadingNumber(std::string_view(flat_).substr(slash + 1, close - slash - 1));
    if (divisor && *divisor <= kLeastDivisor) return;
    addOperand(open + 1, slash, prefix);
    addOperand(slash + 1, close, prefix);
    reading_.results.push_back({open, close + 1});
    fill(flat_, open, close + 1, kValueByte);
  }

  [[nodiscard]] bool isOperand(std::size_t from, std::size_t end, char prefix) const {
    const std::string_view side = std::string_view(flat_).substr(from, end - from);
    if (!side.starts_with(prefix)) return mayBeNumber(side) && side.find_first_of(kCommas) == kNone;
    return side.size() > 1 && side.find_first_of(",+*-/%&( ", 1) == kNone;
  }

  void addOperand(std::size_t from, std::size_t end, char prefix) {
    if (flat_[from] != prefix) return;
    const std::string_view name = reading_.text.substr(from + 1, end - from - 1);
    reading_.references.push_back({from, name, name});
  }

  void readNames(char prefix) {
    hasPreferred_ = true;
    for (std::size_t at = flat_.find(prefix); at != kNone; at = flat_.find(prefix, at)) {
      const std::size_t end = endOf(at, kCommas);
      const std::string_view name = reading_.text.substr(at + 1, end - at - 1);
      std::string_view parameter = name.substr(0, name.find(')'));
      const std::size_t closed = at + 1 + parameter.size();
      if (prefix == '%') parameter = parameter.substr(0, parameter.find('$'));
      reading_.references.push_back({at, name, withoutBlanks(parameter)});
      fill(flat_, at, closed, kValueByte);
      fill(flat_, closed, end, ')');
      at = end;
    }
  }

  void readExpressions() {
    hasPreferred_ = true;
    for (std::size_t at = flat_.find("%("); at != kNone; at = flat_.find("%(", at)) {
      const std::size_t end = endOf(at, ")");
      const std::string_view name = reading_.text.substr(at + 1, end - at - 1);
      reading_.references.push_back({at, name, name, true});
      const std::size_t next = hasPreferred_ ? end + 1 : end;
      reading_.results.push_back({at, next});
      fill(flat_, at, next, kValueByte);
      at = next;
    }
  }

  /// Where the name of a reference ends. A line is looked through once for each prefix.
  std::size_t endOf(std::size_t start, std::string_view preferred) {
    std::size_t end = hasPreferred_ ? flat_.find_first_of(preferred, start + 1) : kNone;
    hasPreferred_ = end != kNone;
    if (!hasPreferred_) end = flat_.find_first_of(" \n\"", start + 1);
    return std::min(end, flat_.size());
  }

  LineReading& reading_;
  std::string& flat_;
  bool hasPreferred_ = true;
};

}  // namespace

void readReferences(LineReading& reading) { ReferenceReader(reading).run(); }

}  // namespace host
