#include "post/program/ScratchFolder.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

#include "host/system/SystemReason.h"
#include "post/output/OutputFile.h"

namespace host {

SignalHold::SignalHold() {
  sigemptyset(&held_);
  for (const int signal : {SIGHUP, SIGINT, SIGTERM, SIGQUIT}) sigaddset(&held_, signal);
  sigprocmask(SIG_BLOCK, &held_, &before_);
}

SignalHold::~SignalHold() { sigprocmask(SIG_SETMASK, &before_, nullptr); }

ScratchFolder::ScratchFolder() {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  std::string name =
      ((error ? "/tmp" : std::filesystem::absolute(folder)) / "ppword.XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw OutputError("scratch folder", systemReason(errno));
  path_ = name;
}

ScratchFolder::~ScratchFolder() {
  std::error_code error;
  std::filesystem::remove_all(path_, error);
}

}  // namespace host
