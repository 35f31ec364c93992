#include <algorithm>
#include <optional>
#include <set>
#include <string>

#include "inspect/lint/LintCatalogue.h"
#include "inspect/lint/VocabularyRules.h"
#include "language/table/Keywords.h"
#include "post/parameters/Parameters.h"
#include "post/text/NearWords.h"

namespace host {
namespace {

using Named = TableBlocks::Named;

/// Names in order, for a search.
class Names {
 public:
  void add(std::string_view name) { names_.push_back(name); }
  void sort() {
    std::sort(names_.begin(), names_.end());
    names_.erase(std::unique(names_.begin(), names_.end()), names_.end());
  }
  [[nodiscard]] bool holds(std::string_view name) const {
    return std::binary_search(names_.begin(), names_.end(), name);
  }
  [[nodiscard]] const std::vector<std::string_view>& all() const noexcept { return names_; }

 private:
  std::vector<std::string_view> names_;
};

// A shorter name is one mistake away from too many others.
constexpr std::size_t kShortest = ppword::kCommandPrefix.size() + 3;

/// Warns of blocks with a name that is neither used in the table nor known to the catalogue. It is
/// taken for another one that is one mistake away and has no block; names that differ in the number
/// at their end are different on purpose.
void lintNamesOf(const std::vector<const Named*>& blocks, const Names& used,
                 const std::set<std::string, std::less<>>& known, const NearWords& nearKnown,
                 LintFindings& findings) {
  Names own;
  for (const Named* const block : blocks) own.add(block->name.text);
  own.sort();
  std::optional<NearWords> near;
  for (const Named* const block : blocks) {
    const std::string_view name = block->name.text;
    if (name.empty() || used.holds(name) || known.contains(name)) continue;
    const auto isMeant = [&](std::string_view other) {
      return !own.holds(other) && withoutNumber(other) != withoutNumber(name);
    };
    std::string_view meant;
    if (name.size() >= kShortest) {
      meant = nearKnown.near(name, isMeant);
      if (meant.empty() && !near) near.emplace(used.all());
      if (meant.empty()) meant = near->near(name, isMeant);
    }
    if (!meant.empty()) {
      findings.warn(LintKey::MisspeltName, block->name.offset, name.size(),
                    (std::string(name) += ", perhaps ") += meant, meant);
    } else if (!block->keyword.contains(ppword::kCommandKeyword)) {
      findings.warn(LintKey::UnusedName, block->name);
    }
  }
}

void append(const std::deque<Named>& blocks, std::vector<const Named*>& all) {
  all.reserve(all.size() + blocks.size());
  for (const Named& block : blocks) all.push_back(&block);
}

void lintParameterNames(const TableBlocks& blocks, const TableUses& uses, LintFindings& findings) {
  Names used;
  for (const auto& [name, printing] : uses.parameters()) used.add(name);
  used.sort();
  std::vector<const Named*> all;
  append(blocks.lists, all);
  append(blocks.formats, all);
  const LintCatalogue& catalogue = lintCatalogue();
  lintNamesOf(all, used, catalogue.parameterNames, catalogue.nearParameters, findings);
}

void lintInstructionNames(const TableBlocks& blocks, LintFindings& findings) {
  Names used;
  for (const auto& insert : blocks.inserts) used.add(insert.name.text);
  used.sort();
  std::vector<const Named*> all;
  append(blocks.commands, all);
  const LintCatalogue& catalogue = lintCatalogue();
  lintNamesOf(all, used, catalogue.instructions, catalogue.nearInstructions, findings);
}

/// True for numbers that are printed with six decimals, whatever their format.
bool isFixed(std::string_view name) {
  const Parameter* const parameter = findParameter(name);
  return parameter != nullptr && parameter->row->type == ParameterType::FixedReal;
}

bool isOnlyComputed(std::string_view name, const TableUses& uses) {
  const auto known = uses.parameters().find(name);
  return known != uses.parameters().end() && known->second.isComputed && !known->second.isPrinted;
}

/// Warns of formats that no number is printed with.
void lintFormats(const TableBlocks& blocks, const TableUses& uses, LintFindings& findings) {
  for (const Named& format : blocks.formats) {
    const std::string_view name = format.name.text;
    if (isFixed(name) || isOnlyComputed(name, uses)) {
      findings.warn(LintKey::IdleFormat, format.name);
    }
  }
}

/// Warns of blocks of parameters that the catalogue knows without such a value: a load skips them.
void lintKinds(const std::deque<Named>& blocks, const std::set<std::string, std::less<>>& loadable,
               LintFindings& findings) {
  const LintCatalogue& catalogue = lintCatalogue();
  for (const Named& block : blocks) {
    const std::string_view name = block.name.text;
    const bool hasType = catalogue.withList.contains(name) || catalogue.withFormat.contains(name) ||
                         catalogue.typesWithoutValue.contains(name);
    if (hasType && !loadable.contains(name)) findings.warn(LintKey::SkippedBlock, block.name);
  }
}

}  // namespace

void lintNamesOfBlocks(const TableBlocks& blocks, const TableUses& uses, LintFindings& findings) {
  lintParameterNames(blocks, uses, findings);
  lintInstructionNames(blocks, findings);
  lintFormats(blocks, uses, findings);
  lintKinds(blocks.lists, lintCatalogue().withList, findings);
  lintKinds(blocks.formats, lintCatalogue().withFormat, findings);
}

}  // namespace host
