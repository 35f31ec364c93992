#pragma once

#include <string_view>

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPList.h"
#include "System/KEPPlatform.h"

/// General services of the manufacturing framework.
class KEP_PLATFORM KEPMfgUtilities {
 public:
  /// True when the document must be brought up to date. A null handle raises the null-handle error.
  [[nodiscard]] static bool IsUpgradeNecessary(const KEPIDocument_var& document);

  /// Brings the attributes of one component up to date. The components that were changed are
  /// appended to `objects`, which may be null; `publish` 1 publishes the attributes; `recursive` 0
  /// does not change aggregated components.
  static HRESULT UpgradeComponentAttributes(const KEPISpecAttrAccess_var& component,
                                            KEPListVal<KEPBaseUnknown_var>* objects, int publish,
                                            int recursive);

  /// The files in the application's folders of one name, such as "PPTables". `files` becomes the
  /// list of their bare names and `directories`, entry by entry, the folders that contain them;
  /// both are empty when there is no such folder. The folders are in the order of the application's
  /// search list, the files of each folder in the order of their bytes. `flag` is 1: only files
  /// directly in a folder.
  static void GetListOfMfgFilesAndDirectories(std::string_view folderName,
                                              KEPListValKEPUnicodeString& directories,
                                              KEPListValKEPUnicodeString& files, int flag);
};
