#include "inspect/lint/SyntaxLineReader.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "language/number/DecimalPrefix.h"
#include "language/number/NumberFormat.h"
#include "language/syntax/Arithmetic.h"
#include "language/syntax/Characters.h"
#include "language/syntax/LeftOperand.h"
#include "language/syntax/ReferenceCursor.h"
#include "language/table/Keywords.h"

namespace host {
namespace {

/// The number that a side of a group is taken for.
std::optional<double> numberOf(const ppword::GroupSide& side) {
  if (!side.isReference) return ppword::decimalPrefix(side.text);
  return mayBeParameter(ppword::withoutBlanks(side.text)) ? std::optional(1.0) : std::nullopt;
}

std::optional<double> valueOf(const ppword::Group& group) {
  const auto left = numberOf(group.left);
  const auto right = left ? numberOf(group.right) : std::nullopt;
  return right ? ppword::groupValue(group.sign, *left, *right) : std::nullopt;
}

/// True for a side of which nothing is left out.
bool isWhole(const ppword::GroupSide& side) {
  return side.isReference || side.text.find_first_not_of("0123456789. ") == side.text.npos;
}

bool beginsWithBlank(double result) {
  std::string text;
  return ppword::printNumber(ppword::kResultFormat, result, text) && text.starts_with(' ');
}

/// Takes an operation into its left operand as the passes do; true when it has a result.
bool compute(const ppword::Operation& operation, ppword::LeftOperand& left) {
  left.read(operation);
  const bool hasBoth = operation.operands == ppword::Operands::Both;
  const auto result = hasBoth ? left.computedWith(operation) : std::nullopt;
  if (operation.operands == ppword::Operands::SignOfNumber || (hasBoth && !result)) {
    left.keep(operation);
  } else {
    left.replace(result.value_or(""));
  }
  return result.has_value();
}

}  // namespace

bool mayBeParameter(std::string_view name) {
  return !name.empty() && name.find_first_of(",+*-/ %&()") == name.npos;
}

const LineReading& SyntaxLineReader::read(std::string_view line) {
  start(line);
  readDivisions();
  maskSigns();
  for (const auto prefix :
       {ppword::kWordPrefix, ppword::kExpressionPrefix, ppword::kNumberPrefix}) {
    readGroups(prefix);
    readReferences(prefix);
  }
  restoreSigns();
  reading_.isComment = ppword::isComment(flat_);
  reading_.isProse = reading_.isComment || ppword::isTextWord(line.substr(0, line.find(' ')));
  if (!reading_.isComment) readOperations();
  showOddGroups();
  std::sort(reading_.references.begin(), reading_.references.end(),
            [](const auto& left, const auto& right) { return left.start < right.start; });
  return reading_;
}

void SyntaxLineReader::start(std::string_view line) {
  line_.start(line);
  ppword::maskEscapedPercents(line_);
  text_ = line_.text();
  flat_ = text_;
  reading_.line = line;
  reading_.text = text_;
  reading_.values.assign(text_.size(), false);
  reading_.masks.clear();
  reading_.references.clear();
  reading_.divisions.clear();
  reading_.operations.clear();
  reading_.results.clear();
  odd_.clear();
  oddReferences_.clear();
  for (std::size_t at = line.find(ppword::kEscapedPercent); at != line.npos;
       at = line.find(ppword::kEscapedPercent, at + 1)) {
    reading_.masks.push_back(at + reading_.masks.size() * kMaskGrowth);
  }
}

void SyntaxLineReader::readDivisions() {
  ppword::DivisionCursor divisions(reading_.text);
  while (auto division = divisions.next()) {
    if (!division->reciprocal.empty()) {
      flat_[division->at] = '*';
      putValue(division->at + 1, division->end());
      if (division->reciprocal.find('e') != std::string::npos) putExponent(*division);
    }
    reading_.divisions.push_back(std::move(*division));
  }
}

/// The sign of an exponent is masked as any other. The shortest divisor with such a reciprocal,
/// as 2e4, has no space for the digit before the "e".
void SyntaxLineReader::putExponent(const ppword::Division& division) {
  const std::string_view digits = division.divisor.size() > 3 ? "1e-1" : "e-1";
  flat_.replace(division.at + 1, digits.size(), digits);
}

void SyntaxLineReader::maskSigns() {
  divided_ = flat_;
  line_.start(flat_);
  ppword::maskSigns(line_, signs_);
  flat_ = line_.text();
}

void SyntaxLineReader::readGroups(std::string_view prefix) {
  ppword::GroupCursor groups(flat_, prefix);
  while (const auto group = groups.next()) {
    const auto value = valueOf(*group);
    if (!value) continue;
    readOperand(group->left);
    readOperand(group->right);
    reading_.results.push_back({group->open, group->close + 1});
    if (!isWhole(group->left) || !isWhole(group->right)) {
      odd_.push_back(reading_.results.back());
      for (const ppword::GroupSide& side : {group->left, group->right}) {
        if (side.isReference) oddReferences_.push_back(spanOf(side));
      }
    }
    putValue(group->open, group->close + 1);
    if (beginsWithBlank(*value)) flat_.replace(group->open, 2, " 1");
  }
}

void SyntaxLineReader::readOperand(const ppword::GroupSide& side) {
  if (!side.isReference) return;
  const LineResult span = spanOf(side);
  const std::string_view name = reading_.text.substr(span.begin + 1, side.text.size());
  reading_.references.push_back({span.begin, name, ppword::withoutBlanks(name)});
}

/// Where a reference of a group is, its first character included.
LineResult SyntaxLineReader::spanOf(const ppword::GroupSide& side) const {
  const auto begin = static_cast<std::size_t>(side.text.data() - flat_.data());
  return {begin - 1, begin + side.text.size()};
}

void SyntaxLineReader::readReferences(std::string_view prefix) {
  const bool isExpression = prefix == ppword::kExpressionPrefix;
  ppword::ReferenceCursor references(flat_, prefix, ppword::CharacterSet(flat_));
  while (const auto reference = references.next()) {
    const auto& [start, end, name, dollar, parenthesis, beforeLineFeed, parentheses] = *reference;
    const std::size_t size =
        name.size() + dollar.size() + parenthesis.size() + beforeLineFeed.size();
    reading_.references.push_back(
        {start, reading_.text.substr(start + 1, size),
         ppword::withoutBlanks(reading_.text.substr(start + 1, name.size())), parentheses,
         isExpression});
    if (isExpression) reading_.results.push_back({start, end});
    putValue(start, end - parentheses);
    flat_.replace(end - parentheses, parentheses, parentheses, ')');
  }
}

void SyntaxLineReader::restoreSigns() {
  line_.start(flat_);
  // The records are those of this line.
  (void)ppword::restoreSigns(line_, signs_, nullptr);
  flat_ = line_.text();
}

void SyntaxLineReader::readOperations() {
  std::string computed;
  ppword::LeftOperand left(computed);
  ppword::OperationCursor operations(flat_);
  bool isSum = false;
  while (const auto operation = operations.next()) {
    if (!reading_.operations.empty() && operation->begin != reading_.operations.back().begin) {
      isSum = false;
    }
    const bool isComputed = compute(*operation, left);
    reading_.operations.push_back({*operation, isSum, isComputed});
    if (isComputed) reading_.results.push_back({operation->begin, operation->end()});
    isSum = isSum || (operation->operands == ppword::Operands::Both && operation->sign != '*');
  }
}

void SyntaxLineReader::showOddGroups() {
  for (const auto [begin, end] : odd_) {
    flat_.replace(begin, end - begin, divided_, begin, end - begin);
    for (std::size_t at = begin; at < end; ++at) reading_.values[at] = false;
  }
  for (const auto [begin, end] : oddReferences_) putValue(begin, end);
}

/// Puts a number in place of a part of the line.
void SyntaxLineReader::putValue(std::size_t begin, std::size_t end) {
  for (std::size_t at = begin; at < end; ++at) {
    flat_[at] = at == begin ? '1' : at == begin + 1 ? '.' : '0';
    reading_.values[at] = true;
  }
}

}  // namespace host
