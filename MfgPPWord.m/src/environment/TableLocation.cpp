#include "src/environment/TableLocation.h"

#include "Manufacturing/KEPMfgModelUtilities.h"
#include "Manufacturing/KEPMfgUtilities.h"
#include "System/KEPMakePath.h"

namespace ppword {

KEPIMfgResource_var resourceOf(const KEPIMfgProgram_var& program) {
  const KEPIMfgActivity_var activity = program;
  KEPIMfgSetup_var setup;
  KEPMfgModelUtilities::GetSetup(activity, setup);
  return setup->GetResource();
}

std::optional<KEPUnicodeString> pathOf(const KEPUnicodeString& name,
                                       const KEPListValKEPUnicodeString& directories,
                                       const KEPListValKEPUnicodeString& files) {
  const int index = files.Locate(name);
  if (index == 0 || index > directories.Size()) return std::nullopt;
  KEPString path;
  KEPMakePath(directories[index].View(), name.View(), path);
  return KEPUnicodeString(path.View());
}

std::optional<KEPUnicodeString> tablePath(const KEPUnicodeString& name) {
  constexpr int kFilesOfTheFolders = 1;
  KEPListValKEPUnicodeString directories;
  KEPListValKEPUnicodeString files;
  KEPMfgUtilities::GetListOfMfgFilesAndDirectories("PPTables", directories, files,
                                                   kFilesOfTheFolders);
  return pathOf(name, directories, files);
}

}  // namespace ppword
