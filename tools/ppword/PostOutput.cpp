#include "tools/ppword/PostOutput.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <string_view>

#include "host/system/FilePlace.h"

namespace {

bool isRegularFile(const std::string& path) {
  struct stat state {};
  return stat(path.c_str(), &state) == 0 && S_ISREG(state.st_mode);
}

// What the text is written to: "-" also for a path that leads to the file that the standard output
// goes to, which others write too and which is not to be replaced.
std::string placeOf(const std::string& output) {
  return output.empty() || isSameFile(output, "/dev/stdout") ? "-" : output;
}

// True for what others can read while it is written.
bool isDirect(const std::string& place) {
  struct stat state {};
  return place == "-" || (stat(place.c_str(), &state) == 0 && !S_ISREG(state.st_mode));
}

}  // namespace

// Lines that are held back in a nameless file until they may go on.
class PostOutput::HeldLines final : public host::LineSink {
 public:
  HeldLines() : file_(std::tmpfile()) { require(file_ != nullptr); }

  void write(std::string_view line) override {
    require(std::fwrite(line.data(), 1, line.size(), file_.get()) == line.size());
    require(std::putc('\n', file_.get()) != EOF);
  }

  void release(host::LineSink& sink) {
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

 private:
  struct Close {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
  };

  static void require(bool success) {
    if (!success) throw host::OutputError("temporary file", host::systemReason(errno));
  }

  std::unique_ptr<std::FILE, Close> file_;
};

bool isSameFile(const std::string& left, const std::string& right) {
  struct stat leftState {};
  struct stat rightState {};
  return isRegularFile(left) && stat(left.c_str(), &leftState) == 0 &&
         stat(right.c_str(), &rightState) == 0 && leftState.st_dev == rightState.st_dev &&
         leftState.st_ino == rightState.st_ino;
}

PostOutput::PostOutput(const std::string& output, bool strict) : file_(placeOf(output)) {
  if (strict && isDirect(placeOf(output))) held_ = std::make_unique<HeldLines>();
}

PostOutput::~PostOutput() = default;

host::LineSink& PostOutput::lines() {
  if (held_) return *held_;
  return file_;
}

void PostOutput::finish() {
  if (held_) held_->release(file_);
  file_.finish();
}
