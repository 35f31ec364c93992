#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "KEPMfgPPTableTxt.h"

/// A table file for the time of a test, removed at its end.
class TableFile {
 public:
  explicit TableFile(std::string_view text);
  TableFile(const TableFile&) = delete;
  TableFile& operator=(const TableFile&) = delete;
  ~TableFile();

  /// Replaces the text; makes the file again when it was removed.
  void write(std::string_view text) const;
  void remove() const;
  [[nodiscard]] const KEPString& path() const { return path_; }

 private:
  KEPString path_;
};

/// The private operations of the reader, and what goes on with its stream.
class KEPMfgPPTableTxtTest {
 public:
  explicit KEPMfgPPTableTxtTest(KEPMfgPPTableTxt& reader) : reader_(reader) {}

  [[nodiscard]] HRESULT checkStartLine(std::string_view line, int number) {
    return reader_.CheckStartLine(line, number);
  }
  [[nodiscard]] bool findString(std::string_view text) { return reader_.FindStringInPPTable(text); }
  [[nodiscard]] bool listOfPPValues(KEPRawCollint& kinds, KEPListValKEPString& pieces) {
    return reader_.GetListOfPPValues(kinds, pieces);
  }
  [[nodiscard]] bool syntaxFromPosition(const KEPString& command, KEPListValKEPString& syntaxes) {
    return reader_.GetSyntaxFromPosition(command, syntaxes);
  }
  [[nodiscard]] bool syntaxOfInsert(const KEPString& inserted, const KEPString& command,
                                    KEPListValKEPString& syntaxes) {
    return reader_.GetSyntaxOfInsert(inserted, command, syntaxes);
  }
  [[nodiscard]] bool numberOfSequence(int& count) { return reader_.GetNumberOfSequence(count); }
  [[nodiscard]] bool syntaxOfSequence(const KEPString& command, int sequence,
                                      KEPListValKEPString& syntaxes) {
    return reader_.GetSyntaxOfSequenceFromPosition(command, sequence, syntaxes);
  }
  [[nodiscard]] bool cleanListOfSyntax(const KEPListValKEPString& cut,
                                       KEPListValKEPString& mended) {
    return reader_.CleanListOfSyntax(cut, mended);
  }

  /// The token that follows in the stream.
  [[nodiscard]] std::string nextToken();
  [[nodiscard]] bool isOpen() const { return reader_.isOpen_; }
  [[nodiscard]] bool sharesStreamWith(const KEPMfgPPTableTxt& other) const {
    return reader_.stream_ != nullptr && reader_.stream_ == other.stream_;
  }
  /// Takes the file descriptor from under the stream, so that its next close fails.
  void breakClose();

 private:
  KEPMfgPPTableTxt& reader_;
};

using Texts = std::vector<std::string>;

[[nodiscard]] Texts texts(const KEPListValKEPString& list);
[[nodiscard]] KEPListValKEPString listOf(const Texts& texts);
[[nodiscard]] std::vector<int> numbers(const KEPRawCollint& list);

/// The number of files that the process holds open.
[[nodiscard]] int openFiles();
