#pragma once

#include <memory>
#include <optional>
#include <string>

#include "post/output/HeldLines.h"
#include "post/output/LineSink.h"
#include "post/output/OutputFile.h"

/// What becomes of a write-protected output.
[[nodiscard]] inline host::OutputFile::Protected protectionOf(bool force) {
  using enum host::OutputFile::Protected;
  return force ? Replaced : Refused;
}

/// The output file or standard output of a post run. An OutputError reports what cannot be written.
class PostOutput {
 public:
  /// Empty for the standard output. A strict run holds back until the end what cannot be taken
  /// back.
  PostOutput(const std::string& output, bool strict, host::OutputFile::Protected writeProtected);
  ~PostOutput();
  PostOutput(const PostOutput&) = delete;
  PostOutput& operator=(const PostOutput&) = delete;

  [[nodiscard]] host::LineSink& lines();

  /// Ends the text, which then waits for OutputFile::finishTogether.
  void complete();
  /// Puts the text in its place. Without it the place stays as it was.
  void finish();
  [[nodiscard]] host::OutputFile& file() noexcept { return file_; }
  [[nodiscard]] const host::OutputFile& file() const noexcept { return file_; }

 private:
  host::OutputFile file_;
  std::unique_ptr<host::HeldLines> held_;
};
