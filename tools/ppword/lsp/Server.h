#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <optional>
#include <string>

#include "tools/ppword/Commands.h"
#include "tools/ppword/lsp/Answers.h"
#include "tools/ppword/lsp/MessageReader.h"

namespace lsp {

/// A language server for tables on the standard streams. Messages are answered one after the other;
/// those that wait are read first, so that a request can be cancelled, and tables are checked when
/// no message waits.
class Server {
 public:
  /// Works until the client ends it. Done after shutdown and exit, Refused after any other end,
  /// NotWritten when nothing can be written.
  [[nodiscard]] ExitStatus run();

 private:
  /// A message that was read; nothing for one that is not JSON.
  struct Waiting {
    std::optional<Json> message;
    std::size_t size;
    bool isCancelled = false;
  };

  [[nodiscard]] bool work();
  void readAhead();
  void takeMessages();
  void cancel(const Json& message);
  [[nodiscard]] ExitStatus endEarly();

  void handle(const Waiting& waiting);
  void handleRequest(const Json& id, const std::string& method, const Json& params);
  void answerRequest(const Json& id, const std::string& method, const Json& params);
  void handleNotification(const Json& notification);
  [[nodiscard]] Json resultOf(const std::string& method, const Json& params);
  [[nodiscard]] Question questionOf(const Json& params);
  [[nodiscard]] Json initialize(const Json& params);

  void notify(const std::string& method, const Json& params);
  void open(const Json& params);
  void change(const Json& params);
  void applyChange(OpenTable& table, const Json& change) const;
  void save(const Json& params);
  void close(const Json& params);

  [[nodiscard]] bool publishNext();
  void publish(const std::string& uri, const Json& version, Json diagnostics);
  void answer(const Json& id, Json result);
  void refuse(const Json& id, int code, const std::string& message);
  void send(const Json& message);

  enum class State { Started, Initialized, ShutDown, Exited };

  MessageReader reader_;
  std::deque<Waiting> waiting_;
  std::size_t waitingBytes_ = 0;
  State state_ = State::Started;
  bool wasShutDown_ = false;
  bool canWrite_ = true;
  Encoding encoding_ = Encoding::Utf16;
  bool showsHierarchy_ = false;
  std::map<std::string, OpenTable> tables_;
};

}  // namespace lsp
