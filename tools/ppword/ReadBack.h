#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"
#include "post/generator/Generator.h"
#include "post/output/OutputFile.h"
#include "post/toolpath/ToolPath.h"
#include "tools/ppword/ReaderWords.h"
#include "tools/ppword/ToolPathInput.h"
#include "verify/Comparison.h"
#include "verify/StatementReader.h"

/// Writes the text of a tool path and reads it back from its file, which is not finished yet: after
/// some elements were written, their statements are compared with them. So the tool path is read
/// once, and a group of elements is in memory.
class ReadBack {
 public:
  /// `file` receives the lines of the text. `profile`: what they are written with, null for none;
  /// it raises an InputError for words of it that mean nothing. The references must outlive the
  /// object.
  ReadBack(ToolPathInput& input, host::OutputFile& file, const host::ConsumerProfile* profile);

  /// Writes the whole tool path, and compares its text up to the first difference. Raises what the
  /// generator and the file raise.
  void run(host::Generator& generator, host::ToolPathReader& events);

  [[nodiscard]] const verify::Comparison& comparison() const noexcept { return comparison_; }
  /// Both places of the difference; nothing where there is none.
  [[nodiscard]] std::vector<host::Diagnostic> places() const;

 private:
  [[nodiscard]] host::ToolPathEvent& place();
  /// Compares the elements that were written, without the last `left` ones.
  void compareAllBut(std::size_t left);

  ToolPathInput& input_;
  host::OutputFile& file_;
  std::uint64_t offset_ = 0;
  std::shared_ptr<const ReaderWords> words_;
  verify::StatementReader reader_;
  verify::Comparison comparison_;
  /// The first `count_` were written and not yet compared.
  std::vector<host::ToolPathEvent> events_;
  std::size_t count_ = 0;
  std::size_t points_ = 0;
};

/// Notes the calls for coolant of which the text has no line.
void noteCoolant(const host::ListingReader& listing, verify::Comparison& comparison);

/// Raises the InputError of an element whose instruction the document does not have. `input` names
/// the tool path.
[[noreturn]] void refuseInstruction(const verify::UnknownInstruction& unknown,
                                    const std::string& input);
