#include <map>
#include <nlohmann/json.hpp>

#include "Manufacturing/KEPMfgEnvVarMgt.h"
#include "System/KEPMakePath.h"
#include "host/system/ResourceFolders.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/StandardStreams.h"

namespace {

// Each name with the path of the file that it leads to.
using FirstPaths = std::map<std::string, std::string>;

std::string pathOf(const host::ResourceFolder& folder, const std::string& file) {
  KEPString path;
  KEPMakePath(folder.path, file, path);
  return std::string(path.View());
}

// Empty for the file that its name leads to.
std::string hiddenBy(const std::string& path, const std::string& file, FirstPaths& first) {
  const std::string& winner = first.try_emplace(file, path).first->second;
  return winner == path ? "" : winner;
}

std::string folderText(const host::ResourceFolder& folder, FirstPaths& first) {
  std::string text = host::terminalSafe(folder.path);
  if (!folder.problem.empty()) text += ": cannot be read: " + folder.problem;
  text += '\n';
  for (const std::string& file : folder.files) {
    const std::string winner = hiddenBy(pathOf(folder, file), file, first);
    text += "  " + host::terminalSafe(file);
    if (!winner.empty()) text += "  hidden by " + host::terminalSafe(winner);
    text += '\n';
  }
  for (const auto& entry : folder.passedOver) {
    text += "  " + host::terminalSafe(entry.name) + "  skipped: " + entry.reason + '\n';
  }
  return text;
}

Json folderJson(const host::ResourceFolder& folder, FirstPaths& first) {
  Json files = Json::array();
  for (const std::string& file : folder.files) {
    const std::string path = pathOf(folder, file);
    const std::string winner = hiddenBy(path, file, first);
    files.push_back({{"name", textJson(file)},
                     {"file", textJson(path)},
                     {"hiddenBy", winner.empty() ? Json(nullptr) : textJson(winner)}});
  }
  Json passedOver = Json::array();
  for (const auto& entry : folder.passedOver) {
    passedOver.push_back({{"name", textJson(entry.name)}, {"reason", entry.reason}});
  }
  return {{"folder", textJson(folder.path)},
          {"problem", folder.problem.empty() ? Json(nullptr) : Json(folder.problem)},
          {"files", std::move(files)},
          {"passedOver", std::move(passedOver)}};
}

std::string noFoldersText() {
  const std::string setting(host::kSearchListSetting);
  if (KEPMfgEnvVarMgt::Get(setting).IsEmpty()) {
    return "no PPTables folder: the setting " + setting + " lists no directory\n";
  }
  return "no PPTables folder in the directories of the setting " + setting + '\n';
}

}  // namespace

ExitStatus showTables(const TablesOptions& options) {
  const auto folders = host::resourceFolders("PPTables");
  FirstPaths first;
  std::string text = folders.empty() ? noFoldersText() : "";
  Json json = Json::array();
  ExitStatus status = ExitStatus::Done;
  for (const host::ResourceFolder& folder : folders) {
    if (!folder.problem.empty()) status = ExitStatus::Refused;
    if (options.format == OutputFormat::ForPrograms) {
      json.push_back(folderJson(folder, first));
    } else {
      text += folderText(folder, first);
    }
  }
  writeOutput(options.format == OutputFormat::ForPrograms
                  ? documentText({{"folders", std::move(json)}})
                  : text);
  return status;
}
