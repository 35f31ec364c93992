#pragma once

#include <memory>

#include "KEPMfgPPTableTxt.h"
#include "Manufacturing/KEPIMfgProgram.h"
#include "MfgPPWordExport.h"
#include "System/KEPList.h"
#include "System/KEPResult.h"
#include "System/KEPString.h"
#include "System/KEPUnicodeString.h"

/// The PP word environment: finds the PP word table of a manufacturing program, loads it into the
/// program's document, and keeps one list of PP words with their kinds and CL-file codes for the
/// whole process.
///
/// A program names its table by its setup, whose resource (the machine) has the value
/// MfgPPWordTable: the bare name of a file in one of the application's "PPTables" folders.
///
/// Word kinds: 1 major word without parameters, 2 major word with text, 3 major word with
/// parameters, 4 minor word. Lists count from 1. A failure is E_FAIL. A program without activity or
/// setup, a null program included, raises the null-handle error. Called on one thread.
class MFGPPWORD_EXPORT KEPMfgPPWordUtilities {
 public:
  KEPMfgPPWordUtilities();
  KEPMfgPPWordUtilities(const KEPMfgPPWordUtilities& other);
  KEPMfgPPWordUtilities& operator=(const KEPMfgPPWordUtilities& other);
  virtual ~KEPMfgPPWordUtilities();

  /// `path`: the path of the first file of the "PPTables" folders that has exactly this bare name.
  /// 1 when there is one; 0, and `path` is untouched, when not.
  static int BuildCompletePathFromPPWordTableName(const KEPUnicodeString& tableName,
                                                  KEPUnicodeString& path);

  /// Loads the table of a program into the PP word container of its document. `found` (not null)
  /// becomes 1 when there is such a file, even if its load then fails, and 0 when the resource, its
  /// table name or the file is missing, which is no error. Gives the status of
  /// KEPIMfgPPWordContainer::LoadPPWordTable, S_OK when nothing was found. Every call loads. A
  /// document without root container or PP word container raises the null-handle error.
  /// With the setting MFG_PPTABLE_NOLOAD (any text but the empty one; read at the first call and
  /// kept for the process) nothing is looked for or loaded: S_OK, and `found` is 0.
  static HRESULT InitializePPWordsEnvironment(const KEPIMfgProgram_var& program, int* found);

  /// `syntaxes`: the free syntaxes of the program's table, as KEPMfgPPTableTxt::GetListOfSyntaxes.
  /// A failure has ERR_5011 (the setup has no resource), ERR_5010 (the resource has no table name)
  /// or ERR_5015 (no such file) of "ManufacturingError", type 3, without parameters, as last error;
  /// `syntaxes` is then untouched. A table that cannot be read fails without error.
  static HRESULT GetListOfSyntaxes(const KEPIMfgProgram_var& program,
                                   KEPListValKEPString& syntaxes);

  /// Appends the APT words of a table with their kinds and codes, then "TPRINT" (3, 1075) and
  /// "NOTE" (4, 181), each unless `words` holds it, what it held before included. `codes` is
  /// shorter than `words` where the table has codes that are no integers. Of a program: errors as
  /// those of GetListOfSyntaxes. A table that cannot be read fails without error; what was appended
  /// stays.
  static HRESULT GetListOfPPWords(const KEPIMfgProgram_var& program, KEPListValKEPString& words,
                                  KEPRawCollint& kinds, KEPRawCollint& codes);
  static HRESULT GetListOfPPWords(const KEPUnicodeString& path, KEPListValKEPString& words,
                                  KEPRawCollint& kinds, KEPRawCollint& codes);

  /// Replaces the word list of the process by what GetListOfPPWords gives, and gives its result. A
  /// failure leaves the list with what was appended before it.
  static HRESULT StoreListOfPPWords(const KEPIMfgProgram_var& program);
  static HRESULT StoreListOfPPWords(const KEPUnicodeString& path);

  /// Ends the word list of the process, if there is one; S_OK.
  static HRESULT DeleteListOfPPWords();

  /// Kind and code of the first entry of the word list that equals `word`, which ends before its
  /// first blank unless it begins with one (so "GOTO /1,2" is looked up as "GOTO"). E_FAIL, and
  /// both are untouched, when there is no list, no such word, or no code for it. A hash look-up.
  static HRESULT GetClfileCode(const KEPString& word, int& kind, int& code);

  /// The word of the first entry of the word list that has this code. E_FAIL, and `word` is
  /// untouched, when there is no list or no such code. A hash look-up.
  static HRESULT GetAptWord(int code, KEPString& word);

  /// `lines`: the lines of a text, without their line feeds and the carriage returns before them;
  /// none for the empty text. A text of one line stays as it is, its line end included. S_OK.
  static HRESULT SplitKEPUnicodeStringWithLF(const KEPUnicodeString& text,
                                             KEPListValKEPUnicodeString& lines);

 private:
  friend class KEPMfgPPWordUtilitiesTest;

  /// A reader of the program's table, or of the file at `path`, which the caller owns. The file is
  /// not touched. Errors as those of GetListOfSyntaxes; `reader` is then untouched. Of a path:
  /// always S_OK.
  static HRESULT GetPPTable(const KEPIMfgProgram_var& program,
                            std::unique_ptr<KEPMfgPPTableTxt>& reader);
  static HRESULT GetPPTable(const KEPUnicodeString& path,
                            std::unique_ptr<KEPMfgPPTableTxt>& reader);
};
