#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "post/output/LineSink.h"

namespace host {

class FileBeside;

/// Output that could not be written: the file and the operating system's reason.
class OutputError : public std::runtime_error {
 public:
  OutputError(std::string_view file, std::string_view reason);
  ~OutputError() override;

  [[nodiscard]] const std::string& file() const noexcept { return file_; }
  [[nodiscard]] const std::string& reason() const noexcept { return reason_; }

 private:
  std::string file_;
  std::string reason_;
};

/// A text file that appears whole or not at all: it is written to a temporary file in the same
/// folder and renamed when it is finished. Until then, and after a failure, an older file is
/// unchanged. A file that is replaced keeps its permissions and, where the system allows, its owner
/// and its group. Devices, pipes and the standard
/// output are written directly. Every failure raises an OutputError. The process must ignore
/// SIGPIPE and SIGXFSZ, which would end it before the error is seen.
class OutputFile final : public LineSink {
 public:
  /// What becomes of a file that no one, or not this user, may write.
  enum class Protected { Refused, Replaced };

  /// Opens the output; "-" is the standard output, to which nothing else may write meanwhile.
  explicit OutputFile(const std::string& path, Protected writeProtected = Protected::Refused);
  /// Removes what was written if it is not finished.
  ~OutputFile() override;

  /// Writes the line unchanged, and a line feed after it.
  void write(std::string_view line) override;

  /// True for a file that appears whole; false for what is written directly.
  [[nodiscard]] bool isBeside() const noexcept { return temporary_ != nullptr; }
  /// Reads back what was written, from the file itself: at most `most` bytes from `offset` on, to
  /// `to`. Returns how many; 0 at the end. Only for a file that isBeside and is not finished.
  [[nodiscard]] std::size_t readBack(char* to, std::size_t most, std::uint64_t offset);

  /// Ends the text; nothing can be written afterwards.
  void complete();
  /// Makes sure that everything is on the disk, and renames the file. Nothing can be written
  /// afterwards.
  void finish();
  /// Finishes several files: they are synchronised, then all are renamed, then each folder is
  /// synchronised once. Returns the OutputError of each, null for a file that is in its place.
  [[nodiscard]] static std::vector<std::exception_ptr> finishTogether(
      const std::vector<OutputFile*>& files);

  /// Of a finished file: why a power failure may undo that it is in its place; empty when nothing
  /// is known against it.
  [[nodiscard]] const std::string& doubt() const noexcept { return doubt_; }
  /// The name in messages.
  [[nodiscard]] const std::string& name() const noexcept { return name_; }

 private:
  /// Closes and raises the OutputError of the last system call unless it succeeded.
  void require(bool success);
  void close() noexcept;
  void openBeside();
  void flush();
  void synchroniseText();
  void takeName();
  /// Synchronises the folder of the file, which has its name.
  void confirm();
  /// By folder: what is known against the files that have their names there.
  using DoubtOfFolders = std::map<std::string, std::string>;
  /// Synchronises each folder only once.
  void confirmWith(DoubtOfFolders& doubts);

  std::string name_;
  std::string target_;
  /// Null for output that is written directly.
  std::unique_ptr<FileBeside> temporary_;
  int descriptor_ = -1;
  std::string buffer_;
  std::string doubt_;
};

}  // namespace host
