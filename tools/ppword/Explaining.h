#pragma once

#include "inspect/explain/ExplainedElement.h"
#include "inspect/explain/Explanation.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Json.h"

// The parts of the command explain.

/// Shows what every pass does for the elements that come from a place of the tool path `options`.
/// Raises a UsageError, a Refusal, an InputError or a DocumentError; an InputError too when no
/// element comes from there.
[[nodiscard]] ExitStatus explainPlace(const host::ElementPlace& place,
                                      const ToolPathOptions& options, OutputFormat format);

/// For programs: a line with its passes, its output and its notes.
[[nodiscard]] Json lineJson(const host::ExplainedLine& line);
/// The array of all lines.
[[nodiscard]] Json explainedLinesJson(const host::Explanation& explanation);
