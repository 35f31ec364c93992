#include "tools/ppword/ListCommand.h"

#include <nlohmann/json.hpp>

#include "tools/ppword/ContentsText.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/TableCheck.h"

ExitStatus listTable(const ListOptions& options) {
  const bool ofTable = !options.table.empty();
  if (ofTable) {
    if (const auto refusal = tableRefusal(options.table))
      return refuseTable(*refusal, options.format);
  }
  const Contents contents = ofTable ? tableContents(options.table, options.section)
                                    : documentContents(*host::newDocument());
  writeOutput(options.format == OutputFormat::Json
                  ? documentText(contentsJson(contents, options.section))
                  : contentsText(contents, options.section));
  return ExitStatus::Done;
}
