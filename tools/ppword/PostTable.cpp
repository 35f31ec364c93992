#include "tools/ppword/PostTable.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "KEPMfgPPWordUtilities.h"
#include "Manufacturing/KEPMfgEnvVarMgt.h"
#include "System/KEPError.h"
#include "System/KEPMakePath.h"
#include "host/system/MessageCatalogue.h"
#include "host/system/ResourceFolders.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/InputDiagnostic.h"
#include "inspect/diagnostics/TableErrorPlace.h"
#include "inspect/diagnostics/TableFile.h"
#include "post/job/JobSetup.h"

namespace {

bool isSwitchedOff() { return !KEPMfgEnvVarMgt::Get("MFG_PPTABLE_NOLOAD").IsEmpty(); }

void requireReadable(const std::string& path) {
  if (auto unreadable = host::unreadableTable(path)) throw Refusal{std::move(*unreadable)};
}

void requireLoaded(HRESULT status, const std::string& path) {
  if (KEPFailed(status)) throw Refusal{host::tableError(path, *KEPError::KEPGetLastError())};
}

[[noreturn]] void refuseName(const host::JobHeader& header) {
  constexpr std::string_view kKey = "ERR_5015";
  const KEPUnicodeString text = host::messageText("ManufacturingError", kKey, {});
  host::Diagnostic diagnostic = host::inputDiagnostic({header.file, header.line, header.tableColumn,
                                                       "$.resource.table: \"" + header.table +
                                                           "\": " + std::string(text.View()) +
                                                           "; 'ppword tables' shows them"});
  diagnostic.key = kKey;
  throw Refusal{std::move(diagnostic)};
}

// The files with that name in later folders.
std::vector<std::string> hiddenFiles(const std::string& name) {
  std::vector<std::string> paths;
  for (const host::ResourceFolder& folder : host::resourceFolders("PPTables")) {
    if (!std::binary_search(folder.files.begin(), folder.files.end(), name)) continue;
    KEPString path;
    KEPMakePath(folder.path, name, path);
    paths.emplace_back(path.View());
  }
  if (!paths.empty()) paths.erase(paths.begin());
  return paths;
}

}  // namespace

void loadGivenTable(host::Document& document, const std::string& path, PostTable& table) {
  loadTable(document, path);
  table.path = path;
  table.given = true;
}

void findNamedTable(const host::JobHeader& header, PostTable& table) {
  table.named = header.table;
  if (header.table.empty() || table.given || isSwitchedOff()) return;
  KEPUnicodeString found;
  if (KEPMfgPPWordUtilities::BuildCompletePathFromPPWordTableName(KEPUnicodeString(header.table),
                                                                  found) == 0) {
    refuseName(header);
  }
  table.path = found.View();
  table.hidden = hiddenFiles(header.table);
}

void loadNamedTable(const KEPVar<host::Document>& document, const host::JobHeader& header,
                    PostTable& table) {
  findNamedTable(header, table);
  if (table.given || table.path.empty()) return;
  requireReadable(table.path);
  int isFound = 0;
  requireLoaded(KEPMfgPPWordUtilities::InitializePPWordsEnvironment(
                    host::programOf(header, document), &isFound),
                table.path);
}

std::string tableText(const PostTable& table) {
  if (table.path.empty()) {
    if (table.named.empty()) return "";
    return "  table: none, since MFG_PPTABLE_NOLOAD is set\n";
  }
  std::string text = "  table: " + host::terminalSafe(table.path);
  if (table.given) text += ", given with -t";
  if (table.given && isSwitchedOff()) text += "; MFG_PPTABLE_NOLOAD does not apply to it";
  if (table.given && !table.named.empty()) {
    text += "; the table of the job, " + host::terminalSafe(table.named) + ", is not used";
  }
  text += '\n';
  for (const std::string& path : table.hidden) {
    text += "  WARNING: it hides " + host::terminalSafe(path) + '\n';
  }
  return text;
}

Json tableJson(const PostTable& table) {
  if (table.path.empty() && table.named.empty()) return nullptr;
  const auto optional = [](const std::string& text) {
    return text.empty() ? Json(nullptr) : textJson(text);
  };
  Json hidden = Json::array();
  for (const std::string& path : table.hidden) hidden.push_back(textJson(path));
  return {{"file", optional(table.path)},
          {"given", table.given},
          {"named", optional(table.named)},
          {"loadingSwitchedOff", isSwitchedOff()},
          {"hidden", std::move(hidden)}};
}
