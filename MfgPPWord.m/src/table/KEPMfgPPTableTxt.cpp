#include "KEPMfgPPTableTxt.h"

#include <string>
#include <utility>

#include "language/number/IntegerPrefix.h"
#include "language/table/CommandQueries.h"
#include "language/table/CommandSyntax.h"
#include "language/table/CutSyntaxes.h"
#include "language/table/SectionQueries.h"
#include "language/table/TableCheck.h"
#include "src/table/AppendAll.h"
#include "src/table/FileSource.h"
#include "src/table/TableError.h"

using ppword::appendAll;
using ppword::FileSource;

namespace {

/// Replaces a list by what `query` reads, whole or not; returns what the query returns.
template <class Query>
bool replaced(KEPListValKEPString& list, Query query) {
  std::vector<std::string> read;
  const bool isWhole = query(read);
  list.RemoveAll();
  appendAll(std::move(read), list);
  return isWhole;
}

}  // namespace

KEPMfgPPTableTxt::KEPMfgPPTableTxt(const KEPString& path) : path_(path) {}
KEPMfgPPTableTxt::KEPMfgPPTableTxt(const KEPMfgPPTableTxt& other) = default;
KEPMfgPPTableTxt& KEPMfgPPTableTxt::operator=(const KEPMfgPPTableTxt& other) = default;
KEPMfgPPTableTxt::~KEPMfgPPTableTxt() = default;

HRESULT KEPMfgPPTableTxt::CheckFileSyntax() {
  FileSource source(stream_, path_, isOpen_);
  const auto fault = ppword::faultOfTable(source);
  return fault ? ppword::recordTableError(*fault) : S_OK;
}

HRESULT KEPMfgPPTableTxt::CheckStartLine(std::string_view line, int lineNumber) {
  const auto key = ppword::faultOfStartLine(line);
  return key ? ppword::recordTableError({*key, lineNumber}) : S_OK;
}

bool KEPMfgPPTableTxt::GetNumberOfCommand(int& count) {
  FileSource source(stream_, path_, isOpen_);
  return ppword::numberOfCommands(source, count);
}

bool KEPMfgPPTableTxt::GetNameOfCommand(int index, KEPString& name) {
  FileSource source(stream_, path_, isOpen_);
  return ppword::nameOfCommand(source, index, name.Edit());
}

bool KEPMfgPPTableTxt::GetRangeOfCommand(const KEPString& name, int& range) {
  FileSource source(stream_, path_, isOpen_);
  return ppword::rangeOfCommand(source, name, range);
}

bool KEPMfgPPTableTxt::GetSyntaxOfCommand(const KEPString& name, KEPListValKEPString& syntaxes) {
  int range = 0;
  return GetRangeOfCommand(name, range) && GetSyntaxFromPosition(name, syntaxes);
}

bool KEPMfgPPTableTxt::GetSyntaxOfCommand(int index, KEPListValKEPString& syntaxes) {
  KEPString name;
  return GetNameOfCommand(index, name) && GetSyntaxFromPosition(name, syntaxes);
}

bool KEPMfgPPTableTxt::GetNumberOfSequenceForCommand(const KEPString& name, int& count) {
  int range = 0;
  return GetRangeOfCommand(name, range) && GetNumberOfSequence(count);
}

bool KEPMfgPPTableTxt::GetNumberOfSequenceForCommand(int index, int& count) {
  KEPString name;
  return GetNameOfCommand(index, name) && GetNumberOfSequence(count);
}

bool KEPMfgPPTableTxt::GetSyntaxOfSequenceForCommand(const KEPString& name, int sequence,
                                                     KEPListValKEPString& syntaxes) {
  int range = 0;
  return GetRangeOfCommand(name, range) &&
         GetSyntaxOfSequenceFromPosition(name, sequence, syntaxes);
}

bool KEPMfgPPTableTxt::GetSyntaxOfSequenceForCommand(int index, int sequence,
                                                     KEPListValKEPString& syntaxes) {
  KEPString name;
  return GetNameOfCommand(index, name) && GetSyntaxOfSequenceFromPosition(name, sequence, syntaxes);
}

bool KEPMfgPPTableTxt::GetNumberOfMultiListParameter(int& count) {
  FileSource source(stream_, path_, isOpen_);
  return ppword::numberOfParameters(source, ppword::kListKeyword, count);
}

bool KEPMfgPPTableTxt::GetNameOfMultiListParameter(int index, KEPString& name) {
  FileSource source(stream_, path_, isOpen_);
  return ppword::nameOfParameter(source, ppword::kListKeyword, index, name.Edit());
}

