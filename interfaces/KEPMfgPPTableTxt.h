#pragma once

#include <memory>
#include <string_view>

#include "MfgPPWordExport.h"
#include "System/KEPList.h"
#include "System/KEPResult.h"
#include "System/KEPString.h"

namespace ppword {
class TableStream;
}

/// Reader of a PP word table: the text file that describes the vocabulary of one post-processor.
///
/// The reader keeps no index: every query closes the file, opens it again and scans it (a rewind),
/// so that a query always tells what the file holds now, and a reader recovers when a file that was
/// absent appears. The file counts as not opened when its first read fails (a directory) or when it
/// is a character device that gives bytes (such a device has no end).
///
/// Rules of all queries:
/// - Indexes count from 1. A boolean result is true for success; no query raises an error.
/// - A token is a run of characters other than blank, tab, line feed, vertical tab, form feed and
///   carriage return, under every locale. A token of more than 1023 characters makes the query
///   that meets it false. A NUL byte and a byte-order mark are ordinary characters.
/// - Tokens that begin with "/" are passed over, except for a name, which is the very next token
///   after its keyword.
/// - Keywords are found inside tokens: «X*START_LIST» counts as "*START_LIST".
/// - When the close of a rewind fails, every read is end of file until the next rewind, which tries
///   again.
/// - Unless an operation says otherwise, a result of false leaves its arguments as they were, and
///   the position of the stream after it is not specified.
///
/// A reader is used by one thread at a time, and so are the readers that share a stream.
class MFGPPWORD_EXPORT KEPMfgPPTableTxt {
 public:
  /// A reader of the file at `path`. Does not touch the file.
  explicit KEPMfgPPTableTxt(const KEPString& path);

  /// A copy shares the stream of its source, and the position in it; the last of the readers that
  /// share a stream closes it. A copy of a reader that never opened its file shares nothing.
  KEPMfgPPTableTxt(const KEPMfgPPTableTxt& other);
  KEPMfgPPTableTxt& operator=(const KEPMfgPPTableTxt& other);
  virtual ~KEPMfgPPTableTxt();

  /// Checks the lines that have a "*" in column 1 and the numbers of start and end lines, which
  /// must agree. S_OK, or E_FAIL with a KEPMfgInternalError as last error: ERR_5000 to ERR_5009 of
  /// the catalogue "ManufacturingError", type 2, whose one parameter is the line number (from 1; a
  /// line of more than 1023 characters counts as several; ERR_5009 has none). An empty file
  /// passes. The stream stays where the check stopped.
  HRESULT CheckFileSyntax();

  /// `count`: the number of "*START_NC_COMMAND" and "*START_NC_INSTRUCTION" keywords. False when
  /// the file cannot be opened or read; `count` then holds the number reached so far.
  bool GetNumberOfCommand(int& count);

  /// `name`: what follows the `index`-th command keyword, NC commands before NC instructions.
  /// Every keyword counts; a name that does not begin with "NC_" gives false. The stream stands
  /// behind the name.
  bool GetNameOfCommand(int index, KEPString& name);

  /// `range`: the place of the command `name` among the commands whose names begin with "NC_" (so
  /// it differs from the index of GetNameOfCommand where a name does not). The stream stands
  /// behind the name. False when there is none; `range` is then the number of commands met.
  bool GetRangeOfCommand(const KEPString& name, int& range);

  /// Appends the syntax elements of a command to `syntaxes`: those of its own body up to its first
  /// "*END" (so the elements of its first sequence are among them), those of inserted commands in
  /// place of the "*INSERT", without nested lists. The stream stands behind that "*END". False when
  /// the command is absent or has no end, when an insert names no command, never ends, or makes
  /// the list longer than 100,000 elements, and when inserted commands that lack their "*END" share
  /// so much text that reading them would take too long.
  bool GetSyntaxOfCommand(const KEPString& name, KEPListValKEPString& syntaxes);
  bool GetSyntaxOfCommand(int index, KEPListValKEPString& syntaxes);

  /// `count`: the number of sequences of a command (up to the "*END" of the first list nested in
  /// its body). The stream stands behind the "*END" that stopped the count. False when the command
  /// is absent or has no end.
  bool GetNumberOfSequenceForCommand(const KEPString& name, int& count);
  bool GetNumberOfSequenceForCommand(int index, int& count);

  /// Appends the elements of the sequence `sequence` of a command to `syntaxes`, inserts included.
  /// The stream stands behind the "*END" of the sequence. False as for GetSyntaxOfCommand, and
  /// when there is no such sequence.
  bool GetSyntaxOfSequenceForCommand(const KEPString& name, int sequence,
                                     KEPListValKEPString& syntaxes);
  bool GetSyntaxOfSequenceForCommand(int index, int sequence, KEPListValKEPString& syntaxes);

