#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "language/table/ByteReading.h"
#include "language/table/TableCursor.h"
#include "language/table/TableSource.h"

namespace ppword {

/// The bytes of a table, which outlive the source, as a source: for whoever asks much of a table
/// that does not change meanwhile.
class MemorySource final : public TableSource {
 public:
  /// After `most` bytes every read meets end of file.
  explicit MemorySource(std::string_view bytes,
                        std::size_t most = std::numeric_limits<std::size_t>::max())
      : bytes_(bytes), cursor_(bytes), left_(most) {}

  bool rewind() override;
  std::optional<std::string_view> nextToken() override;
  [[nodiscard]] bool tooLong() const override { return tooLong_; }
  std::optional<std::string_view> nextLine() override;
  long position() override { return static_cast<long>(cursor_.offset()); }
  bool seek(long position) override;

 private:
  /// What `read` reads, which counts as read.
  template <class Read>
  auto counted(Read read);

  std::string_view bytes_;
  TableCursor cursor_;
  std::size_t left_;
  bool tooLong_ = false;
  TextBuffer buffer_;
};

// Blocks that lack their end overlap, and commands may insert the same lines many times: a short
// table could take any time and memory. Other tables come nowhere near these bounds.

/// The most bytes that are read to load a table, and the most lines that it may load.
[[nodiscard]] constexpr std::size_t mostBytesOfLoad(std::string_view table) {
  constexpr std::size_t kMostReadings = 16;  // of the whole table
  constexpr std::size_t kMostBytesBeside = std::size_t{16} * 1024 * 1024;
  return kMostReadings * table.size() + kMostBytesBeside;
}
[[nodiscard]] constexpr std::size_t mostLinesOfLoad(std::string_view table) {
  return table.size() + 1'000'000;
}

/// The most bytes that a table may have to be read whole.
inline constexpr std::size_t kMostTableBytes = std::size_t{1} << 30U;

/// All bytes of the table at `path`. Nothing when it cannot be opened as the reader opens it, when
/// it cannot be read to its end, and when there are more than `most`.
[[nodiscard]] std::optional<std::string> tableBytes(const char* path,
                                                    std::size_t most = kMostTableBytes);

}  // namespace ppword
