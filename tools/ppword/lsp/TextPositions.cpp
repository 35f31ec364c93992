#include "tools/ppword/lsp/TextPositions.h"

#include <algorithm>

#include "post/text/Utf8.h"

namespace lsp {

void TextPositions::rewind() noexcept {
  line_ = lineBegin_ = at_ = character_ = 0;
  lineFeed_.reset();
  lineEnd_.reset();
}

/// Where the line ends, without its line end.
std::size_t TextPositions::contentEnd() {
  if (lineEnd_) return *lineEnd_;
  if (!lineFeed_ || *lineFeed_ < lineBegin_) {
    lineFeed_ = std::min(text_.find('\n', lineBegin_), text_.size());
  }
  const std::string_view line = text_.substr(lineBegin_, *lineFeed_ - lineBegin_);
  lineEnd_ = lineBegin_ + std::min(line.find('\r'), line.size());
  return *lineEnd_;
}

/// Where the next line begins; the end of the text when there is none.
std::size_t TextPositions::nextLine() {
  const std::size_t end = contentEnd();
  const bool isPair = text_.substr(end).starts_with("\r\n");
  return std::min(end + (isPair ? 2 : 1), text_.size());
}

/// False, and nothing happens, in the last line.
bool TextPositions::toNextLine() {
  if (contentEnd() == text_.size()) return false;
  lineBegin_ = at_ = nextLine();
  character_ = 0;
  lineEnd_.reset();
  ++line_;
  return true;
}

std::size_t TextPositions::sizeAt(std::size_t offset) const {
  return encoding_ == Encoding::Utf8 ? 1
                                     : std::max<std::size_t>(host::utf8Length(text_, offset), 1);
}

std::size_t TextPositions::unitsAt(std::size_t offset) const {
  return encoding_ == Encoding::Utf16 && sizeAt(offset) == 4 ? 2 : 1;
}

Position TextPositions::at(std::size_t offset) {
  offset = std::min(offset, text_.size());
  if (offset < lineBegin_) rewind();
  while (contentEnd() < offset && nextLine() <= offset && toNextLine()) continue;
  stepTo(std::min(offset, contentEnd()));
  return {line_, character_};
}

/// Goes to an offset of the line, or to the character that it is in.
void TextPositions::stepTo(std::size_t offset) {
  if (offset - lineBegin_ < at_ - std::min(at_, offset)) {
    at_ = lineBegin_;
    character_ = 0;
  }
  while (at_ > offset) stepBack();
  while (at_ < offset && at_ + sizeAt(at_) <= offset) {
    character_ += unitsAt(at_);
    at_ += sizeAt(at_);
  }
}

void TextPositions::stepBack() {
  --at_;
  while (encoding_ != Encoding::Utf8 && at_ > lineBegin_ && (text_[at_] & 0xC0) == 0x80) --at_;
  character_ -= unitsAt(at_);
}

std::size_t TextPositions::offsetOf(Position position) {
  if (position.line < line_) rewind();
  while (line_ < position.line) {
    if (!toNextLine()) return text_.size();
  }
  stepToCharacter(position.character);
  return at_;
}

void TextPositions::stepToCharacter(std::size_t character) {
  if (character < character_) {
    at_ = lineBegin_;
    character_ = 0;
  }
  const std::size_t end = contentEnd();
  while (at_ < end && character_ + unitsAt(at_) <= character) {
    character_ += unitsAt(at_);
    at_ += sizeAt(at_);
  }
}

}  // namespace lsp
