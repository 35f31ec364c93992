#pragma once

#include <cstdio>

namespace ppword {

/// The slot of an open table file, shared by the readers that are copies of each other. It owns
/// the stream, which may be absent.
class TableStream {
 public:
  TableStream() = default;
  TableStream(const TableStream&) = delete;
  TableStream& operator=(const TableStream&) = delete;
  ~TableStream();

  /// Opens the table at `path` in place of an absent stream. False, and absent as before, when it
  /// cannot be opened or read, or is a device without end.
  [[nodiscard]] bool open(const char* path);

  /// Closes the stream, which is absent afterwards in every case. An absent one closes well.
  bool close();

  /// The stream, null while it is absent.
  [[nodiscard]] std::FILE* file() const noexcept { return file_; }

 private:
  std::FILE* file_ = nullptr;
};

}  // namespace ppword
