#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "inspect/explain/ValueSetting.h"
#include "post/listing/LengthUnit.h"
#include "post/listing/RotaryChain.h"

enum class OutputFormat { Text, Json };

struct CheckOptions {
  std::vector<std::string> tables;
  bool lint = false;
  bool strict = false;
  OutputFormat format = OutputFormat::Text;
};

struct ExplainOptions {
  /// Empty: the default catalogue.
  std::string table;
  /// Empty: the lines of `syntax`.
  std::string instruction;
  std::vector<std::string> syntax;
  int sequence = 1;
  std::vector<host::ValueSetting> values;
  OutputFormat format = OutputFormat::Text;
};

struct ListOptions {
  /// Empty: the default catalogue.
  std::string table;
  /// Empty: all sections.
  std::string section;
  OutputFormat format = OutputFormat::Text;
};

struct DocumentOptions {
  enum class Action { New, LoadTable, Show, SetSyntax, AddCommand, Reset, Upgrade };
  Action action = Action::Show;
  std::string file;
  // What the actions need: load-table a table, set-syntax a line, add-command a name and a
  // sequence.
  std::string table;
  std::string line;
  std::string name;
  int sequence = 1;
  /// What is shown; empty: all sections.
  std::string section;
  OutputFormat format = OutputFormat::Text;
};

struct PostOptions {
  /// "-": the standard input.
  std::string job;
  std::string table;
  /// Empty: the one that the job names, or a new one.
  std::string document;
  /// Empty: the standard output.
  std::string output;
  bool strict = false;
  bool verbose = false;
  OutputFormat format = OutputFormat::Text;
  /// For listings only.
  std::optional<host::LengthUnit> units;
  std::optional<host::RotaryChain> rotary;
};

struct WordsOptions {
  std::string table;
  OutputFormat format = OutputFormat::Text;
};

struct CodeOptions {
  std::string table;
  std::vector<std::string> words;
  OutputFormat format = OutputFormat::Text;
};

struct WordOptions {
  std::string table;
  std::vector<int> codes;
  OutputFormat format = OutputFormat::Text;
};

struct TablesOptions {
  OutputFormat format = OutputFormat::Text;
};

using CommandOptions =
    std::variant<CheckOptions, ExplainOptions, ListOptions, DocumentOptions, PostOptions,
                 WordsOptions, CodeOptions, WordOptions, TablesOptions>;
