#include "post/job/JobPlace.h"

#include <algorithm>

#include "System/KEPString.h"
#include "post/text/Utf8.h"
#include "post/toolpath/LineReader.h"

namespace host::job {
namespace {

constexpr std::size_t kLongestShown = 40;
constexpr std::string_view kWhiteSpace = " \t\r\n";

bool isName(std::string_view key) {
  const auto inName = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
  };
  return !key.empty() && key.size() <= kLongestShown && std::all_of(key.begin(), key.end(), inName);
}

/// Why a line is not a JSON object, and where that shows.
struct Flaw {
  const char* at;
  std::string_view why;
};

const char* firstBadByte(std::string_view text) {
  std::size_t at = 0;
  for (std::size_t length = 1; at < text.size() && length != 0; at += length) {
    length = utf8Length(text, at);
    if (length == 0) break;
  }
  return at < text.size() ? text.data() + at : nullptr;
}

/// Follows texts and brackets through a line.
class Outline {
 public:
  explicit Outline(std::string_view text) : text_(text) {
    for (const char& c : text) {
      if (control_ != nullptr) return;
      quote_ != nullptr ? inText(c) : outside(c);
    }
  }

  [[nodiscard]] Flaw flaw() const {
    const char* const end = text_.data() + text_.size();
    if (control_ != nullptr) return {control_, "a text must not contain a control character"};
    if (stray_ != nullptr) return {stray_, "unexpected \"\\\" outside of a text"};
    if (quote_ != nullptr) return {quote_, "the text is not closed; is the line cut short?"};
    if (depth_ > 0) return {end, "a bracket is not closed; is the line cut short?"};
    if (after_ != nullptr) return {after_, "unexpected text after the object"};
    return {nullptr, {}};
  }

 private:
  void inText(const char& c) {
    if (static_cast<unsigned char>(c) < 0x20) control_ = &c;
    if (escaped_) {
      escaped_ = false;
    } else if (c == '\\') {
      escaped_ = true;
    } else if (c == '"') {
      quote_ = nullptr;
    }
  }

  void outside(const char& c) {
    if (kWhiteSpace.find(c) != std::string_view::npos) return;
    if (closed_ && after_ == nullptr) after_ = &c;
    if (c == '\\' && stray_ == nullptr) stray_ = &c;
    if (c == '"') quote_ = &c;
    if (c == '{' || c == '[') ++depth_;
    if (c == '}' || c == ']') closed_ = --depth_ <= 0;
  }

  std::string_view text_;
  const char* control_ = nullptr;
  const char* quote_ = nullptr;
  const char* after_ = nullptr;
  const char* stray_ = nullptr;
  long depth_ = 0;
  bool escaped_ = false;
  bool closed_ = false;
};

/// Where the parser stopped; the begin of the line if that is unknown.
const char* stopped(Line& line) {
  const char* at = nullptr;
  if (!line.parsed) return line.text.data();
  if (line.document.current_location().get(at) != simdjson::SUCCESS) return line.text.data();
  const bool inside = at >= line.text.data() && at < line.text.data() + line.text.size();
  return inside ? at : line.text.data();
}

Flaw flawOf(Line& line) {
  if (const char* bad = firstBadByte(line.text)) return {bad, "this byte is not valid UTF-8"};
  if (const Flaw flaw = Outline(line.text).flaw(); flaw.at != nullptr) return flaw;
  return {stopped(line),
          "invalid JSON: a comma, a colon, a quote or a bracket is missing or unexpected"};
}

}  // namespace

std::string Place::path() const {
  if (parent_ == nullptr) return "$";
  std::string path = parent_->path();
  if (key_.data() == nullptr) return path.append("[").append(std::to_string(index_)).append("]");
  if (isName(key_)) return path.append(".").append(key_);
  return path.append("[\"").append(shown(key_)).append("\"]");
}

void Place::refuse(const char* at, std::string_view why) const {
  throw InputError(line_->file, line_->number, column(at), path().append(": ").append(why));
}

void Place::refuseStructure() const {
  const Flaw flaw = flawOf(*line_);
  refuse(flaw.at, flaw.why);
}

std::string shown(std::string_view token) {
  token = token.substr(0, token.find_last_not_of(kWhiteSpace) + 1);
  if (token.size() <= kLongestShown) return std::string(token);
  std::size_t end = kLongestShown;
  while (end > 0 && !KEPUnicodeString::StartsCharacter(token[end])) --end;
  return std::string(token.substr(0, end)) + "...";
}

}  // namespace host::job
