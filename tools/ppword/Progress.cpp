#include "tools/ppword/Progress.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/ToolPathInput.h"

namespace {

constexpr std::chrono::seconds kQuiet{1};
constexpr std::chrono::milliseconds kPause{200};
constexpr long kElementsBetweenLooks = 1000;

// "12 s", "3 min", "2 h 5 min".
std::string durationText(double seconds) {
  constexpr double kMost = 1e9;
  constexpr long kMinute = 60;
  const long whole = std::lround(std::min(seconds, kMost));
  if (whole < kMinute) return std::to_string(whole) + " s";
  const long minutes = (whole + kMinute / 2) / kMinute;
  if (minutes < kMinute) return std::to_string(minutes) + " min";
  return std::to_string(minutes / kMinute) + " h " + std::to_string(minutes % kMinute) + " min";
}

}  // namespace

bool showsProgress(OutputFormat format) {
  return format == OutputFormat::ForPeople && isatty(STDERR_FILENO) == 1;
}

std::string progressText(std::string_view what, long count, std::optional<double> share,
                         std::chrono::duration<double> elapsed) {
  constexpr double kLeast = 0.01;
  constexpr double kPercent = 100.0;
  const double seconds = std::max(elapsed.count(), kLeast);
  std::string text;
  if (share) text = std::to_string(std::lround(std::floor(*share * kPercent))) + " %, ";
  text += std::to_string(count) + ' ' + std::string(what) + ", ";
  text += std::to_string(std::lround(static_cast<double>(count) / seconds)) + " a second";
  if (!share || *share < kLeast) return text;
  return text + ", " + durationText(seconds * (1.0 - *share) / *share) + " left";
}

Progress::Progress(std::string_view what, long betweenLooks, Share share, bool shown)
    : what_(what),
      betweenLooks_(betweenLooks),
      share_(std::move(share)),
      shown_(shown),
      due_(start_ + kQuiet) {}

void Progress::look() {
  nextLook_ = count_ + betweenLooks_;
  const auto now = Clock::now();
  if (now < due_) return;
  due_ = now + kPause;
  const std::string text = progressText(what_, count_, share_(), now - start_);
  // A shorter text leaves nothing of the one before.
  const std::string rest(width_ > text.size() ? width_ - text.size() : 0, ' ');
  writeMessage('\r' + text + rest);
  width_ = text.size();
}

void Progress::clear() {
  if (width_ > 0) writeMessage('\r' + std::string(width_, ' ') + '\r');
  width_ = 0;
}

CountedEvents::CountedEvents(ToolPathInput& input, bool shown)
    : source_(input.events()),
      progress_(
          "elements", kElementsBetweenLooks, [&input] { return input.share(); }, shown) {}

bool CountedEvents::next(host::ToolPathEvent& event) {
  if (!source_.next(event)) return false;
  if (const auto* const element = std::get_if<host::Element>(&event)) {
    progress_.add(static_cast<long>(std::max<std::size_t>(element->positions.size(), 1)));
  }
  return true;
}
