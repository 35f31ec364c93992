#include "tools/ppword/lsp/Server.h"

#include <array>
#include <exception>
#include <utility>

#include "tools/ppword/StandardStreams.h"

namespace lsp {
namespace {

// The errors of the protocol.
constexpr int kParseError = -32700;
constexpr int kInvalidRequest = -32600;
constexpr int kMethodNotFound = -32601;
constexpr int kInvalidParams = -32602;
constexpr int kInternalError = -32603;
constexpr int kNotInitialized = -32002;
constexpr int kCancelled = -32800;

constexpr std::size_t kMostWaiting = 1000;
constexpr int kDeepest = 100;

struct MethodUnknown {};
struct TooDeep : std::exception {};

/// Nothing for a text that is not JSON, or that is nested too deep.
std::optional<Json> parsed(const std::string& text) {
  const auto checkDepth = [](int depth, Json::parse_event_t, Json&) {
    if (depth > kDeepest) throw TooDeep();
    return true;
  };
  try {
    return Json::parse(text, checkDepth);
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

bool isId(const Json& id) { return id.is_string() || id.is_number_integer(); }

/// A member that is a text; empty when there is none.
std::string textOf(const Json& message, const char* member) {
  const auto found = message.find(member);
  return found != message.end() && found->is_string() ? found->get<std::string>() : "";
}

/// What is wrong with a message that is not an answer; empty when nothing is.
std::string_view mistakeOf(const Json& message) {
  if (!message.is_object() || textOf(message, "jsonrpc") != "2.0") {
    return "the message is not a request of JSON-RPC 2.0";
  }
  if (textOf(message, "method").empty()) return "the message has no method";
  const bool hasId = message.contains("id");
  return hasId && !isId(message["id"]) ? "the id is neither a text nor a whole number" : "";
}

/// True for the answer to a request of the server, which makes none.
bool isAnswer(const Json& message) {
  return message.is_object() && !message.contains("method") &&
         (message.contains("result") || message.contains("error"));
}

struct EncodingRow {
  std::string_view name;
  Encoding encoding;
};
constexpr std::array<EncodingRow, 3> kEncodings = {
    {{"utf-8", Encoding::Utf8}, {"utf-16", Encoding::Utf16}, {"utf-32", Encoding::Utf32}}};

/// The first one that the client names and that is known; UTF-16 without one.
EncodingRow chosenEncoding(const Json& capabilities) {
  const Json names = capabilities.value("/general/positionEncodings"_json_pointer, Json::array());
  for (const Json& name : names) {
    for (const EncodingRow& row : kEncodings) {
      if (name == std::string(row.name)) return row;
    }
  }
  return kEncodings[1];
}

Json capabilitiesOf(std::string_view encoding) {
  constexpr int kIncremental = 2;
  return {{"positionEncoding", std::string(encoding)},
          {"textDocumentSync", {{"openClose", true}, {"change", kIncremental}, {"save", true}}},
          {"completionProvider", {{"triggerCharacters", {"%", "&", "*"}}}},
          {"hoverProvider", true},
          {"definitionProvider", true},
          {"referencesProvider", true},
          {"documentSymbolProvider", true},
          {"codeActionProvider", {{"codeActionKinds", {"quickfix"}}}}};
}

std::string uriOf(const Json& params) {
  return params.at("textDocument").at("uri").get<std::string>();
}

struct RequestRow {
  std::string_view method;
  Json (*answer)(const Question& question);
};
constexpr std::array<RequestRow, 6> kRequests = {{{"textDocument/completion", answerCompletion},
                                                  {"textDocument/hover", answerHover},
                                                  {"textDocument/definition", answerDefinition},
                                                  {"textDocument/references", answerReferences},
                                                  {"textDocument/documentSymbol", answerSymbols},
                                                  {"textDocument/codeAction", answerActions}}};

}  // namespace

ExitStatus Server::run() {
  while (state_ != State::Exited && canWrite_) {
    if (work()) continue;
    if (reader_.isAtEnd() || !reader_.fault().empty()) break;
    static_cast<void>(reader_.fill(true));
  }
  if (!canWrite_) {
    writeMessage("ppword lsp: error: the output cannot be written\n");
    return ExitStatus::NotWritten;
  }
  if (state_ == State::Exited) return wasShutDown_ ? ExitStatus::Done : ExitStatus::Refused;
  if (!reader_.fault().empty()) refuse(nullptr, kParseError, reader_.fault());
  return endOfInput();
}

/// False when there is nothing to do.
bool Server::work() {
  readAhead();
  if (waiting_.empty()) return publishNext();
  const Waiting next = std::move(waiting_.front());
  waiting_.pop_front();
  waitingBytes_ -= next.size;
  handle(next);
  return true;
}

void Server::readAhead() {
  do {
    takeMessages();
  } while (waiting_.size() < kMostWaiting && waitingBytes_ < kMostBytes && reader_.fill(false));
}

void Server::takeMessages() {
  while (auto text = reader_.take()) {
    waiting_.push_back({parsed(*text), text->size()});
    waitingBytes_ += text->size();
    const auto& message = waiting_.back().message;
    if (message && message->is_object() && textOf(*message, "method") == "$/cancelRequest") {
      cancel(*message);
    }
  }
}

void Server::cancel(const Json& message) {
  const Json id = message.value("/params/id"_json_pointer, Json());
  if (!isId(id)) return;
  for (Waiting& waiting : waiting_) {
    const auto& other = waiting.message;
    if (other && other->is_object() && other->value("id", Json()) == id) waiting.isCancelled = true;
  }
}

ExitStatus Server::endOfInput() const {
  std::string why = reader_.fault();
  if (why.empty())
    why = reader_.hasRest() ? "the input ends in a message" : "the input ends before exit";
  writeMessage("ppword lsp: error: " + why + '\n');
  return ExitStatus::Refused;
}

void Server::handle(const Waiting& waiting) {
  if (!waiting.message) return refuse(nullptr, kParseError, "the message is not JSON");
  const Json& message = *waiting.message;
  if (isAnswer(message)) return;
  const std::string mistake(mistakeOf(message));
  if (!mistake.empty()) return refuse(nullptr, kInvalidRequest, mistake);
  if (!message.contains("id")) return handleNotification(message);
  if (waiting.isCancelled) return refuse(message["id"], kCancelled, "the request was cancelled");
  handleRequest(message["id"], textOf(message, "method"), message.value("params", Json::object()));
}

void Server::handleRequest(const Json& id, const std::string& method, const Json& params) {
  const bool isFirst = method == "initialize";
  if (state_ == State::Started && !isFirst) {
    return refuse(id, kNotInitialized, "the first request must be initialize");
  }
  if (state_ == State::ShutDown) return refuse(id, kInvalidRequest, "the server was shut down");
  if (state_ == State::Initialized && isFirst) {
    return refuse(id, kInvalidRequest, "the server is initialized");
  }
  answerRequest(id, method, params);
}

void Server::answerRequest(const Json& id, const std::string& method, const Json& params) {
  try {
    answer(id, resultOf(method, params));
  } catch (const MethodUnknown&) {
    refuse(id, kMethodNotFound, "there is no method '" + method + "'");
  } catch (const InvalidParameters& mistake) {
    refuse(id, kInvalidParams, mistake.message);
  } catch (const Json::exception&) {
    refuse(id, kInvalidParams, "the parameters lack a member, or one has the wrong type");
  } catch (const std::exception& error) {
    refuse(id, kInternalError, error.what());
  }
}

Json Server::resultOf(const std::string& method, const Json& params) {
  if (method == "initialize") return initialize(params);
  if (method == "shutdown") {
    state_ = State::ShutDown;
    wasShutDown_ = true;
    return nullptr;
  }
  for (const RequestRow& row : kRequests) {
    if (row.method == method) return row.answer(questionOf(params));
  }
  throw MethodUnknown();
}

Question Server::questionOf(const Json& params) {
  const auto table = tables_.find(uriOf(params));
  if (table == tables_.end()) throw InvalidParameters{"'" + uriOf(params) + "' is not open"};
  return {table->second, table->first, params, encoding_, showsHierarchy_};
}

Json Server::initialize(const Json& params) {
  const Json capabilities = params.value("capabilities", Json::object());
  const auto [name, encoding] = chosenEncoding(capabilities);
  const auto hierarchy =
      "/textDocument/documentSymbol/hierarchicalDocumentSymbolSupport"_json_pointer;
  encoding_ = encoding;
  showsHierarchy_ = capabilities.value(hierarchy, false);
  state_ = State::Initialized;
  return {{"capabilities", capabilitiesOf(name)},
          {"serverInfo", {{"name", "ppword"}, {"version", PPWORD_VERSION}}}};
}

void Server::handleNotification(const Json& notification) {
  const std::string method = textOf(notification, "method");
  if (method == "exit") state_ = State::Exited;
  if (state_ != State::Initialized) return;
  try {
    notify(method, notification.value("params", Json::object()));
  } catch (const InvalidParameters&) {
    // A notification has no answer.
  } catch (const Json::exception&) {
  }
}

void Server::notify(const std::string& method, const Json& params) {
  if (method == "textDocument/didOpen") open(params);
  if (method == "textDocument/didChange") change(params);
  if (method == "textDocument/didSave") save(params);
  if (method == "textDocument/didClose") close(params);
}

void Server::open(const Json& params) {
  const Json& document = params.at("textDocument");
  tables_.insert_or_assign(
      document.at("uri").get<std::string>(),
      OpenTable(document.at("text").get<std::string>(), document.value("version", 0)));
}

void Server::change(const Json& params) {
  const auto table = tables_.find(uriOf(params));
  if (table == tables_.end()) return;
  for (const Json& change : params.at("contentChanges")) applyChange(table->second, change);
  table->second.setVersion(params.at("textDocument").value("version", table->second.version()));
}

void Server::applyChange(OpenTable& table, const Json& change) const {
  const auto& text = change.at("text").get_ref<const std::string&>();
  if (!change.contains("range")) return table.replace(text);
  const Json& range = change["range"];
  TextPositions positions(table.text(), encoding_);
  const std::size_t begin = positions.offsetOf(positionOf(range.at("start")));
  table.edit(begin, positions.offsetOf(positionOf(range.at("end"))), text);
}

void Server::save(const Json& params) {
  const auto table = tables_.find(uriOf(params));
  if (table != tables_.end()) table->second.setUnpublished();
}

void Server::close(const Json& params) {
  const std::string uri = uriOf(params);
  if (tables_.erase(uri) > 0) publish(uri, nullptr, Json::array());
}

/// Checks one of the tables that changed; false when there is none.
bool Server::publishNext() {
  if (state_ != State::Initialized) return false;
  for (auto& [uri, table] : tables_) {
    if (!table.isUnpublished()) continue;
    table.setPublished();
    publish(uri, table.version(), diagnosticsOf(table, encoding_));
    return true;
  }
  return false;
}

void Server::publish(const std::string& uri, const Json& version, Json diagnostics) {
  Json params{{"uri", uri}, {"diagnostics", std::move(diagnostics)}};
  if (!version.is_null()) params["version"] = version;
  send({{"jsonrpc", "2.0"},
        {"method", "textDocument/publishDiagnostics"},
        {"params", std::move(params)}});
}

void Server::answer(const Json& id, Json result) {
  send({{"jsonrpc", "2.0"}, {"id", id}, {"result", std::move(result)}});
}

void Server::refuse(const Json& id, int code, const std::string& message) {
  send({{"jsonrpc", "2.0"}, {"id", id}, {"error", {{"code", code}, {"message", message}}}});
}

void Server::send(const Json& message) {
  canWrite_ =
      canWrite_ && writeMessageBytes(message.dump(-1, ' ', false, Json::error_handler_t::replace));
}

}  // namespace lsp

ExitStatus serveEditors(const LspOptions& /*options*/) { return lsp::Server().run(); }
