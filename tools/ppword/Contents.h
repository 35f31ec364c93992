#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "System/KEPList.h"
#include "host/modeler/Document.h"
#include "language/table/TableEntries.h"
#include "tools/ppword/Commands.h"

using Lines = std::vector<std::string>;

/// An APT word of a table: its kind from 1 to 4, and its code where words and codes pair off.
struct AptWord {
  std::string word;
  int kind = 0;
  std::optional<int> code;
};

/// The words with their kinds; with their codes when there are as many.
[[nodiscard]] std::vector<AptWord> paired(const KEPListValKEPString& words,
                                          const KEPRawCollint& kinds, const KEPRawCollint& codes);

using InstructionEntry = ppword::CommandEntry;
using ppword::FormatEntry;
using ppword::ListEntry;

/// A value that is not set is absent.
struct PPCommandEntry {
  std::optional<std::string> name;
  std::optional<int> sequence;
};
using PPCommandEntries = std::vector<PPCommandEntry>;

/// The section of a document that holds its PP commands.
inline constexpr std::string_view kPPCommands = "pp-commands";

/// The sections of a table, and those of a document.
inline constexpr std::array<std::string_view, 6> kTableSections = {
    "words", "syntaxes", "commands", "sequences", "lists", "formats"};
inline constexpr std::array<std::string_view, 5> kDocumentSections = {
    "commands", "sequences", "lists", "formats", kPPCommands};

/// What a table, or a document, holds. A section that cannot be read is absent.
struct Contents {
  std::optional<std::vector<AptWord>> words;
  std::optional<Lines> syntaxes;
  std::vector<InstructionEntry> commands;
  std::vector<ListEntry> lists;
  std::vector<FormatEntry> formats;
  /// Parameters that have neither a list nor a format; a document only.
  Lines otherParameters;
  /// By their positions; a document only.
  std::optional<PPCommandEntries> ppCommands;
  /// Of the other parameters those with a format that has no text; a document only.
  Lines emptyFormats{};
};

/// What the reader finds in the table at `path`: at least the section of that name, all sections
/// without one.
[[nodiscard]] Contents tableContents(const std::string& path, std::string_view section);

/// What a document holds.
[[nodiscard]] Contents documentContents(const host::Document& document);

/// One section for people, under a heading; an empty name means all sections that have entries.
[[nodiscard]] std::string contentsText(const Contents& contents, std::string_view section);

/// What a kind from 1 to 4 means.
[[nodiscard]] std::string_view kindName(int kind);

/// Writes one section, or all, to the standard output; in JSON null is for what cannot be read.
void showContents(const Contents& contents, std::string_view section, OutputFormat format);
