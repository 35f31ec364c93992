#pragma once

#include <memory>

#include "System/KEPString.h"
#include "language/table/ByteReading.h"
#include "language/table/TableSource.h"
#include "language/table/TableStream.h"

namespace ppword {

/// The table file of a reader as a source, for the time of one query. The position is that of the
/// stream, so that it outlives the query. Works on the reader's own three fields, which outlive it.
class FileSource final : public TableSource {
 public:
  FileSource(std::shared_ptr<TableStream>& stream, const KEPString& path, bool& isOpen)
      : stream_(stream), path_(path), isOpen_(isOpen) {}

  bool rewind() override;
  std::optional<std::string_view> nextToken() override;
  [[nodiscard]] bool tooLong() const override { return tooLong_; }
  std::optional<std::string_view> nextLine() override;
  long position() override;
  bool seek(long position) override;

 private:
  [[nodiscard]] std::FILE* file() const { return stream_ ? stream_->file() : nullptr; }

  /// The text that was read; nothing when there was none.
  [[nodiscard]] std::optional<std::string_view> buffered(std::size_t size) const;

  std::shared_ptr<TableStream>& stream_;
  const KEPString& path_;
  bool& isOpen_;
  bool tooLong_ = false;
  TextBuffer buffer_;
};

}  // namespace ppword
