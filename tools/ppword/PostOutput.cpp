#include "tools/ppword/PostOutput.h"

#include <sys/stat.h>

#include "post/output/SameFile.h"

namespace {

// What the text is written to: "-" also for a path that leads to the file that the standard output
// goes to, which others write too and which is not to be replaced.
std::string placeOf(const std::string& output) {
  return output.empty() || host::isSameFile(output, "/dev/stdout") ? "-" : output;
}

// True for what others can read while it is written.
bool isDirect(const std::string& place) {
  struct stat state {};
  return place == "-" || (stat(place.c_str(), &state) == 0 && !S_ISREG(state.st_mode));
}

}  // namespace

PostOutput::PostOutput(const std::string& output, bool strict,
                       host::OutputFile::Protected writeProtected)
    : file_(placeOf(output), writeProtected) {
  if (strict && isDirect(placeOf(output))) held_ = std::make_unique<host::HeldLines>();
}

PostOutput::~PostOutput() = default;

host::LineSink& PostOutput::lines() {
  if (held_) return *held_;
  return file_;
}

void PostOutput::complete() {
  if (held_) held_->release(file_);
  held_.reset();
  file_.complete();
}

void PostOutput::finish() {
  complete();
  file_.finish();
}
