#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "host/document/DocumentFile.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "tools/ppword/Commands.h"

// What the commands say of their input: suggestions, warnings and refusals.

/// A run that ends early because of its input.
struct Refusal {
  host::Diagnostic diagnostic;
};

/// Warns of a table without any block, which is probably another file than the one that was meant.
void warnOfNoBlock(const std::string& table);

/// What to add to a message about an unknown word: the candidate that was perhaps meant.
[[nodiscard]] std::string suggestion(std::string_view word,
                                     std::span<const std::string_view> candidates);

/// Raises a UsageError for a section that is not one of `sections`.
void requireSection(const std::string& section, std::span<const std::string_view> sections);

/// Raises a UsageError when the table is named twice: with the option -t, and as an argument.
void requireOneTable(const std::string& option, const std::string& argument);

/// Writes a finding to the standard error.
void reportDiagnostic(const host::Diagnostic& diagnostic);

/// Reports a warning about a whole file.
void warn(const std::string& file, std::string_view key, std::string message);

/// Opens a document file to read from it, and warns when it needs an upgrade. Raises a
/// DocumentError.
[[nodiscard]] KEPVar<host::Document> openDocumentFile(const std::string& path);

/// The error of a file as a whole.
[[nodiscard]] host::Diagnostic fileDiagnostic(const std::string& file, const std::string& message);

/// The error of a document file that is refused.
[[nodiscard]] host::Diagnostic documentDiagnostic(const host::DocumentError& error);

/// The error for which the table at `path` is refused; nothing when it passes the reader's check.
[[nodiscard]] std::optional<host::Diagnostic> tableRefusal(const std::string& path);

/// Reports why a table is refused: to the standard error, or as a document on the standard output.
[[nodiscard]] ExitStatus refuseTable(const host::Diagnostic& refusal, OutputFormat format);

/// Loads a table into a document. Raises a Refusal when it cannot be loaded.
void loadTable(host::Document& document, const std::string& path);