bool KEPMfgPPTableTxt::GetValuesOfMultiListParameter(int index, KEPListValKEPString& values) {
  FileSource source(stream_, path_, isOpen_);
  return replaced(values, [&](auto& read) { return valuesOfMultiList(source, index, read); });
}

bool KEPMfgPPTableTxt::GetNumberOfFormatParameter(int& count) {
  FileSource source(stream_, path_, isOpen_);
  return ppword::numberOfParameters(source, ppword::kFormatKeyword, count);
}

bool KEPMfgPPTableTxt::GetNameOfFormatParameter(int index, KEPString& name) {
  FileSource source(stream_, path_, isOpen_);
  return ppword::nameOfParameter(source, ppword::kFormatKeyword, index, name.Edit());
}

bool KEPMfgPPTableTxt::GetValueOfFormatParameter(int index, KEPString& value) {
  FileSource source(stream_, path_, isOpen_);
  return ppword::valueOfFormat(source, index, value.Edit());
}

bool KEPMfgPPTableTxt::GetListOfSyntaxes(KEPListValKEPString& syntaxes) {
  FileSource source(stream_, path_, isOpen_);
  return replaced(syntaxes, [&](auto& read) { return listOfSyntaxes(source, read); });
}

bool KEPMfgPPTableTxt::GetListOfAptWord(KEPRawCollint& kinds, KEPListValKEPString& words) {
  KEPRawCollint kindsOfPieces;
  KEPListValKEPString pieces;
  if (!GetListOfPPValues(kindsOfPieces, pieces)) return false;
  // A piece of a token holds no blanks, so there is nothing to strip.
  for (int i = 1; i <= pieces.Size(); i += 2) {
    words.Append(pieces[i]);
    kinds.Append(kindsOfPieces[i]);
  }
  return true;
}

bool KEPMfgPPTableTxt::GetListOfNcCode(KEPRawCollint& codes) {
  KEPRawCollint kindsOfPieces;
  KEPListValKEPString pieces;
  if (!GetListOfPPValues(kindsOfPieces, pieces)) return false;
  for (int i = 2; i <= pieces.Size(); i += 2) {
    // deliberate: no placeholder for a piece that is no number
    if (const auto code = ppword::integerPrefix(pieces[i])) codes.Append(*code);
  }
  return true;
}

bool KEPMfgPPTableTxt::FindStringInPPTable(std::string_view text) {
  FileSource source(stream_, path_, isOpen_);
  return ppword::findToken(source, text);
}

bool KEPMfgPPTableTxt::GetListOfPPValues(KEPRawCollint& kinds, KEPListValKEPString& pieces) {
  FileSource source(stream_, path_, isOpen_);
  std::vector<int> kindsRead;
  const bool isWhole =
      replaced(pieces, [&](auto& read) { return listOfPPValues(source, kindsRead, read); });
  kinds.RemoveAll();
  for (const int kind : kindsRead) kinds.Append(kind);
  return isWhole;
}

bool KEPMfgPPTableTxt::GetSyntaxFromPosition(const KEPString& commandName,
                                             KEPListValKEPString& syntaxes) {
  FileSource source(stream_, path_, isOpen_);
  std::optional<ppword::CommandPositions> positions;
  auto elements = ppword::readSyntax(source, commandName, positions);
  if (!elements) return false;
  appendAll(*std::move(elements), syntaxes);
  return true;
}

bool KEPMfgPPTableTxt::GetSyntaxOfInsert(const KEPString& insertedName,
                                         const KEPString& commandName,
                                         KEPListValKEPString& syntaxes) {
  int range = 0;
  return GetRangeOfCommand(insertedName, range) && GetSyntaxFromPosition(insertedName, syntaxes) &&
         GetRangeOfCommand(commandName, range) && FindStringInPPTable(insertedName);
}

bool KEPMfgPPTableTxt::GetNumberOfSequence(int& count) {
  FileSource source(stream_, path_, isOpen_);
  return ppword::numberOfSequences(source, count);
}

bool KEPMfgPPTableTxt::GetSyntaxOfSequenceFromPosition(const KEPString& commandName, int sequence,
                                                       KEPListValKEPString& syntaxes) {
  FileSource source(stream_, path_, isOpen_);
  return ppword::findSequence(source, sequence) && GetSyntaxFromPosition(commandName, syntaxes);
}

bool KEPMfgPPTableTxt::CleanListOfSyntax(const KEPListValKEPString& cut,
                                         KEPListValKEPString& mended) {
  std::vector<std::string> elements;
  for (const KEPString& element : cut) elements.emplace_back(element.View());
  ppword::CutSyntaxes syntaxes(elements);
  syntaxes.mend(0, elements.size());
  appendAll(syntaxes.elements(), mended);
  return true;
}
