#include "tools/ppword/lsp/Server.h"

#include <array>
#include <exception>
#include <utility>

#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/lsp/Messages.h"

namespace lsp {
namespace {

constexpr std::size_t kMostWaiting = 1000;
struct MethodUnknown {};

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
  if (canWrite_ && state_ == State::Exited) {
    return wasShutDown_ ? ExitStatus::Done : ExitStatus::Refused;
  }
  return endEarly();
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

/// Says why the work ended before its time.
ExitStatus Server::endEarly() {
  const std::string& fault = reader_.fault();
  if (canWrite_ && !fault.empty()) refuse(nullptr, kParseError, fault);
  std::string why =
      reader_.hasRest() ? "the input ends in a message" : "the input ends before exit";
  if (!fault.empty()) why = fault;
  if (!canWrite_) why = "the output cannot be written";
  writeMessage("ppword lsp: error: " + why + '\n');
  return canWrite_ ? ExitStatus::Refused : ExitStatus::NotWritten;
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
  const auto [name, encoding] = agreedEncoding(capabilities);
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
