#pragma once

#include <sqlite3.h>

#include "host/system/LateLibrary.h"

/// The functions of SQLite that documents use. Most runs of the program have no document file, and
/// SQLite alone would be a third of what the dynamic linker does for them.
namespace host::sqlite {

inline constinit LateLibrary library("libsqlite3.so.0");

#define PPWORD_SQLITE(name) \
  inline constinit LateFunction<library, decltype(sqlite3_##name)> name("sqlite3_" #name)

PPWORD_SQLITE(bind_int64);
PPWORD_SQLITE(bind_null);
PPWORD_SQLITE(bind_text64);
PPWORD_SQLITE(busy_timeout);
PPWORD_SQLITE(close);
PPWORD_SQLITE(column_bytes);
PPWORD_SQLITE(column_int64);
PPWORD_SQLITE(column_text);
PPWORD_SQLITE(column_type);
PPWORD_SQLITE(db_config);
PPWORD_SQLITE(db_filename);
PPWORD_SQLITE(errstr);
PPWORD_SQLITE(exec);
PPWORD_SQLITE(extended_result_codes);
PPWORD_SQLITE(file_control);
PPWORD_SQLITE(filename_journal);
PPWORD_SQLITE(finalize);
PPWORD_SQLITE(limit);
PPWORD_SQLITE(open_v2);
PPWORD_SQLITE(prepare_v2);
PPWORD_SQLITE(randomness);
PPWORD_SQLITE(reset);
PPWORD_SQLITE(step);
PPWORD_SQLITE(system_errno);

#undef PPWORD_SQLITE

}  // namespace host::sqlite
