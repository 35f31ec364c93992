#pragma once

#include "inspect/explain/ExplainedElement.h"
#include "post/toolpath/ToolPath.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Json.h"

// The parts of the command explain.

/// Shows what every pass does for the elements that come from a place of the tool path `options`.
/// Raises a UsageError, a Refusal, an InputError or a DocumentError; an InputError too when no
/// element comes from there.
[[nodiscard]] ExitStatus explainPlace(const host::ElementPlace& place,
                                      const ToolPathOptions& options, OutputFormat format);

/// Shows where a line of a text comes from, and what every pass did for it. `map` is the file that
/// post --map wrote for the text. Raises what explainPlace raises; an InputError too for a map that
/// is none, and when the text or what it was written from has changed.
[[nodiscard]] ExitStatus explainMapped(const std::string& map, long line, OutputFormat format);

/// The instruction of an element, with its sequence and its point where it could have others.
[[nodiscard]] std::string elementTitle(const host::ExplainedElement& element);

/// For programs: a line with its passes, its output and its notes.
[[nodiscard]] Json lineJson(const host::ExplainedLine& line);
/// The array of all lines.
[[nodiscard]] Json explainedLinesJson(const host::Explanation& explanation);
