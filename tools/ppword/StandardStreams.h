#pragma once

#include <string_view>

/// Ensures that the three standard descriptors are open, so that no file gets their numbers.
/// Writing to one that was closed fails as before. A closed pipe and a file that grows too large
/// become write errors.
void prepareStandardStreams();

/// Writes all of `text`, which is empty or ends with a line feed, to the standard output. Raises an
/// OutputError when that fails.
void writeOutput(std::string_view text);

/// True when the standard error is a terminal that shows colours: not with TERM=dumb, nor with a
/// setting NO_COLOR that is not empty.
[[nodiscard]] bool showsColours() noexcept;

/// Writes `text` to the standard error; what it does not take is lost.
void writeMessage(std::string_view text) noexcept;
