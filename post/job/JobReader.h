#pragma once

#include <memory>

#include "post/job/JobHeader.h"
#include "post/toolpath/LineReader.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// Reads a job: JSON Lines with a header first, then activities and tool-path elements in order,
/// and a line that ends it. Memory use does not depend on the length of the job. Anything that the
/// format does not allow raises an InputError with file, line, column and the path of the value.
class JobReader final : public ToolPathReader {
 public:
  /// Takes the lines of a job and reads its header.
  explicit JobReader(std::unique_ptr<LineReader> lines);
  ~JobReader() override;

  [[nodiscard]] const JobHeader& header() const noexcept;
  [[nodiscard]] bool next(ToolPathEvent& event) override;

 private:
  class Lines;

  /// Adds the unit of lengths to the parameters of an activity that does not state it.
  void stateUnit(ActivityStart& activity) const;

  std::unique_ptr<Lines> lines_;
  JobHeader header_;
};

}  // namespace host
