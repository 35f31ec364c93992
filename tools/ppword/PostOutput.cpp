#include "tools/ppword/PostOutput.h"

#include <sys/stat.h>

#include <filesystem>

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

bool isSameFile(const std::string& left, const std::string& right) {
  struct stat leftState {};
  struct stat rightState {};
  return isRegularFile(left) && stat(left.c_str(), &leftState) == 0 &&
         stat(right.c_str(), &rightState) == 0 && leftState.st_dev == rightState.st_dev &&
         leftState.st_ino == rightState.st_ino;
}

bool isSamePlace(const std::string& left, const std::string& right) {
  const auto place = [](const std::string& path) {
    std::error_code error;
    return std::filesystem::weakly_canonical(std::filesystem::absolute(path, error), error);
  };
  return isSameFile(left, right) || (!place(left).empty() && place(left) == place(right));
}

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
