#pragma once

#include <memory>
#include <string_view>

#include "MfgPPWordExport.h"
#include "System/KEPList.h"
#include "System/KEPPlatform.h"
#include "System/KEPString.h"

namespace ppword {
class TableStream;
}

/// Reader of a PP word table: the text file that describes the vocabulary of one post-processor.
/// Check the file, ask for a number, then for each entry by its index:
///
///     KEPMfgPPTableTxt table("mill.pptable");
///     int count = 0;
///     if (KEPFailed(table.CheckFileSyntax()) || !table.GetNumberOfCommand(count)) return;
///     for (int index = 1; index <= count; ++index) {
///       KEPString name;
///       if (table.GetNameOfCommand(index, name)) std::cout << name.View() << '\n';
///     }
///
/// The reader stores no index: every query closes the file, opens it again and scans it (a rewind).
/// So a query always reports what the file holds now, and a reader recovers when a file that was
/// absent appears. The file counts as not opened when its first read fails (a directory) or when it
/// is a character device that delivers bytes (such a device has no end).
///
/// Rules of all queries:
/// - Indexes count from 1. A boolean result is true for success; no query raises an error.
/// - A token is a run of characters other than blank, tab, line feed, vertical tab, form feed and
///   carriage return, in every locale. A query that meets a token of more than 1023 characters
///   returns false. A NUL byte and a byte-order mark are ordinary characters.
/// - Tokens that begin with "/" are skipped, except for a name, which is always the next token
///   after its keyword.
/// - Keywords are found inside tokens: «X*START_LIST» counts as "*START_LIST".
/// - When the close of a rewind fails, every read reports end of file until the next rewind, which
///   tries again.
/// - Unless a function says otherwise, a result of false leaves its arguments unchanged, and the
///   position of the stream after it is not specified. "The stream is after X" says where the next
///   read would begin.
///
/// Use a reader, or all readers that share a stream, on one thread at a time.
class MFGPPWORD_EXPORT KEPMfgPPTableTxt {
 public:
  /// A reader of the file at `path`. Does not open the file.
  explicit KEPMfgPPTableTxt(const KEPString& path);

  /// A copy shares the stream of the original, and the position in it; the last of the readers that
  /// share a stream closes it. A copy of a reader that never opened its file shares nothing.
  KEPMfgPPTableTxt(const KEPMfgPPTableTxt& other);
  KEPMfgPPTableTxt& operator=(const KEPMfgPPTableTxt& other);
  virtual ~KEPMfgPPTableTxt();

  /// Checks the lines that have a "*" in column 1, and that there are as many start lines as end
  /// lines. S_OK, or E_FAIL with a KEPMfgInternalError as last error: ERR_5000 to ERR_5009 of the
  /// catalogue "ManufacturingError", type 2, whose one parameter is the line number (from 1; a line
  /// of more than 1023 characters counts as several; ERR_5009 has no parameter). An empty file
  /// passes. The stream stays where the check stopped.
  HRESULT CheckFileSyntax();

  /// `count`: the number of "*START_NC_COMMAND" and "*START_NC_INSTRUCTION" keywords. False when
  /// the file cannot be opened or read; `count` is then the number found so far.
  bool GetNumberOfCommand(int& count);

  /// `name`: the token after the `index`-th command keyword, NC commands before NC instructions.
  /// Every keyword counts; false when the name does not begin with "NC_". The stream is after the
  /// name.
  bool GetNameOfCommand(int index, KEPString& name);

  /// `range`: the position of the command `name` among the commands whose names begin with "NC_"
  /// (so it differs from the index of GetNameOfCommand when there are other names). The stream is
  /// after the name. False when there is no such command; `range` is then the number of commands
  /// met.
  bool GetRangeOfCommand(const KEPString& name, int& range);

  /// Appends the syntax elements of a command to `syntaxes`: those of its own body up to its first
  /// "*END" (so the elements of its first sequence are among them), those of inserted commands in
  /// place of the "*INSERT", without nested lists. The stream is after that "*END". False when the
  /// command is absent or has no end, when an insert does not name a command, never ends, or makes
  /// the list longer than 100,000 elements, and when inserted commands without an "*END" share so
  /// much text that reading them would take too long.
  bool GetSyntaxOfCommand(const KEPString& name, KEPListValKEPString& syntaxes);
  bool GetSyntaxOfCommand(int index, KEPListValKEPString& syntaxes);

  /// `count`: the number of sequences of a command (up to the "*END" of the first list nested in
  /// its body). The stream is after the "*END" that stopped the count. False when the command is
  /// absent or has no end.
  bool GetNumberOfSequenceForCommand(const KEPString& name, int& count);
  bool GetNumberOfSequenceForCommand(int index, int& count);

  /// Appends the elements of the sequence `sequence` of a command to `syntaxes`, inserts included.
  /// The stream is after the "*END" of the sequence. False as for GetSyntaxOfCommand, and when
  /// there is no such sequence.
  bool GetSyntaxOfSequenceForCommand(const KEPString& name, int sequence,
                                     KEPListValKEPString& syntaxes);
  bool GetSyntaxOfSequenceForCommand(int index, int sequence, KEPListValKEPString& syntaxes);

