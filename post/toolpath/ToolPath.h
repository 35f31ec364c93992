#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Mathematics/KEPMathVector.h"
#include "host/manufacturing/ActivityValues.h"

namespace host {

class LineReader;

using Triple = std::array<double, 3>;

/// A line of a tool path, from 1; of a file that an NC program calls if that has a name here.
struct SourceLine {
  // A line of the tool path itself.
  SourceLine(long number) : line(number) {}  // NOLINT(google-explicit-constructor)
  SourceLine(long number, std::string_view name) : line(number), file(name) {}
  long line;
  std::string_view file;
};

/// A point of the tool path and, where it changes, the tool axis there.
struct Position {
  Triple point{};
  std::optional<Triple> toolAxis{};
};

/// Values to write into the motion buffers; a buffer keeps its value where none is stated.
struct CircleChange {
  std::optional<Triple> tangent, center, normal, point;
  std::optional<double> radius;
};
struct HelixChange {
  std::optional<Triple> inDirV, center, axis, start, end;
  std::optional<double> radius, pitch;
};
struct FeedrateChange {
  std::optional<TypedValue> value;
  std::optional<double> factor;
  std::optional<std::string> feedType;
};
struct SpindleChange {
  std::optional<TypedValue> value;
  std::optional<double> factor;
  std::optional<int> way;
};
struct RotateChange {
  std::optional<double> angle;
  std::optional<std::string> firstText, secondText, thirdText;
  std::optional<KEPMathAxis> axisSystem;
};
struct BufferChanges {
  std::optional<Triple> toolAxis;
  std::optional<CircleChange> circle;
  std::optional<HelixChange> helix;
  std::optional<FeedrateChange> feedrate;
  std::optional<SpindleChange> spindle;
  std::optional<std::string> comment;
  std::optional<int> corrector, hole;
  std::optional<RotateChange> rotate;
};

/// One tool-path element: an NC instruction, or a PP command of the document, and the buffer values
/// that change for it. It is written once for each of its positions, and once if it has none.
struct Element {
  std::string instruction;
  /// The position, from 1, of the PP command that replaces the instruction and its sequence; 0 for
  /// none.
  int ppCommand = 0;
  /// Which syntax attribute of the instruction is meant, from 1.
  int sequence = 1;
  BufferChanges changes;
  std::vector<Position> positions;
  /// Line of the input that holds the element, from 1.
  long line = 0;
  /// The file that holds the line where it is not the tool path itself but a file that an NC
  /// program calls; empty otherwise. The text belongs to the reader.
  std::string_view file{};

  [[nodiscard]] SourceLine place() const { return {line, file}; }
};

/// The activity that the elements after it belong to.
struct ActivityStart : ActivityValues {
  /// True for an activity that is reached through a virtual one.
  bool isVirtual = false;
  long line = 0;
};

using ToolPathEvent = std::variant<Element, ActivityStart>;

/// What a file of tool paths can be.
enum class ToolPathKind { Job, Listing, Program };

/// Recognises by its first bytes whether an input is a job (JSON Lines), a canonical listing or an
/// NC program; they stay unread. Raises an InputError for an input that is none of them.
[[nodiscard]] ToolPathKind recogniseToolPath(LineReader& lines);

/// A place of a tool path as a user writes it, FILE:LINE or FILE:LINE:POINT. Both count from 1.
struct ElementPlace {
  std::string file;
  long line = 0;
  long point = 1;
};

/// Nothing for another text. Of a file name that ends with a colon and a number the place needs
/// its POINT too.
[[nodiscard]] std::optional<ElementPlace> readElementPlace(std::string_view text);

/// A tool path, read piece by piece.
class ToolPathReader {
 public:
  ToolPathReader() = default;
  ToolPathReader(const ToolPathReader&) = delete;
  ToolPathReader& operator=(const ToolPathReader&) = delete;
  virtual ~ToolPathReader() = default;

  /// Fills in the next event; false at the end. Raises an InputError for input that is refused.
  [[nodiscard]] virtual bool next(ToolPathEvent& event) = 0;
  /// True when the lines of events never decrease: an NC program has loops and subroutines.
  [[nodiscard]] virtual bool isInOrder() const { return true; }
};

}  // namespace host
