#include "tools/ppword/Commands.h"
#include "tools/ppword/Contents.h"
#include "tools/ppword/Refusal.h"

namespace {

ExitStatus listDefaultCatalogue(const ListOptions& options) {
  if (!options.section.empty()) throw UsageError{"--default takes no table"};
  const std::string& section = options.table;
  if (!section.empty()) requireSection(section, kTableSections);
  showContents(documentContents(*host::newDocument()), section, options.format);
  return ExitStatus::Done;
}

}  // namespace

ExitStatus listTable(const ListOptions& options) {
  if (options.ofDefaultCatalogue) return listDefaultCatalogue(options);
  const std::string& section = options.section;
  if (options.table.empty()) throw UsageError{"TABLE is required"};
  if (!section.empty()) requireSection(section, kTableSections);
  if (const auto refusal = tableRefusal(options.table)) {
    return refuseTable(*refusal, options.format);
  }
  warnOfNoBlock(options.table);
  showContents(tableContents(options.table, section), section, options.format);
  return ExitStatus::Done;
}
