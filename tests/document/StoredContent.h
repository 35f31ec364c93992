#pragma once

#include <string>
#include <vector>

#include "host/modeler/Document.h"

namespace host::test {

/// Everything that a document stores, as text: its containers, their features in order with every
/// attribute that they declare or give a value to, and the design parameters.
[[nodiscard]] std::vector<std::string> contentOf(const Document& document);

/// What openDocument tells of a file: its error, or "opens".
[[nodiscard]] std::string openingOf(const std::string& path);

/// Runs SQL on a file, as whoever tampers with it does. Fails the test when it cannot.
void tamper(const std::string& path, const std::string& sql);

/// The PP command with the given name and number that a document's factory makes.
void addCommand(const Document& document, std::string_view name, int sequence);

}  // namespace host::test