  /// `count`: the number of "*START_LIST" keywords, those nested in command bodies included; 0
  /// after a failed close. False, with the number found so far, when the file cannot be opened or
  /// read.
  bool GetNumberOfMultiListParameter(int& count);

  /// `name`: the token after the `index`-th "*START_LIST"; false when it does not begin with
  /// "MFG_". The stream is after the name. False after a failed close.
  bool GetNameOfMultiListParameter(int index, KEPString& name);

  /// `values`: cleared, then the values of the `index`-th list, cut at "," and blanks. The stream
  /// is after the "*END". False when GetNameOfMultiListParameter is false (`values` is then empty)
  /// and when the list has no end (`values` then holds what was found). A value that begins with
  /// "/" is skipped only when the token before it held no ",".
  bool GetValuesOfMultiListParameter(int index, KEPListValKEPString& values);

  /// `count`: the number of "*START_FORMAT" keywords; otherwise as GetNumberOfMultiListParameter.
  bool GetNumberOfFormatParameter(int& count);

  /// `name`: the token after the `index`-th "*START_FORMAT"; otherwise as
  /// GetNameOfMultiListParameter.
  bool GetNameOfFormatParameter(int index, KEPString& name);

  /// `value`: the last token of the `index`-th format; unchanged when it has none. The stream is
  /// after the "*END". False when GetNameOfFormatParameter is false, and when the format has no end
  /// (`value` is then the last token of the file).
  bool GetValueOfFormatParameter(int index, KEPString& value);

  /// `syntaxes`: cleared, then the tokens of the first "*START_SYNTAXES" section; true, and
  /// `syntaxes` empty, when there is no such section. The stream is after the "*END". False when
  /// the file cannot be opened (`syntaxes` is then empty) and when the section has no end
  /// (`syntaxes` then holds what was found).
  bool GetListOfSyntaxes(KEPListValKEPString& syntaxes);

  /// Appends the APT words of the first section of each kind to `words` and the kind of each to
  /// `kinds`: 1 major word without parameters, 2 with text, 3 with parameters, 4 minor word. Words
  /// and codes alternate over all four sections. False when the file cannot be opened or a section
  /// has no end.
  bool GetListOfAptWord(KEPRawCollint& kinds, KEPListValKEPString& words);

  /// Appends the CL-file codes, in the order of the words, to `codes`. A code is read as far as it
  /// is an integer; one that does not fit in 32 bits becomes the nearest that does; one that does
  /// not begin with an integer is left out. False as for GetListOfAptWord.
  bool GetListOfNcCode(KEPRawCollint& codes);

 private:
  friend class KEPMfgPPTableTxtTest;

  /// The check of one line that begins with "*" and contains "*START": S_OK, or E_FAIL with one of
  /// ERR_5004 to ERR_5008 as last error, whose parameter is `lineNumber`.
  HRESULT CheckStartLine(std::string_view line, int lineNumber);

  // The functions below read on from the current position, without a rewind; on a reader that
  // never opened its file they meet end of file.

  /// Reads up to a token that contains `text`; the stream is after it. False at end of file.
  bool FindStringInPPTable(std::string_view text);

  /// Clears both lists, rewinds, and appends the pieces (words and codes alternate) of the first
  /// section of each kind to `pieces` and the kind of each to `kinds`. After false they hold what
  /// was found.
  bool GetListOfPPValues(KEPRawCollint& kinds, KEPListValKEPString& pieces);

  /// Appends the elements of the body in which the stream is to `syntaxes`; the stream is then
  /// after its "*END". `commandName` is the command that the body belongs to; when the table does
  /// not hold that command, a body with inserts returns false.
  bool GetSyntaxFromPosition(const KEPString& commandName, KEPListValKEPString& syntaxes);

  /// Appends the syntax of the command `insertedName` to `syntaxes`. Then searches from the name of
  /// the command `commandName` on for the first token that contains `insertedName`; the stream is
  /// after it. False when one of the steps fails; what was appended before stays in the list.
  bool GetSyntaxOfInsert(const KEPString& insertedName, const KEPString& commandName,
                         KEPListValKEPString& syntaxes);

  /// `count`: the number of sequences from the current position to the "*END" that closes the
  /// command.
  bool GetNumberOfSequence(int& count);

  /// Reads on to the sequence `sequence` and appends its elements as GetSyntaxFromPosition does.
  bool GetSyntaxOfSequenceFromPosition(const KEPString& commandName, int sequence,
                                       KEPListValKEPString& syntaxes);

  /// Appends `cut` to `mended`; an element of 80 characters is joined with the rest of a parameter
  /// name that was cut at column 80. Does not read the file. Always true.
  bool CleanListOfSyntax(const KEPListValKEPString& cut, KEPListValKEPString& mended);

  std::shared_ptr<ppword::TableStream> stream_;
  KEPString path_;
  bool isOpen_ = false;
};
