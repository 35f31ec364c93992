#pragma once

#include <string_view>

/// Ensures that the three standard descriptors are open, so that no file gets their numbers.
/// Writing to one that was closed fails as before. A closed pipe and a file that grows too large
/// become write errors.
void prepareStandardStreams();

/// Writes all of `text`, which is empty or ends with a line feed, to the standard output, and makes
/// sure that a file is on the disk. Raises an OutputError when that fails.
void writeOutput(std::string_view text);

/// Writes a part of what is synchronised once, with the last part: by writeOutput. Otherwise the
/// same.
void writePartOfOutput(std::string_view text);

/// True when the standard error is a terminal that shows colours: not with TERM=dumb, nor with a
/// setting NO_COLOR that is not empty.
[[nodiscard]] bool showsColours() noexcept;

/// Writes `text` to the standard error; what it does not take is lost.
void writeMessage(std::string_view text) noexcept;
