#pragma once

#include <string>
#include <string_view>

#include "post/listing/ListingReader.h"

/// Calls, one a line, as a listing: each gets its running number and no block number.
[[nodiscard]] std::string numbered(std::string_view calls);

/// The calls between the usual opening in millimetres and the end of a file between percent signs.
/// The calls stand from line 2 on.
[[nodiscard]] std::string program(std::string_view calls);

/// What a listing gives: the elements, one a line, such as "NC_RAPID" and "NC_GOTO 1 2 3", behind
/// the numbers a tool axis with six decimals after "axis"; with the values that they write into
/// buffers, such as "NC_FEEDRATE 300 LINEARFEEDRATE" and "NC_OUTPUT_COMMENT <text>", arcs and
/// helices with all of theirs and the point "at" their end, rounded to six decimals; activities
/// with their parameters, such as "activity MFG_TOOL_NUMBER=1"; then, where the listing is refused,
/// "LINE:COLUMN: " and the message.
[[nodiscard]] std::string readListing(std::string_view listing,
                                      const host::ListingOptions& options = {});

/// The counted calls, one a line, such as "line COMMENT 2 from 7".
[[nodiscard]] std::string countCalls(std::string_view listing,
                                     const host::ListingOptions& options = {});

/// Options with these rotary axes; the text must be right.
[[nodiscard]] host::ListingOptions rotary(std::string_view text);
