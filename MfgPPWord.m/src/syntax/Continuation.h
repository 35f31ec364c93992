#pragma once

#include "System/KEPList.h"

namespace ppword {

/// Sets the continuation mark "$" at the end of every line that goes on in the next one: a line
/// that ends in ",", or is followed by one that begins with "," and does not end in "$" yet; never
/// before a line that contains "/". Blanks at both ends are looked through. For example
///   GOTO/1,  and  2,3  become  GOTO/1,$  and  2,3
void setContinuationMarks(KEPListValKEPUnicodeString& lines);

/// True for a list of exactly one line that ends with ",".
[[nodiscard]] bool hasTrailingComma(const KEPListValKEPUnicodeString& lines);

/// Takes the "," off the end of such a list; other lists stay as they are.
void dropTrailingComma(KEPListValKEPUnicodeString& lines);

}  // namespace ppword
