#pragma once

#include <string>
#include <vector>

#include "host/modeler/Document.h"
#include "post/job/JobHeader.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/Refusal.h"

/// The PP word table of a run: the one given with -t, otherwise the one that the resource of the
/// job names.
struct PostTable {
  /// The file that was loaded; empty when none was.
  std::string path;
  /// Given with -t.
  bool given = false;
  /// The name in the job's resource; empty without one.
  std::string named;
  /// Files of that name in later folders.
  std::vector<std::string> hidden;
};

/// Loads the file at `path`, whatever the setting MFG_PPTABLE_NOLOAD says. Raises a Refusal.
void loadGivenTable(host::Document& document, const std::string& path, PostTable& table);

/// Finds the table that the header names, unless one was given or the setting MFG_PPTABLE_NOLOAD is
/// set. Raises a Refusal for a name that is in no folder.
void findNamedTable(const host::JobHeader& header, PostTable& table);

/// Loads the table that findNamedTable finds. Raises a Refusal.
void loadNamedTable(const KEPVar<host::Document>& document, const host::JobHeader& header,
                    PostTable& table);

/// For people: indented lines; empty without a table.
[[nodiscard]] std::string tableText(const PostTable& table);
/// Null without a table.
[[nodiscard]] Json tableJson(const PostTable& table);
