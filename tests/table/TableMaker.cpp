#include "tests/table/TableMaker.h"

namespace {

const Texts kFragments = {"*START_MAJOR_WORDS_WITHOUT_PARAMETERS",
                          "*START_MAJOR_WORDS_WITH_TEXT",
                          "*START_MAJOR_WORDS_WITH_PARAMETERS",
                          "*START_MINOR_WORDS",
                          "*START_SYNTAXES",
                          "*START_NC_COMMAND NC_A",
                          "*START_NC_COMMAND NC_B",
                          "*START_NC_INSTRUCTION NC_C",
                          "*START_LIST MFG_L",
                          "*START_FORMAT MFG_F",
                          "*START_SEQUENCE",
                          "*INSERT NC_A",
                          "*INSERT NC_B",
                          "*INSERT NC_C",
                          "*INSERT X",
                          "*END",
                          "*END",
                          "*END",
                          "*COMMENT",
                          "NC_A",
                          "PPRINT TEXT WORD",
                          "$$",
                          "PARTNO",
                          "WORD,12,",
                          "/SLASH",
                          ",",
                          "%11.5f",
                          std::string(79, 'x') + "%",
                          std::string(80, 'y') + "%MFG",
                          std::string(1, '\0'),
                          "\r",
                          std::string(1023, 'z'),
                          "\xEF\xBB\xBF",
                          "\xFF\x80"};

}  // namespace

std::string TableMaker::table() {
  std::string table;
  const std::size_t size = below(40);
  for (std::size_t i = 0; i < size; ++i) {
    table += kFragments[below(kFragments.size())];
    table += below(4) == 0 ? " " : below(4) == 0 ? "\r\n" : "\n";
  }
  return table;
}
