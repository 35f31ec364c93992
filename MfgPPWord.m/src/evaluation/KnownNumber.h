#pragma once

#include <optional>

#include "Manufacturing/KEPIMfgGeneratorData.h"
#include "System/KEPString.h"
#include "language/number/PlainFixed.h"
#include "language/syntax/LineWriter.h"
#include "src/revision/RevisionMark.h"

namespace ppword {

/// Where the format of a number comes from: the "Format" of the parameter type, or first the point
/// or axis format of the running generation.
enum class FormatSource { Type, Points, Axes };

/// Reads one number from a motion buffer.
using BufferNumber = double (*)(const KEPBaseUnknown& buffer);

/// Prints a number of a motion buffer, and stores until the document changes what it found: the
/// buffer, and the "Format" of the type when that is a plain one. Each function returns false, with
/// a report of what lacks and its last argument untouched, when there is no such buffer, no format,
/// or the format cannot print the number.
class KnownNumber {
 public:
  /// The evaluation, the number and where its format comes from; an evaluation that extends no
  /// feature raises the null-handle error.
  struct Wanted {
    const KEPBaseUnknown& evaluation;
    const KEPMetaClass* bufferClass;
    BufferNumber read;
    FormatSource source;
  };

  [[nodiscard]] bool print(const Wanted& wanted, KEPString& text);
  [[nodiscard]] bool append(const Wanted& wanted, LineWriter& out);

  /// True when all is known, and no generation is running: its formats are asked each time.
  [[nodiscard]] bool isKnown(FormatSource source) const {
    return isFormatKnown_ && mark_.isCurrent() &&
           (source == FormatSource::Type || !KEPMfgGeneratorData::GetCurrentKEPIMfgGeneratorData());
  }
  /// As append, when all is known.
  template <auto kRead>
  [[nodiscard]] bool appendKnown(LineWriter& out) const {
    // A copy: to read the buffer may change the document.
    const PlainFixed format = format_;
    return append(format, kRead(*buffer_), out);
  }

 private:
  /// A buffer and the format of its number.
  struct Found {
    const KEPBaseUnknown* buffer;
    /// Nothing for a format that is not a plain one: it is in `text`.
    std::optional<PlainFixed> plain;
    KEPUnicodeString text;
  };

  [[nodiscard]] std::optional<Found> find(const Wanted& wanted);
  void findBuffer(const Wanted& wanted);
  [[nodiscard]] static bool append(PlainFixed format, double number, LineWriter& out);

  /// Of the buffer, and of the format when that is known.
  RevisionMark mark_;
  const KEPBaseUnknown* buffer_ = nullptr;
  PlainFixed format_;
  bool isFormatKnown_ = false;
};

}  // namespace ppword
