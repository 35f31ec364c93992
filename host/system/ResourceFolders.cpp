#include "host/system/ResourceFolders.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>

#include "Manufacturing/KEPMfgEnvVarMgt.h"
#include "System/KEPMakePath.h"
#include "host/system/SystemReason.h"

namespace host {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> searchList() {
  const KEPString setting = KEPMfgEnvVarMgt::Get(kSearchListSetting);
  std::vector<std::string> directories;
  std::string_view rest = setting.View();
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(':'), rest.size());
    if (end > 0) directories.emplace_back(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return directories;
}

enum class Entry { File, NoFile, Dangling, LeadsOut };

// `real` is the folder without links.
Entry kindOf(const fs::directory_entry& entry, const fs::path& real) {
  std::error_code error;
  if (!entry.is_symlink(error)) return entry.is_regular_file(error) ? Entry::File : Entry::NoFile;
  const fs::path target = fs::canonical(entry.path(), error);
  if (error) return Entry::Dangling;
  if (target.parent_path() != real) return Entry::LeadsOut;
  return fs::is_regular_file(target, error) ? Entry::File : Entry::NoFile;
}

void add(const fs::directory_entry& entry, const fs::path& real, ResourceFolder& folder) {
  std::string name = entry.path().filename().native();
  switch (kindOf(entry, real)) {
    case Entry::File:
      folder.files.push_back(std::move(name));
      return;
    case Entry::NoFile:
      return;
    case Entry::Dangling:
      folder.passedOver.push_back({std::move(name), "the link leads nowhere"});
      return;
    case Entry::LeadsOut:
      folder.passedOver.push_back({std::move(name), "the link leads out of the folder"});
  }
}

std::string reasonOf(const std::error_code& error) { return systemReason(error.value()); }

ResourceFolder listed(std::string path, const fs::path& real) {
  ResourceFolder folder{std::move(path), {}, {}, {}};
  std::error_code error;
  for (fs::directory_iterator entry(real, error), end; !error && entry != end;
       entry.increment(error)) {
    add(*entry, real, folder);
  }
  if (error) folder.problem = reasonOf(error);
  std::sort(folder.files.begin(), folder.files.end());
  std::sort(folder.passedOver.begin(), folder.passedOver.end(),
            [](const auto& left, const auto& right) { return left.name < right.name; });
  return folder;
}

}  // namespace

std::vector<ResourceFolder> resourceFolders(std::string_view name) {
  std::vector<ResourceFolder> folders;
  std::set<fs::path> seen;
  for (const std::string& directory : searchList()) {
    KEPString path;
    KEPMakePath(directory, name, path);
    std::error_code error;
    const fs::path real = fs::canonical(fs::path(path.View()), error);
    if (error == std::errc::no_such_file_or_directory) continue;
    if (!seen.insert(error ? fs::path(path.View()) : real).second) continue;
    folders.push_back(error ? ResourceFolder{std::string(path.View()), reasonOf(error), {}, {}}
                            : listed(std::string(path.View()), real));
  }
  return folders;
}

}  // namespace host

void KEPMakePath(const KEPString& directory, const KEPString& fileName, KEPString& path) {
  std::string joined(directory.View());
  if (!joined.empty() && !joined.ends_with('/')) joined += '/';
  path = KEPString(joined.append(fileName.View()));
}
