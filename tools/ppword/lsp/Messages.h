#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "tools/ppword/lsp/TextPositions.h"

namespace lsp {

/// In contrast to the JSON of other commands its members have no order: looking one up in a message
/// does not take longer with the number of members.
using Json = nlohmann::json;

// The errors of the protocol.
inline constexpr int kParseError = -32700;
inline constexpr int kInvalidRequest = -32600;
inline constexpr int kMethodNotFound = -32601;
inline constexpr int kInvalidParams = -32602;
inline constexpr int kInternalError = -32603;
inline constexpr int kNotInitialized = -32002;
inline constexpr int kCancelled = -32800;

/// Nothing for a text that is not JSON, or that is nested more than 100 deep.
[[nodiscard]] std::optional<Json> parsed(const std::string& text);

/// A member that is a text; empty when there is none.
[[nodiscard]] std::string textOf(const Json& message, const char* member);

/// True for what can be the id of a request.
[[nodiscard]] bool isId(const Json& id);
/// True for the answer to a request of the server, which makes none.
[[nodiscard]] bool isAnswer(const Json& message);
/// What is wrong with a message that is not an answer; empty when nothing is.
[[nodiscard]] std::string_view mistakeOf(const Json& message);

/// The way of counting characters that a client and the server agree on.
struct AgreedEncoding {
  std::string_view name;
  Encoding encoding;
};
/// The first one that the client names and that is known; UTF-16 without one.
[[nodiscard]] AgreedEncoding agreedEncoding(const Json& capabilities);
/// What the server can do.
[[nodiscard]] Json capabilitiesOf(std::string_view encoding);

}  // namespace lsp
