#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/modeler/Document.h"
#include "inspect/explain/Explanation.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// An element at one of its points, with what every pass did for it.
struct ExplainedElement {
  /// In the tool path, or in `file`, which an NC program calls, if that is not empty.
  long line = 0;
  std::string file;
  /// From 1, and how many there are; 1 and 0 for an element without points.
  long point = 1;
  long points = 0;
  std::string instruction;
  int sequence = 1;
  Explanation explanation;
};

/// What comes from one line of a tool path.
struct ExplainedElements {
  /// The elements of the line that have the point, in their order.
  std::vector<ExplainedElement> elements;
  /// The most points that an element of the line has; nothing for a line without elements.
  std::optional<long> mostPoints;
  /// For a line without elements: the nearest lines with some, 0 where there is none.
  long before = 0;
  long after = 0;
};

// Both write a tool path to nowhere, up to what is asked for, so that the motion buffers and the
// activity have its values. They need the memory of what is asked for only. They raise the
// InputError that a post run raises there; `name` is that of the tool path in it.

/// Explains the elements of a line at a point.
[[nodiscard]] ExplainedElements explainLine(const KEPVar<Document>& document, std::string_view name,
                                            ToolPathReader& toolPath, long line, long point);

/// Explains the element with a number: elements count from 1, one for each of their points. Nothing
/// when there are fewer.
[[nodiscard]] std::optional<ExplainedElement> explainElement(const KEPVar<Document>& document,
                                                             std::string_view name,
                                                             ToolPathReader& toolPath, long number);

}  // namespace host
