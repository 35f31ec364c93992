#include "tools/ppword/Progress.h"

#include <unistd.h>

#include <algorithm>
#include <variant>

#include "tools/ppword/StandardStreams.h"

namespace {

constexpr long kBetweenLooks = 1000;
constexpr std::chrono::milliseconds kPause{200};

}  // namespace

bool showsProgress(OutputFormat format) {
  return format == OutputFormat::ForPeople && isatty(STDERR_FILENO) == 1;
}

void ProgressLine::show(const std::string& text) {
  // A shorter text leaves nothing of the one before.
  const std::string rest(width_ > text.size() ? width_ - text.size() : 0, ' ');
  writeMessage('\r' + text + rest);
  width_ = text.size();
  due_ = Clock::now() + kPause;
}

void ProgressLine::clear() {
  if (width_ > 0) writeMessage('\r' + std::string(width_, ' ') + '\r');
  width_ = 0;
}

bool Progress::next(host::ToolPathEvent& event) {
  if (!source_.next(event)) return false;
  if (const auto* const element = std::get_if<host::Element>(&event)) {
    count_ += static_cast<long>(std::max<std::size_t>(element->positions.size(), 1));
  }
  if (shown_ && count_ >= nextLook_) {
    nextLook_ = count_ + kBetweenLooks;
    if (line_.isDue()) line_.show(std::to_string(count_) + " elements read");
  }
  return true;
}
