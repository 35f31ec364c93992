#include "tests/table/TableAnswers.h"

#include <string>

Texts answersOf(KEPMfgPPTableTxt& reader) {
  int number = 7;
  KEPString text = "kept";
  KEPListValKEPString list = listOf({"kept"});
  KEPRawCollint integers;
  integers.Append(7);
  const auto said = [&](const char* query, bool result) {
    std::string line = std::string(query) + (result ? " true " : " false ");
    line += std::to_string(number) + " " + text.CastToCharPtr();
    for (const KEPString& entry : list) line.append(" ").append(entry.View());
    for (const int entry : integers) line += " " + std::to_string(entry);
    number = 7;
    text = "kept";
    list = listOf({"kept"});
    integers.RemoveAll();
    integers.Append(7);
    return line;
  };
  Texts answers;
  answers.push_back(said("commands", reader.GetNumberOfCommand(number)));
  answers.push_back(said("name", reader.GetNameOfCommand(1, text)));
  answers.push_back(said("range", reader.GetRangeOfCommand("NC_C", number)));
  answers.push_back(said("syntax", reader.GetSyntaxOfCommand("NC_B", list)));
  answers.push_back(said("syntax", reader.GetSyntaxOfCommand(1, list)));
  answers.push_back(said("sequences", reader.GetNumberOfSequenceForCommand("NC_B", number)));
  answers.push_back(said("sequences", reader.GetNumberOfSequenceForCommand(1, number)));
  answers.push_back(said("sequence", reader.GetSyntaxOfSequenceForCommand("NC_B", 1, list)));
  answers.push_back(said("sequence", reader.GetSyntaxOfSequenceForCommand(1, 1, list)));
  answers.push_back(said("lists", reader.GetNumberOfMultiListParameter(number)));
  answers.push_back(said("list", reader.GetNameOfMultiListParameter(1, text)));
  answers.push_back(said("values", reader.GetValuesOfMultiListParameter(1, list)));
  answers.push_back(said("formats", reader.GetNumberOfFormatParameter(number)));
  answers.push_back(said("format", reader.GetNameOfFormatParameter(1, text)));
  answers.push_back(said("value", reader.GetValueOfFormatParameter(1, text)));
  answers.push_back(said("syntaxes", reader.GetListOfSyntaxes(list)));
  answers.push_back(said("words", reader.GetListOfAptWord(integers, list)));
  answers.push_back(said("codes", reader.GetListOfNcCode(integers)));
  return answers;
}

const Texts kWholeAnswers = {"commands true 3 kept kept 7",
                             "name true 7 NC_A kept 7",
                             "range true 3 kept kept 7",
                             "syntax true 7 kept kept B1 7",
                             "syntax true 7 kept kept A1 7",
                             "sequences true 0 kept kept 7",
                             "sequences true 0 kept kept 7",
                             "sequence false 7 kept kept 7",
                             "sequence false 7 kept kept 7",
                             "lists true 1 kept kept 7",
                             "list true 7 MFG_UNITS kept 7",
                             "values true 7 kept MMPM 7",
                             "formats true 1 kept kept 7",
                             "format true 7 MFG_X kept 7",
                             "value true 7 %5.1f kept 7",
                             "syntaxes true 7 kept RAPID 7",
                             "words true 7 kept kept FINI NOTE 7 1 4",
                             "codes true 7 kept kept 7 1 181"};

const Texts kUnopenedAnswers = {"commands false 0 kept kept 7",  "name false 7 kept kept 7",
                                "range false 0 kept kept 7",     "syntax false 7 kept kept 7",
                                "syntax false 7 kept kept 7",    "sequences false 7 kept kept 7",
                                "sequences false 7 kept kept 7", "sequence false 7 kept kept 7",
                                "sequence false 7 kept kept 7",  "lists false 0 kept kept 7",
                                "list false 7 kept kept 7",      "values false 7 kept 7",
                                "formats false 0 kept kept 7",   "format false 7 kept kept 7",
                                "value false 7 kept kept 7",     "syntaxes false 7 kept 7",
                                "words false 7 kept kept 7",     "codes false 7 kept kept 7"};

const Texts kEmptyAnswers = {"commands true 0 kept kept 7",   "name false 7 kept kept 7",
                             "range false 0 kept kept 7",     "syntax false 7 kept kept 7",
                             "syntax false 7 kept kept 7",    "sequences false 7 kept kept 7",
                             "sequences false 7 kept kept 7", "sequence false 7 kept kept 7",
                             "sequence false 7 kept kept 7",  "lists true 0 kept kept 7",
                             "list false 7 kept kept 7",      "values false 7 kept 7",
                             "formats true 0 kept kept 7",    "format false 7 kept kept 7",
                             "value false 7 kept kept 7",     "syntaxes true 7 kept 7",
                             "words true 7 kept kept 7",      "codes true 7 kept kept 7"};
