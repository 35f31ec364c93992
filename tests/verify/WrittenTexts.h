#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "post/toolpath/ToolPath.h"
#include "verify/Comparison.h"

/// A text that was posted, with the events of its input and what it was written with.
struct WrittenText {
  /// The input and the table, for messages.
  std::string name;
  std::string text;
  std::vector<host::ToolPathEvent> events;
  verify::DocumentWords document;
  verify::Generation generation{};
};

/// What is posted: files of the examples, or their paths. Of a listing also the rotary axes.
struct TextSource {
  std::string_view input;
  std::string_view table = "";
  std::string_view rotary = "";
};

/// Posts an input; it must be right.
[[nodiscard]] WrittenText writeText(const TextSource& source);
/// Posts the lines of a job between its header and its end, with the lines of a table.
[[nodiscard]] WrittenText writeJob(std::string_view lines, std::string_view table = "");

/// What a comparison with a text says: "agrees, ELEMENTS elements, VERIFIED verified, OWN own",
/// otherwise "LINE:COLUMN FOUND | EXPECTED | INPUT-LINE ELEMENT"; then what was not verified, is
/// left out and has another point, with counts and first lines.
[[nodiscard]] std::string comparisonOf(const WrittenText& written, std::string_view text,
                                       const verify::Words& words = verify::Words());
/// True when the text is as the input says.
[[nodiscard]] bool agrees(const WrittenText& written, std::string_view text);
