#include <algorithm>
#include <array>
#include <functional>
#include <string>

#include "inspect/lint/LintCatalogue.h"
#include "inspect/lint/VocabularyRules.h"
#include "language/table/Keywords.h"

namespace host {
namespace {

using Named = TableBlocks::Named;
using Blocks = std::vector<const Named*>;

/// Names in order, for a search.
class Names {
 public:
  void add(std::string_view name) { names_.push_back(name); }
  void sort() { std::sort(names_.begin(), names_.end()); }
  [[nodiscard]] bool holds(std::string_view name) const {
    return std::binary_search(names_.begin(), names_.end(), name);
  }

 private:
  std::vector<std::string_view> names_;
};

// A shorter name is one mistake away from too many others.
constexpr std::size_t kShortest = ppword::kParameterPrefix.size() + 3;

std::string_view withoutDigits(std::string_view name) {
  return name.substr(0, name.find_last_not_of("0123456789") + 1);
}

/// Warns of blocks with a name that `isUsed` does not hold. A name is taken for another one that is
/// one mistake away and has no block; names that differ in the number at their end are different
/// on purpose.
void lintNames(const Blocks& blocks, const std::function<bool(std::string_view)>& isUsed,
               LintFindings& findings) {
  Names own;
  for (const Named* const block : blocks) own.add(block->name.text);
  own.sort();
  for (const Named* const block : blocks) {
    const std::string_view name = block->name.text;
    if (name.empty() || isUsed(name)) continue;
    const auto isMeant = [&](std::string_view other) {
      return isUsed(other) && !own.holds(other) && withoutDigits(other) != withoutDigits(name);
    };
    const std::string meant = name.size() < kShortest ? "" : oneMistakeFrom(name, isMeant);
    if (!meant.empty()) {
      findings.warn(LintKey::MisspeltName, block->name.offset, name.size(),
                    std::string(name) + ", perhaps " + meant);
    } else if (!block->keyword.contains(ppword::kCommandKeyword)) {
      findings.warn(LintKey::UnusedName, block->name);
    }
  }
}

void append(const std::vector<Named>& blocks, Blocks& all) {
  all.reserve(all.size() + blocks.size());
  for (const Named& block : blocks) all.push_back(&block);
}

void lintParameterNames(const TableBlocks& blocks, const Names& referred, LintFindings& findings) {
  const auto& known = lintCatalogue().parameters;
  const auto isUsed = [&](std::string_view name) {
    return known.contains(name) || referred.holds(name);
  };
  Blocks all;
  append(blocks.lists, all);
  append(blocks.formats, all);
  lintNames(all, isUsed, findings);
}

void lintInstructionNames(const TableBlocks& blocks, LintFindings& findings) {
  Names inserted;
  for (const Named& insert : blocks.inserts) inserted.add(insert.name.text);
  inserted.sort();
  const auto& known = lintCatalogue().instructions;
  const auto isUsed = [&](std::string_view name) {
    return known.contains(name) || inserted.holds(name);
  };
  Blocks all;
  append(blocks.commands, all);
  lintNames(all, isUsed, findings);
}

/// Their values are printed with six decimals, whatever their format.
constexpr std::array<std::string_view, 4> kWithoutFormat = {
    "MFG_CMP_TL_SET_X", "MFG_CMP_TL_SET_Y", "MFG_CMP_TL_SET_Z", "MFG_CMP_NOSE_RADIUS"};

/// Warns of formats that no number is printed with.
void lintFormats(const TableBlocks& blocks, const Names& printed, const Names& computed,
                 LintFindings& findings) {
  for (const Named& format : blocks.formats) {
    const std::string_view name = format.name.text;
    const bool isFixed =
        std::find(kWithoutFormat.begin(), kWithoutFormat.end(), name) != kWithoutFormat.end();
    if (isFixed || (computed.holds(name) && !printed.holds(name))) {
      findings.warn(LintKey::IdleFormat, format.name);
    }
  }
}

}  // namespace

void lintNamesOfBlocks(const TableBlocks& blocks, const TableUses& uses, LintFindings& findings) {
  Names referred;
  Names printed;
  Names computed;
  for (const auto& [name, isComputed] : uses.parameters) {
    referred.add(name);
    (isComputed ? computed : printed).add(name);
  }
  for (Names* const names : {&referred, &printed, &computed}) names->sort();
  lintParameterNames(blocks, referred, findings);
  lintInstructionNames(blocks, findings);
  lintFormats(blocks, printed, computed, findings);
}

}  // namespace host
