#include "tools/ppword/Progress.h"

#include <string>

#include "tools/ppword/StandardStreams.h"

namespace {

constexpr long kBetweenLooks = 256;
constexpr std::chrono::milliseconds kPause{200};

}  // namespace

Progress::~Progress() {
  if (width_ > 0) writeMessage('\r' + std::string(width_, ' ') + '\r');
}

bool Progress::next(host::ToolPathEvent& event) {
  if (shown_ && ++count_ % kBetweenLooks == 0 && Clock::now() >= due_) show();
  return source_.next(event);
}

void Progress::show() {
  const std::string text = std::to_string(count_) + " elements read";
  writeMessage('\r' + text);
  width_ = text.size();
  due_ = Clock::now() + kPause;
}
