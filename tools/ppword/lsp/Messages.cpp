#include "tools/ppword/lsp/Messages.h"

#include <exception>

namespace lsp {
namespace {

constexpr int kDeepest = 100;

struct TooDeep : std::exception {};

}  // namespace

std::optional<Json> parsed(const std::string& text) {
  const auto checkDepth = [](int depth, Json::parse_event_t, Json&) {
    if (depth > kDeepest) throw TooDeep();
    return true;
  };
  try {
    return Json::parse(text, checkDepth);
  } catch (const Json::exception&) {
    return std::nullopt;
  } catch (const TooDeep&) {
    return std::nullopt;
  }
}

std::string textOf(const Json& message, const char* member) {
  const auto found = message.find(member);
  return found != message.end() && found->is_string() ? found->get<std::string>() : "";
}

bool isId(const Json& id) { return id.is_string() || id.is_number_integer(); }

std::string_view mistakeOf(const Json& message) {
  if (!message.is_object() || textOf(message, "jsonrpc") != "2.0") {
    return "the message is not a request of JSON-RPC 2.0";
  }
  if (textOf(message, "method").empty()) return "the message has no method";
  const bool hasId = message.contains("id");
  return hasId && !isId(message["id"]) ? "the id is neither a text nor a whole number" : "";
}

bool isAnswer(const Json& message) {
  return message.is_object() && !message.contains("method") &&
         (message.contains("result") || message.contains("error"));
}

}  // namespace lsp
