#pragma once

#include <string>

#include "host/document/DocumentFile.h"
#include "inspect/diagnostics/Diagnostic.h"

/// A run that ends early because of its input.
struct Refusal {
  host::Diagnostic diagnostic;
};

/// The finding of a document file that is refused.
[[nodiscard]] host::Diagnostic documentDiagnostic(const host::DocumentError& error);

/// Warns on the standard error of a document that needs an upgrade.
void warnOfOldVersion(const host::Document& document, const std::string& path);

/// Loads a table into a document; a Refusal tells why it cannot be loaded.
void loadTable(host::Document& document, const std::string& path);
