#include "tools/ppword/Progress.h"

#include <algorithm>
#include <string>
#include <variant>

#include "tools/ppword/StandardStreams.h"

namespace {

constexpr long kBetweenLooks = 1000;
constexpr std::chrono::milliseconds kPause{200};

}  // namespace

Progress::~Progress() {
  if (width_ > 0) writeMessage('\r' + std::string(width_, ' ') + '\r');
}

bool Progress::next(host::ToolPathEvent& event) {
  if (!source_.next(event)) return false;
  if (const auto* const element = std::get_if<host::Element>(&event)) {
    count_ += static_cast<long>(std::max<std::size_t>(element->positions.size(), 1));
  }
  if (shown_ && count_ >= nextLook_) show();
  return true;
}

void Progress::show() {
  nextLook_ = count_ + kBetweenLooks;
  if (Clock::now() < due_) return;
  const std::string text = std::to_string(count_) + " elements read";
  writeMessage('\r' + text);
  width_ = text.size();
  due_ = Clock::now() + kPause;
}
