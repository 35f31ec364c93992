#pragma once

#include <optional>
#include <string>
#include <vector>

#include "post/parameters/Parameters.h"
#include "tools/ppword/Contents.h"

/// A parameter, and what a document makes of it.
struct ParameterEntry {
  std::string name;
  /// Null when the parameter is unknown.
  const host::Parameter* known = nullptr;
  /// Its own format, or the words of its list.
  std::optional<std::string> format;
  std::optional<Lines> list;
  /// The NC instructions that refer to it, in the order of the document.
  std::vector<std::string> instructions;
};

/// The known parameters and those of a document: first the known ones in their order. Of an
/// instruction only those that it refers to; a name that the document does not have refers to
/// nothing.
[[nodiscard]] std::vector<ParameterEntry> parametersOf(
    const Contents& contents, const std::optional<std::string>& instruction);

/// Writes them to the standard output.
void showParameters(const std::vector<ParameterEntry>& parameters, OutputFormat format);
