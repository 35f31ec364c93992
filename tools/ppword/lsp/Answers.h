#pragma once

#include <string>

#include "tools/ppword/lsp/Messages.h"
#include "tools/ppword/lsp/OpenTable.h"

namespace lsp {

/// What a request asks about: an open table, how the client counts, and what the client can show.
struct Question {
  OpenTable& table;
  const std::string& uri;
  const Json& params;
  Encoding encoding;
  bool showsHierarchy;
};

/// Parameters of a request or notification that are not what they must be.
struct InvalidParameters {
  std::string message;
};

// The results of requests. Each raises InvalidParameters, or the exception of the JSON library, for
// parameters that it cannot use.
[[nodiscard]] Json answerCompletion(const Question& question);
[[nodiscard]] Json answerHover(const Question& question);
[[nodiscard]] Json answerDefinition(const Question& question);
[[nodiscard]] Json answerReferences(const Question& question);
[[nodiscard]] Json answerSymbols(const Question& question);
[[nodiscard]] Json answerActions(const Question& question);

/// A position of a client: both numbers are at least 0.
[[nodiscard]] Position positionOf(const Json& position);

/// The findings of a table, those after the first 5000 only counted.
[[nodiscard]] Json diagnosticsOf(OpenTable& table, Encoding encoding);

}  // namespace lsp