  /// `count`: the number of "*START_LIST" keywords, those nested in command bodies included; 0
  /// after a failed close. False, with the number reached so far, when the file cannot be opened or
  /// read.
  bool GetNumberOfMultiListParameter(int& count);

  /// `name`: what follows the `index`-th "*START_LIST"; false when it does not begin with "MFG_".
  /// The stream stands behind the name. False after a failed close.
  bool GetNameOfMultiListParameter(int index, KEPString& name);

  /// `values`: cleared, then the values of the `index`-th list, cut at "," and blanks. The stream
  /// stands behind the "*END". False when GetNameOfMultiListParameter is (`values` is then empty)
  /// and when the list has no end (`values` then holds what was found). A value that begins with
  /// "/" is passed over only when the token before it held no ",".
  bool GetValuesOfMultiListParameter(int index, KEPListValKEPString& values);

  /// `count`: the number of "*START_FORMAT" keywords; otherwise as GetNumberOfMultiListParameter.
  bool GetNumberOfFormatParameter(int& count);

  /// `name`: what follows the `index`-th "*START_FORMAT"; otherwise as GetNameOfMultiListParameter.
  bool GetNameOfFormatParameter(int index, KEPString& name);

  /// `value`: the last token of the `index`-th format; unchanged when it has none. The stream
  /// stands behind the "*END". False when GetNameOfFormatParameter is, and when the format has no
  /// end (`value` then holds the last token of the file).
  bool GetValueOfFormatParameter(int index, KEPString& value);

  /// `syntaxes`: cleared, then the tokens of the first "*START_SYNTAXES" section; true and empty
  /// when there is none. The stream stands behind the "*END". False when the file cannot be opened
  /// (`syntaxes` is then empty) and when the section has no end (`syntaxes` then holds what was
  /// found).
  bool GetListOfSyntaxes(KEPListValKEPString& syntaxes);

  /// Appends the APT words of the first section of each kind to `words` and the kind of each to
  /// `kinds`: 1 major word without parameters, 2 with text, 3 with parameters, 4 minor word. Words
  /// and codes alternate over all four sections. False when the file cannot be opened or a section
  /// has no end.
  bool GetListOfAptWord(KEPRawCollint& kinds, KEPListValKEPString& words);

  /// Appends the CL-file codes, in the order of the words, to `codes`. The start of a code that
  /// reads as an integer is enough; a larger one becomes the nearest of 32 bits; one that does not
  /// read as an integer is left out. False as for GetListOfAptWord.
  bool GetListOfNcCode(KEPRawCollint& codes);

 private:
  friend class KEPMfgPPTableTxtTest;

  /// The check of one line that begins with "*" and contains "*START": S_OK, or E_FAIL with one of
  /// ERR_5004 to ERR_5008 as last error, whose parameter is `lineNumber`.
  HRESULT CheckStartLine(std::string_view line, int lineNumber);

  // The operations below read on from the current position, without a rewind; on a reader that
  // never opened its file they meet end of file.

  /// Reads up to a token that contains `text`; the stream stands behind it. False at end of file.
  bool FindStringInPPTable(std::string_view text);

  /// Clears both lists, rewinds, and appends the pieces (words and codes alternate) of the first
  /// section of each kind to `pieces` and the kind of each to `kinds`. After false they hold what
  /// was found.
  bool GetListOfPPValues(KEPRawCollint& kinds, KEPListValKEPString& pieces);

  /// Appends the elements of the body in which the stream stands to `syntaxes`; the stream then
  /// stands behind its "*END". `commandName` is the command that the body belongs to; when the
  /// table does not hold it, a body with inserts gives false.
  bool GetSyntaxFromPosition(const KEPString& commandName, KEPListValKEPString& syntaxes);

  /// Appends the syntax of the command `insertedName` to `syntaxes`, then places the stream behind
  /// the first token that contains that name after the name of the command `commandName`. False
  /// when one of the steps fails; the list keeps what was appended before.
  bool GetSyntaxOfInsert(const KEPString& insertedName, const KEPString& commandName,
                         KEPListValKEPString& syntaxes);

  /// `count`: the sequences from the current position to the "*END" that closes the command.
  bool GetNumberOfSequence(int& count);

  /// Reads on to the sequence `sequence` and appends its elements as GetSyntaxFromPosition does.
  bool GetSyntaxOfSequenceFromPosition(const KEPString& commandName, int sequence,
                                       KEPListValKEPString& syntaxes);

  /// Appends `cut` to `mended`, each element of 80 characters joined with the rest of a parameter
  /// name that was cut at column 80. Reads nothing. Always true.
  bool CleanListOfSyntax(const KEPListValKEPString& cut, KEPListValKEPString& mended);

  std::shared_ptr<ppword::TableStream> stream_;
  KEPString path_;
  bool isOpen_ = false;
};
