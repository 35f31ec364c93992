#include "post/output/HeldLines.h"

#include <cerrno>
#include <string>

#include "host/system/FilePlace.h"
#include "post/output/OutputFile.h"

namespace host {
namespace {

void require(bool success) {
  if (!success) throw OutputError("temporary file", systemReason(errno));
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
  for (int byte = std::getc(file_.get()); byte != EOF; byte = std::getc(file_.get())) {
    if (byte != '\n') {
      line += static_cast<char>(byte);
      continue;
    }
    sink.write(line);
    line.clear();
  }
  require(std::ferror(file_.get()) == 0);
}

}  // namespace host
