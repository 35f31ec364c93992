#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "inspect/explain/TableOrigins.h"
#include "post/generator/Generator.h"
#include "post/output/FileMark.h"
#include "post/output/HeldLines.h"
#include "post/output/LineSink.h"
#include "post/output/OutputFile.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/ToolPathInput.h"

/// The layout of maps that this program writes and reads.
inline constexpr int kMapVersion = 1;

/// Where a line of an instruction comes from: its place in the table of the run, otherwise
/// "document" or "catalogue".
[[nodiscard]] Json originJson(const std::optional<host::TableBytes::Place>& place,
                              const ToolPathInput& input);

/// The map of a text: a header with what the text was written from, and a record for each line with
/// the element and the line of the table that it comes from. The generator writes through it.
class PostMap final : public host::ElementObserver, public host::LineSink {
 public:
  /// `text` is where the lines go on to. An OutputError reports a map that cannot be written. The
  /// references must outlive the map.
  PostMap(const PostOptions& options, const ToolPathInput& input, host::TableOrigins& origins,
          host::LineSink& text);

  void elementBegins(const host::WrittenElement& written) override;
  /// Writes a line of the text, and the record of each line that it is when line feeds are in it.
  void write(std::string_view line) override;

  /// Puts the map in its place, after the text. Without it the place stays as it was.
  void finish();
  [[nodiscard]] const host::OutputFile& file() const noexcept { return file_; }

 private:
  void addRecord();
  [[nodiscard]] Json header() const;

  const PostOptions& options_;
  const ToolPathInput& input_;
  host::TableOrigins& origins_;
  host::LineSink& text_;
  host::OutputFile file_;
  /// The records wait for the header, which has the mark of the whole text.
  host::HeldLines records_;
  host::FileMark mark_;
  long lines_ = 0;
  /// How many elements began, one for each point, and how many lines of the last one were written.
  long elements_ = 0;
  long linesOfElement_ = 0;
  /// Of the last element.
  Json element_;
  std::string instruction_;
  int sequence_ = 1;
};
