#include "post/output/HeldLines.h"

#include <array>
#include <cerrno>
#include <string>

#include "host/system/SystemReason.h"
#include "post/output/OutputFile.h"

namespace host {
namespace {

void require(bool success) {
  if (!success) throw OutputError("temporary file", systemReason(errno));
}

/// Passes on the lines that end in `piece`, of which the first begins with `line`; what is after
/// them is the beginning of the next line.
void passOn(std::string_view piece, std::string& line, LineSink& sink) {
  for (auto end = piece.find('\n'); end != piece.npos; end = piece.find('\n')) {
    sink.write(line += piece.substr(0, end));
    line.clear();
    piece.remove_prefix(end + 1);
  }
  line += piece;
}

}  // namespace

HeldLines::HeldLines() : file_(std::tmpfile()) { require(file_ != nullptr); }

void HeldLines::write(std::string_view line) {
  require(std::fwrite(line.data(), 1, line.size(), file_.get()) == line.size());
  require(std::putc('\n', file_.get()) != EOF);
}

void HeldLines::release(LineSink& sink) {
  require(std::fseek(file_.get(), 0, SEEK_SET) == 0);
  std::string line;
  std::array<char, 65536> piece;
  while (const std::size_t size = std::fread(piece.data(), 1, piece.size(), file_.get())) {
    passOn({piece.data(), size}, line, sink);
  }
  require(std::ferror(file_.get()) == 0);
}

}  // namespace host
