#pragma once

#include <memory>

#include "KEPMfgPPTableTxt.h"
#include "Manufacturing/KEPIMfgProgram.h"
#include "MfgPPWordExport.h"
#include "System/KEPList.h"
#include "System/KEPPlatform.h"
#include "System/KEPString.h"

/// The PP word environment: finds the PP word table of a manufacturing program, loads it into the
/// program's document, and stores one list of PP words with their kinds and CL-file codes for the
/// whole process.
///
/// A program names its table through its setup: the setup's resource (the machine) has the value
/// MfgPPWordTable, the bare name of a file in one of the application's "PPTables" folders.
///
/// Word kinds: 1 major word without parameters, 2 major word with text, 3 major word with
/// parameters, 4 minor word. Lists count from 1. A failure is E_FAIL. A program without activity or
/// setup, a null program included, raises the null-handle error. Use it on one thread.
class MFGPPWORD_EXPORT KEPMfgPPWordUtilities {
 public:
  KEPMfgPPWordUtilities();
  KEPMfgPPWordUtilities(const KEPMfgPPWordUtilities& other);
  KEPMfgPPWordUtilities& operator=(const KEPMfgPPWordUtilities& other);
  virtual ~KEPMfgPPWordUtilities();

  /// `path`: the path of the first file of the "PPTables" folders that has exactly this bare name.
  /// 1 when there is one; 0, with `path` untouched, when there is not.
  static int BuildCompletePathFromPPWordTableName(const KEPUnicodeString& tableName,
                                                  KEPUnicodeString& path);

  /// Loads the table of a program into the PP word container of its document. `found` (not null)
  /// becomes 1 when there is such a file, even if its load then fails, and 0 when the resource, its
  /// table name or the file is missing, which is not an error. Returns the status of
  /// KEPIMfgPPWordContainer::LoadPPWordTable, or S_OK when nothing was found. Every call loads. A
  /// document without root container or PP word container raises the null-handle error.
  /// When the setting MFG_PPTABLE_NOLOAD is not empty (it is read at the first call, once for the
  /// process) nothing is searched or loaded: S_OK, and `found` is 0.
  static HRESULT InitializePPWordsEnvironment(const KEPIMfgProgram_var& program, int* found);

  /// `syntaxes`: the free syntaxes of the program's table, as KEPMfgPPTableTxt::GetListOfSyntaxes
  /// reads them. After a failure the last error is ERR_5011 (the setup has no resource), ERR_5010
  /// (the resource has no table name) or ERR_5015 (no such file) of "ManufacturingError", type 3,
  /// without parameters; `syntaxes` is then untouched. For a table that cannot be read it fails
  /// without recording an error.
  static HRESULT GetListOfSyntaxes(const KEPIMfgProgram_var& program,
                                   KEPListValKEPString& syntaxes);

  /// Appends the APT words of a table with their kinds and codes, then "TPRINT" (3, 1075) and
  /// "NOTE" (4, 181), each unless it is already in `words`, from the table or from before the call.
  /// `codes` is shorter than `words` when the table has codes that are not integers. For a program
  /// the errors are those of GetListOfSyntaxes. For a table that cannot be read it fails without
  /// recording an error; what was appended stays.
  static HRESULT GetListOfPPWords(const KEPIMfgProgram_var& program, KEPListValKEPString& words,
                                  KEPRawCollint& kinds, KEPRawCollint& codes);
  static HRESULT GetListOfPPWords(const KEPUnicodeString& path, KEPListValKEPString& words,
                                  KEPRawCollint& kinds, KEPRawCollint& codes);

  /// Replaces the word list of the process by the words of GetListOfPPWords, and returns its
  /// result. After a failure the list holds what was appended before it.
  static HRESULT StoreListOfPPWords(const KEPIMfgProgram_var& program);
  static HRESULT StoreListOfPPWords(const KEPUnicodeString& path);

  /// Deletes the word list of the process, if there is one. Always S_OK.
  static HRESULT DeleteListOfPPWords();

  /// Kind and code of the first entry of the word list that equals `word`, which is cut before its
  /// first blank unless it begins with one (so "GOTO /1,2" is looked up as "GOTO"). E_FAIL, with
  /// both untouched, when there is no list, no such word, or no code for it. A hash look-up.
  static HRESULT GetClfileCode(const KEPString& word, int& kind, int& code);

  /// The word of the first entry of the word list that has this code. E_FAIL, with `word`
  /// untouched, when there is no list or no such code. A hash look-up.
  static HRESULT GetAptWord(int code, KEPString& word);

  /// `lines`: the lines of a text, without their line feeds and the carriage returns before them;
  /// none for the empty text. A text of one line stays as it is, its line end included. Always
  /// S_OK.
  static HRESULT SplitKEPUnicodeStringWithLF(const KEPUnicodeString& text,
                                             KEPListValKEPUnicodeString& lines);

 private:
  friend class KEPMfgPPWordUtilitiesTest;

  /// A reader of the program's table, or of the file at `path`; the file is not opened. For a
  /// program the errors are those of GetListOfSyntaxes, and `reader` is then untouched; for a path
  /// always S_OK.
  static HRESULT GetPPTable(const KEPIMfgProgram_var& program,
                            std::unique_ptr<KEPMfgPPTableTxt>& reader);
  static HRESULT GetPPTable(const KEPUnicodeString& path,
                            std::unique_ptr<KEPMfgPPTableTxt>& reader);
};
