#include "inspect/lint/CutLines.h"

namespace host {
namespace {

constexpr std::size_t kFullWidth = 80;

bool endsInName(const std::string& line) {
  if (line.size() != kFullWidth || line.back() == ',') return false;
  const std::size_t mark = line.find_last_of(",%", kFullWidth - 2);
  return mark != std::string::npos && line[mark] == '%';
}

}  // namespace

std::vector<TableLine> mendCutLines(std::vector<TableLine> lines) {
  std::vector<TableLine> mended;
  std::size_t carry = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    TableLine& line = lines[i];
    const bool isCut = i + 1 < lines.size() && endsInName(line.text);
    const std::size_t comma = isCut ? lines[i + 1].text.find(',') : std::string::npos;
    line.text.erase(0, carry);
    line.offset += carry;
    carry = comma == std::string::npos || comma == 0 ? 0 : comma + 1;
    if (carry > 0) {
      line.joinedAt = line.text.size();
      line.joinedOffset = lines[i + 1].offset;
      line.text.append(lines[i + 1].text, 0, carry);
    }
    mended.push_back(std::move(line));
  }
  return mended;
}

}  // namespace host
