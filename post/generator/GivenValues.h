#pragma once

#include <string_view>

#include "post/generator/Summary.h"
#include "post/parameters/BufferValue.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// Follows which values a tool path has stated, and counts those that no machine can mean.
class GivenValues {
 public:
  explicit GivenValues(Tally& impossible) : impossible_(impossible) {}

  /// `title` names the element in the count.
  void read(const Element& element, std::string_view title);
  /// A point with the tool axis that it states, after its element was read.
  void read(const Position& position, const Element& element, std::string_view title);

  [[nodiscard]] bool holdAll(BufferValues values) const noexcept { return given_.holdAll(values); }

 private:
  Tally& impossible_;
  BufferValues given_;
};

}  // namespace host
